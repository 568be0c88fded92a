// Activation on the Qt screen, offscreen and under a window manager alike.
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QTest>
#include <QWindow>

#include "tests/kit/dialog.h"
#include "tests/kit/process.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/native.h"

namespace {

using kit::OnUserInterface;

// How often a window of the test became the active one, and which were clicked. User-interface
// thread.
int theActivations = 0;
std::vector<HWND> theClicked;

LRESULT CALLBACK CountingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ACTIVATE && LOWORD(wParam) != WA_INACTIVE)
        ++theActivations;
    if (message == WM_LBUTTONDOWN) {
        theClicked.push_back(window);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeWindow(int x, HWND owner = nullptr) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = CountingProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "Counting";
    RegisterClassA(&windowClass);
    return CreateWindowExA(0, "Counting", "Counting", WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, 100, 200,
                           200, owner, nullptr, windowClass.hInstance, nullptr);
}

class ActivationTest : public testing::Test {
  protected:
    ActivationTest()
        : program_(kit::StartProgram([this] {
              for (const int x : {100, 350, 600})
                  windows_.push_back(MakeWindow(x));
              MSG message;
              while (GetMessageA(&message, nullptr, 0, 0)) {
                  TranslateMessage(&message);
                  DispatchMessageA(&message);
              }
              return 0;
          })) {
        WaitForRest();
    }

    ~ActivationTest() override {
        kit::RunStep([] { PostQuitMessage(0); });
        program_.get();
    }

    // Waits until the active window has been the same for a while; gives how often a window became
    // active meanwhile, and gives up when that goes on.
    static int WaitForRest() {
        constexpr std::chrono::milliseconds kWhile{700};
        constexpr int kForEver = 100;
        const int before = OnUserInterface([] { return std::exchange(theActivations, 0); });
        std::this_thread::sleep_for(kWhile);
        const int now = OnUserInterface([] { return theActivations; });
        if (now == 0 || before > kForEver)
            return before;
        OnUserInterface([before] { theActivations += before; });
        return WaitForRest();
    }

    static bool HasWindowManager() { return QGuiApplication::platformName() == "xcb"; }

    // A real key where there is a desktop to press it on.
    static void PressReturn() {
        if (HasWindowManager()) {
            ASSERT_EQ(std::system("xdotool key Return"), 0);
        } else {
            native::Press(Qt::Key_Return);
        }
        WaitForRest();
    }

    // A click near the lower left corner of a window, by a real mouse where there is a desktop.
    static void ClickOn(HWND window, Qt::MouseButton button = Qt::LeftButton) {
        const auto place = [window] {
            return native::WidgetOf(window)->rect().bottomLeft() + QPoint(8, -8);
        };
        if (HasWindowManager()) {
            const QPoint at =
                OnUserInterface([&] { return native::WidgetOf(window)->mapToGlobal(place()); });
            const std::string click = "xdotool mousemove " + std::to_string(at.x()) + " " +
                                      std::to_string(at.y()) + " click " +
                                      (button == Qt::LeftButton ? "1" : "2");
            ASSERT_EQ(std::system(click.c_str()), 0);
        } else {
            native::Do([&] { native::ClickWidget(*native::WidgetOf(window), place(), button); });
        }
        WaitForRest();
    }

    // The desktop may be slow to do what a click or the program has asked it for.
    static void ExpectActive(HWND window) {
        EXPECT_TRUE(kit::WaitFor([window] {
            return OnUserInterface([window] {
                return GetActiveWindow() == window &&
                       QApplication::activeWindow() == native::WidgetOf(window);
            });
        }));
    }

    std::vector<HWND> windows_;

  private:
    std::future<int> program_;
};

TEST_F(ActivationTest, IsAskedForFasterThanTheDesktopAnswersAndComesToRest) {
    OnUserInterface([this] {
        theActivations = 0;
        for (int round = 0; round < 5; ++round) {
            for (const HWND window : windows_)
                SetFocus(window);
        }
        SetFocus(windows_.front());
    });
    EXPECT_EQ(WaitForRest(), 16) << "each is told once, by its request";
    ExpectActive(windows_.front());
    // A person's choice counts as well as the program's.
    native::Do([this] { native::WidgetOf(windows_[1])->windowHandle()->requestActivate(); });
    EXPECT_EQ(WaitForRest(), 1);
    ExpectActive(windows_[1]);
}

