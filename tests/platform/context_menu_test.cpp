// What a popup menu answers.
#include "tests/kit/user_interface.h"
#include "tests/platform/difference.h"

namespace {

// What the window was told. User-interface thread, or after its end.
struct Told {
    std::vector<WPARAM> commands;
    int opened = 0;
    bool isOpen = false;  // as far as the caller of the popup can tell
};

Told& TheTold() {
    static Told told;
    return told;
}

LRESULT CALLBACK TellingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND:
            EXPECT_FALSE(TheTold().isOpen) << "a command comes when the menu is gone";
            EXPECT_EQ(lParam, 0) << "it comes from no control";
            TheTold().commands.push_back(wParam);
            return 0;
        case WM_INITMENUPOPUP:
            ++TheTold().opened;
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

HWND MakeWindow() {
    kit::RegisterWindowClass("Told", TellingProcedure);
    const HWND window = CreateWindowExA(0, "Told", "Told", WS_OVERLAPPEDWINDOW, 50, 60, 200, 100,
                                        nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    ShowWindow(window, SW_SHOW);
    return window;
}

// A program that shows a window and runs until it is told to quit.
class Popup : public testing::Test {
  protected:
    Popup() {
        program_ = kit::StartProgram([this] {
            window_ = MakeWindow();
            menu_ = CreatePopupMenu();
            AppendMenuA(menu_, MF_STRING, 41, "&first");
            AppendMenuA(menu_, MF_STRING, 44, "on&e");
            AppendMenuA(menu_, MF_STRING, 45, "&either");
            AppendMenuA(menu_, MF_STRING, 42, "mar&ked");
            AppendMenuA(menu_, MF_SEPARATOR, 0, nullptr);
            AppendMenuA(menu_, MF_STRING, 43, "&last");
            MSG message;
            while (GetMessageA(&message, nullptr, 0, 0)) {
                TranslateMessage(&message);
                DispatchMessageA(&message);
            }
            return 0;
        });
    }
    ~Popup() override {
        kit::RunStep([] { PostQuitMessage(0); });
        program_.get();
    }

    HWND window_ = nullptr;
    HMENU menu_ = nullptr;

  private:
    std::future<int> program_;
};

TEST_F(Popup, KeysChooseACommandAndEscapeChoosesNone) {
    struct Case {
        UINT flags;
        std::vector<WPARAM> keys;
        int answer;
        std::vector<WPARAM> commands;
    };
    int answer = 0;
    for (const Case& each :
         {Case{TPM_RETURNCMD, {VK_DOWN, VK_RETURN}, 41, {}},
          Case{TPM_RETURNCMD, {VK_UP, VK_UP, VK_RETURN}, 42, {}},
          Case{TPM_RETURNCMD, {'K'}, 42, {}},
          Case{TPM_RETURNCMD,
               {'E', 'E', VK_RETURN},
               kit::ExceptOn(WindowSystem::kWine, 44,
                             "chooses the first entry of several that share a letter", 45),
               {}},
          Case{TPM_RETURNCMD, {VK_DOWN, VK_ESCAPE}, 0, {}},
          Case{0, {VK_DOWN, VK_DOWN, VK_RETURN}, TRUE, {44}},
          Case{0, {VK_DOWN, VK_ESCAPE}, TRUE, {}}}) {
        kit::RunStep([] { TheTold() = {}; });
        kit::BeginStep([&] {
            answer = -1;
            TheTold().isOpen = true;
            answer = TrackPopupMenu(menu_, each.flags, 10, 10, 0, window_, nullptr);
            TheTold().isOpen = false;
        });
        for (const WPARAM key : each.keys) {
            const bool isLetter = key >= 'A' && key <= 'Z';
            PostMessageA(window_, isLetter ? WM_CHAR : WM_KEYDOWN, key, 0);
        }
        for (int settled = 0; settled < 2; ++settled)
            kit::RunStep([] {});
        kit::RunStep([&] {
            EXPECT_EQ(answer, each.answer);
            EXPECT_EQ(TheTold().commands, each.commands);
            EXPECT_GE(TheTold().opened, 1);
        });
    }
}

TEST_F(Popup, ARadioMarkMovesToTheItemThatIsChosen) {
    kit::RunStep([&] {
        for (const UINT chosen : {42u, 43u, 41u}) {
            CheckMenuRadioItem(menu_, 41, 43, chosen, MF_BYCOMMAND);
            for (const UINT command : {41u, 42u, 43u}) {
                EXPECT_EQ((GetMenuState(menu_, command, MF_BYCOMMAND) & MF_CHECKED) != 0,
                          command == chosen)
                    << command << " when " << chosen << " is chosen";
            }
        }
    });
}

}  // namespace
