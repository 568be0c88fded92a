// The desktop's dialog for opening a file, as a person sees it and types into it.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <array>
#include <future>
#include <optional>
#include <string>

#include "platform/win32.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/native.h"

namespace {

using kit::OnUserInterface;

QFileDialog* Shown() {
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (auto* dialog = qobject_cast<QFileDialog*>(widget);
            dialog != nullptr && dialog->isVisible())
            return dialog;
    }
    return nullptr;
}

template <typename Widget>
Widget& Part(const char* name) {
    return *Shown()->findChild<Widget*>(QLatin1String(name));
}

class FileDialogOnScreen : public testing::Test {
  protected:
    FileDialogOnScreen()
        : program_(kit::StartProgram([this] {
              WNDCLASSA windowClass{};
              windowClass.lpfnWndProc = AskAtKey;
              windowClass.lpszClassName = "Owner";
              RegisterClassA(&windowClass);
              theTest = this;
              owner_ = CreateWindowExA(0, "Owner", "Owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100,
                                       100, 200, 100, nullptr, nullptr, nullptr, nullptr);
              SetFocus(owner_);
              MSG message;
              while (GetMessageA(&message, nullptr, 0, 0)) {
                  TranslateMessage(&message);
                  DispatchMessageA(&message);
              }
              return 0;
          })) {
        QFile file(folder_.filePath(QStringLiteral("Two \u00FC words.bin")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        native::Do([] {});  // the window is shown
    }
    ~FileDialogOnScreen() override {
        kit::RunStep([] { PostQuitMessage(0); });
        program_.get();
    }

    static LRESULT CALLBACK AskAtKey(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message != WM_KEYDOWN || wParam != 'O') {
            return DefWindowProcA(window, message, wParam, lParam);
        }
        theTest->Ask();
        return 0;
    }
    void Ask() {
        OPENFILENAMEA question{};
        question.lStructSize = sizeof question;
        question.hwndOwner = owner_;
        question.lpstrFilter = "Codes (*.*) \0 *.* \0";
        question.lpstrFile = file_.data();
        question.nMaxFile = static_cast<DWORD>(file_.size());
        question.lpstrInitialDir = begin_.c_str();
        question.lpstrTitle = "Pick One";
        question.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
        answer_.reset();
        answer_ = GetOpenFileNameA(&question);
    }
    std::optional<BOOL> Answer() {
        return OnUserInterface([this] { return answer_; });
    }

    static inline FileDialogOnScreen* theTest = nullptr;

    QTemporaryDir folder_;
    std::string begin_ = folder_.path().toStdString();
    HWND owner_ = nullptr;
    std::array<char, 512> file_{};
    std::optional<BOOL> answer_;

  private:
    std::future<int> program_;
};

TEST_F(FileDialogOnScreen, ShowsTheFolderAndGivesWhatIsChosen) {
    native::Press(Qt::Key_O);
    OnUserInterface([this] {
        QFileDialog* dialog = Shown();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Pick One"));
        EXPECT_EQ(dialog->directory().canonicalPath(), QDir(folder_.path()).canonicalPath());
        EXPECT_EQ(Part<QComboBox>("fileTypeCombo").currentText(), QStringLiteral("Codes (*.*)"));
        EXPECT_EQ(dialog->parentWidget(), native::WidgetOf(owner_));
    });
    native::Do([] {
        Part<QLineEdit>("fileNameEdit").setText(QStringLiteral("Two \u00FC words.bin"));
        native::PressKey(Qt::Key_Return);
    });
    EXPECT_EQ(Answer(), TRUE);
    EXPECT_EQ(std::string(file_.data()), begin_ + "/Two \xC3\xBC words.bin");
    EXPECT_EQ(OnUserInterface(Shown), nullptr);
    EXPECT_EQ(OnUserInterface(GetFocus), owner_);
    EXPECT_TRUE(OnUserInterface([this] { return IsWindowEnabled(owner_); }));
}

TEST_F(FileDialogOnScreen, IsLeftByEscapeAlsoByOneThatWasTypedAhead) {
    native::Press(Qt::Key_O);
    native::Press(Qt::Key_Escape);
    EXPECT_EQ(Answer(), FALSE);
    EXPECT_EQ(OnUserInterface(Shown), nullptr);
    kit::RunStep([this] { answer_.reset(); });
    native::Do([] {
        native::PressKey(Qt::Key_O);
        native::PressKey(Qt::Key_Escape);
    });
    EXPECT_EQ(Answer(), FALSE);
}

}  // namespace
