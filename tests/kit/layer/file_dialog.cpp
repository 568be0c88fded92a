#include "tests/kit/file_dialog.h"

#include "platform/core/file_dialog.h"
#include "platform/core/queue.h"
#include "tests/kit/user_interface.h"

namespace kit {
namespace {

constexpr std::chrono::seconds kLongestWait{10};

std::optional<vxd::FileQuestion> Asked() {
    return OnUserInterface([]() -> std::optional<vxd::FileQuestion> {
        const vxd::FileQuestion* question = vxd::OpenFileQuestion();
        return question != nullptr ? std::optional(*question) : std::nullopt;
    });
}

// Looks again and again whether the dialog with a title is open.
bool Becomes(bool open, const std::string& title) {
    const auto start = std::chrono::steady_clock::now();
    for (;;) {
        const auto asked = Asked();
        if ((asked && asked->title == title) == open) {
            return true;
        }
        if (std::chrono::steady_clock::now() - start > kLongestWait) {
            return false;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

// What a screen reports waits behind all that is posted; so does what shows here that it was taken.
void Answer(const std::string& path) {
    std::promise<void> taken;
    RunStep([&] {
        vxd::input::FileChosen(path);
        vxd::QueueInput([&taken] { taken.set_value(); });
    });
    ASSERT_EQ(taken.get_future().wait_for(kLongestWait), std::future_status::ready);
    Settle();
}

}  // namespace

FileDialog::FileDialog(const std::string& title) {
    EXPECT_TRUE(Becomes(true, title)) << '"' << title << "\" does not open";
}

std::vector<std::string> FileDialog::Types() const {
    std::vector<std::string> types;
    if (const auto asked = Asked()) {
        for (const vxd::FileQuestion::Type& type : asked->types) {
            types.push_back(type.name);
        }
    }
    return types;
}

void FileDialog::Open(const std::string& file) const {
    const auto asked = Asked();
    ASSERT_TRUE(asked) << "no file is asked for";
    const bool whole = file.find('/') != std::string::npos;
    const bool separated = asked->folder.ends_with('/');
    Answer(whole ? file : asked->folder + (separated ? "" : "/") + file);
}

void FileDialog::Cancel() const {
    ASSERT_TRUE(Asked()) << "no file is asked for";
    Answer("");
}

}  // namespace kit
