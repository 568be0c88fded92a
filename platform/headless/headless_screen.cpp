#include "platform/headless/headless_screen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sstream>

#include "platform/core/dialog.h"
#include "platform/core/file_dialog.h"

namespace vxd {
namespace {

constexpr int kCharWidth = 6;
constexpr int kLineHeight = 13;
constexpr int kMenuBarHeight = 20;
constexpr Rect kWorkArea{0, 0, 1024, 768};

class HeadlessWidget : public Widget {
  public:
    int MenuBarHeight(int /*width*/) const override { return kMenuBarHeight; }
};

// What the program waits for a person to answer; empty if for nothing.
std::string DescribeWhatIsAsked() {
    const FileQuestion* question = OpenFileQuestion();
    return question != nullptr ? '"' + question->title + '"' : DescribeModalBox();
}

}  // namespace

FontMetrics HeadlessScreen::DialogFont() {
    return {kCharWidth, kLineHeight};
}

Size HeadlessScreen::TextSize(const std::string& text, int wrapWidth) {
    const int perLine = wrapWidth > 0 ? std::max(1, wrapWidth / kCharWidth) : 0;
    Size size;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const int length = std::max(1, static_cast<int>(line.size()));
        const int rows = perLine > 0 ? (length + perLine - 1) / perLine : 1;
        size.width = std::max(size.width, (rows > 1 ? perLine : length) * kCharWidth);
        size.height += rows * kLineHeight;
    }
    return size;
}

Rect HeadlessScreen::WorkArea() {
    return kWorkArea;
}

Widget& HeadlessScreen::Create(const WidgetSetup& /*setup*/) {
    static HeadlessWidget forAll;
    return forAll;
}

void HeadlessScreen::Wait(int milliseconds) {
    std::unique_lock lock(mutex_);
    const auto woken = [this] { return wake_; };
    const auto start = std::chrono::steady_clock::now();
    const auto patience = kPatience - waited_;
    const auto longest = milliseconds >= 0 ? std::min<std::chrono::nanoseconds>(
                                                 std::chrono::milliseconds(milliseconds), patience)
                                           : patience;
    const bool something = woken_.wait_for(lock, longest, woken);
    wake_ = false;
    waited_ = something ? std::chrono::nanoseconds(0)
                        : waited_ + (std::chrono::steady_clock::now() - start);
    if (waited_ < kPatience)
        return;
    waited_ = std::chrono::nanoseconds(0);
    if (const std::string box = DescribeWhatIsAsked(); !box.empty()) {
        std::fprintf(stderr, "nobody answers the modal box %s\n", box.c_str());
        std::abort();
    }
}

void HeadlessScreen::Wake() {
    {
        std::lock_guard lock(mutex_);
        wake_ = true;
    }
    woken_.notify_one();
}

}  // namespace vxd
