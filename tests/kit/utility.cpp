#include "tests/kit/utility.h"

#include "tests/kit/user_interface.h"

namespace kit {
namespace {

constexpr char kMainClass[] = "VxDTest";
constexpr std::chrono::seconds kLongestStart{20};
constexpr int kMostBoxesLeftOpen = 20;

HWND MainWindowHandle() {
    return FindWindowA(kMainClass, nullptr);
}

std::future<int> StartWinMain(HINSTANCE previousInstance, std::function<void()> before = {}) {
    return StartProgram([previousInstance, before = std::move(before)] {
        if (before)
            before();
        char commandLine[] = "";
        return WinMain(GetModuleHandleA(nullptr), previousInstance, commandLine, SW_SHOWNORMAL);
    });
}

}  // namespace

Utility::Utility() {
    ownSettings_.emplace();
    Start({});
}

Utility::Utility(SettingsFolder& /*settings*/, std::function<void()> before) {
    Start(std::move(before));
}

Utility::~Utility() {
    if (!exitCode_.valid())
        return;
    for (int tried = 0; tried < kMostBoxesLeftOpen; ++tried) {
        const Dialog left = FrontDialog();
        if (left.Handle() == nullptr)
            break;
        ADD_FAILURE() << "left open: \"" << left.Caption() << "\": " << BoxText(left);
        left.Key(VK_RETURN);
        left.CloseBox();
    }
    Close();
}

void Utility::Start(std::function<void()> before) {
    exitCode_ = StartWinMain(nullptr, std::move(before));
    const auto start = std::chrono::steady_clock::now();
    const auto isUp = [] {
        const HWND window = MainWindowHandle();
        return window != nullptr && IsWindowVisible(window) != 0;
    };
    while (!OnUserInterface(isUp) && FrontDialog().Handle() == nullptr) {
        ASSERT_LT(std::chrono::steady_clock::now() - start, kLongestStart) << "it does not start";
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

HWND Utility::Window() const {
    return OnUserInterface(MainWindowHandle);
}

void Utility::Choose(UINT command) const {
    const UINT state = OnUserInterface(
        [command] { return GetMenuState(GetMenu(MainWindowHandle()), command, MF_BYCOMMAND); });
    ASSERT_NE(state, static_cast<UINT>(-1)) << "the menu has no command " << command;
    ASSERT_EQ(state & (MF_GRAYED | MF_DISABLED), 0u) << "command " << command << " is greyed";
    ASSERT_TRUE(OnUserInterface([] { return IsWindowEnabled(MainWindowHandle()) != 0; }))
        << "a dialog is in the way of the menu";
    Command(command);
}

void Utility::Command(UINT command) const {
    PostMessageA(Window(), WM_COMMAND, command, 0);
    TryStep([] {});  // it may end the program
}

bool Utility::IsChecked(UINT command) const {
    return OnUserInterface([command] {
        const UINT state = GetMenuState(GetMenu(MainWindowHandle()), command, MF_BYCOMMAND);
        return state != static_cast<UINT>(-1) && (state & MF_CHECKED) != 0;
    });
}

std::string Utility::MenuBar() const {
    return OnUserInterface([] {
        const HMENU menu = GetMenu(MainWindowHandle());
        std::string captions;
        for (int position = 0; position < GetMenuItemCount(menu); ++position) {
            char caption[64] = "";
            GetMenuStringA(menu, static_cast<UINT>(position), caption, sizeof caption,
                           MF_BYPOSITION);
            captions += (position > 0 ? "|" : "") + std::string(caption);
        }
        return captions;
    });
}

int Utility::Close() {
    // It may be ending already.
    TryStep([] { PostMessageA(MainWindowHandle(), WM_CLOSE, 0, 0); });
    return WaitForEnd();
}

int Utility::WaitForEnd() {
    if (exitCode_.wait_for(kLongestStart) != std::future_status::ready) {
        ADD_FAILURE() << "the program does not end";
        std::abort();
    }
    return exitCode_.get();
}

int RunToEnd(HINSTANCE previousInstance) {
    return StartWinMain(previousInstance).get();
}

}  // namespace kit
