// The desktop's dialog for opening a file, as a person sees it and types into it.
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>

#include "tests/qt/window_test.h"

namespace {

using kit::OnUserInterface;

class FileDialogOnScreen : public form::WindowTest {
  protected:
    FileDialogOnScreen() {
        QFile file(folder_.filePath(QStringLiteral("Two \u00FC words.bin")));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        OnUserInterface([this] { AtBare() = [this] { Ask(); }; });
    }

    void Ask() {
        OPENFILENAMEA question{};
        question.lStructSize = sizeof question;
        question.hwndOwner = window_;
        question.lpstrFilter = "Codes (*.*) \0 *.* \0";
        question.lpstrFile = file_.data();
        question.nMaxFile = static_cast<DWORD>(file_.size());
        question.lpstrInitialDir = begin_.c_str();
        question.lpstrTitle = "Pick One";
        question.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
        answer_.reset();
        answer_ = GetOpenFileNameA(&question);
    }
    // User-interface thread: the dialog that is open.
    QFileDialog* Dialog() const { return native::WidgetOf(window_)->findChild<QFileDialog*>(); }

    QTemporaryDir folder_;
    std::string begin_ = folder_.path().toStdString();
    std::array<char, 512> file_{};
    std::optional<BOOL> answer_;
};

TEST_F(FileDialogOnScreen, ShowsTheFolderAndGivesWhatIsChosen) {
    native::Press(Qt::Key_B, Qt::AltModifier);
    native::Do([this] {
        QFileDialog* dialog = Dialog();
        ASSERT_NE(dialog, nullptr);
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Pick One"));
        EXPECT_EQ(dialog->directory().canonicalPath(), QDir(folder_.path()).canonicalPath());
        EXPECT_EQ(dialog->findChild<QComboBox*>("fileTypeCombo")->currentText(), "Codes (*.*)");
        dialog->findChild<QLineEdit*>("fileNameEdit")->setText("Two \u00FC words.bin");
        native::PressKey(Qt::Key_Return);
    });
    OnUserInterface([this] {
        EXPECT_EQ(answer_, TRUE);
        EXPECT_EQ(file_.data(), begin_ + "/Two \xC3\xBC words.bin");
        EXPECT_EQ(Dialog(), nullptr);
        EXPECT_EQ(GetFocus(), window_);
    });
    ExpectKeyboard();
}

TEST_F(FileDialogOnScreen, IsLeftByAnEscapeThatWasTypedAhead) {
    native::Do([] {
        native::PressKey(Qt::Key_B, Qt::AltModifier);
        native::PressKey(Qt::Key_Escape);
    });
    EXPECT_EQ(OnUserInterface([this] { return answer_; }), FALSE);
    EXPECT_EQ(OnUserInterface([this] { return Dialog(); }), nullptr);
}

}  // namespace