// As the video windows come: tiny, then sized, and the keyboard goes back to who had it.
TEST_F(ActivationTest, GoesBackFromANewWindowThatStandsWhollyOnTheScreen) {
    const HWND keeper = windows_.front();
    const HWND made = OnUserInterface([keeper] {
        SetFocus(keeper);
        const HWND window = CreateWindowExA(0, "Counting", "New", WS_THICKFRAME | WS_VISIBLE, 1, 1,
                                            1, 1, nullptr, nullptr, nullptr, nullptr);
        SetWindowPos(window, nullptr, 0, 0, 352, 288, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        SetFocus(keeper);
        return window;
    });
    WaitForRest();
    ExpectActive(keeper);
    OnUserInterface([made] {
        const QRect frame = native::WidgetOf(made)->frameGeometry();
        EXPECT_GE(frame.x(), 0);
        EXPECT_GE(frame.y(), 0) << "its caption is there";
        EXPECT_EQ(native::WidgetOf(made)->size(), QSize(352, 288));
    });
}

TEST_F(ActivationTest, WindowsBesideADialogTakeClicksAndADisabledOneBringsTheDialogForward) {
    // One of the dialog's owner is none of those that the dialog shuts out.
    const HWND owner = windows_.front();
    const HWND beside = OnUserInterface([owner] { return MakeWindow(850, owner); });
    kit::BeginStep([owner] { MessageBoxA(owner, "Text", "Over", MB_OK); });
    const kit::Dialog box = kit::WaitForDialog("Over");
    WaitForRest();
    OnUserInterface([] { theClicked.clear(); });
    for (const HWND window : {beside, windows_[2]}) {
        ClickOn(window);
        if (!HasWindowManager()) {
            OnUserInterface([window] { SetFocus(window); });
            WaitForRest();
        }
        ExpectActive(window);
        ClickOn(owner);
        ExpectActive(box.Handle());
    }
    EXPECT_EQ(OnUserInterface([] { return theClicked; }), (std::vector<HWND>{beside, windows_[2]}));
    OnUserInterface([&] {
        const QWidget* shown = native::WidgetOf(box.Handle());
        EXPECT_EQ(shown->windowModality(), Qt::NonModal);
        EXPECT_EQ(shown->windowHandle()->transientParent(),
                  native::WidgetOf(owner)->windowHandle());
    });
    PressReturn();
    ExpectActive(owner);
}

TEST_F(ActivationTest, IsNotNeededToPasteWhatIsSelectedElsewhereByTheMiddleButton) {
    if (!HasWindowManager()) {
        GTEST_SKIP() << "only a desktop has a selection to paste";
    }
    const HWND field = OnUserInterface([this] {
        return CreateWindowExA(0, "Edit", "0x", WS_CHILD | WS_VISIBLE, 0, 150, 200, 50,
                               windows_.front(), nullptr, nullptr, nullptr);
    });
    OnUserInterface(
        [] { QGuiApplication::clipboard()->setText(QStringLiteral("1F"), QClipboard::Selection); });
    ClickOn(field, Qt::MiddleButton);
    OnUserInterface([field] {
        char text[16];
        GetWindowTextA(field, text, sizeof text);
        EXPECT_EQ(std::string(text).size(), 4u) << text;
        EXPECT_NE(std::string(text).find("1F"), std::string::npos) << text;
        EXPECT_EQ(native::As<QLineEdit>(field)->text().toStdString(), text);
    });
}

TEST_F(ActivationTest, OfABoxOverAnotherOneOfTheSameOwnerKeepsAndReturnsTheKeyboard) {
    std::vector<std::string> answered;
    const auto ask = [&](const char* title) {
        kit::BeginStep([=, this, &answered] {
            MessageBoxA(windows_.front(), "Text", title, MB_OK);
            answered.emplace_back(title);
        });
        return kit::WaitForDialog(title);
    };
    const kit::Dialog under = ask("Under");
    WaitForRest();
    const kit::Dialog over = ask("Over");
    EXPECT_LE(WaitForRest(), 2);
    ExpectActive(over.Handle());
    // The owner is disabled, and the desktop is told so.
    native::Do([this] { native::WidgetOf(windows_.front())->windowHandle()->requestActivate(); });
    WaitForRest();
    ExpectActive(over.Handle());
    PressReturn();
    ExpectActive(under.Handle());
    PressReturn();
    ExpectActive(windows_.front());
    EXPECT_EQ(OnUserInterface([&] { return answered; }),
              (std::vector<std::string>{"Over", "Under"}));
}

}  // namespace
