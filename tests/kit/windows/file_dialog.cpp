#include "tests/kit/file_dialog.h"

#include <dlgs.h>

#include "tests/kit/dialog.h"
#include "tests/kit/user_interface.h"

namespace kit {
namespace {

constexpr std::chrono::seconds kLongestWait{10};

// The field for the name: an edit, in newer dialogs the one of a combo box.
HWND NameField(HWND dialog) {
    const HWND edit = GetDlgItem(dialog, edt1);
    return edit != nullptr ? edit : GetDlgItem(dialog, cmb13);
}

// Presses a button and waits until the dialog is gone.
void Leave(HWND window, int button) {
    Dialog(window).Press(button);
    const auto start = std::chrono::steady_clock::now();
    while (OnUserInterface([window] { return IsWindow(window) != 0; })) {
        ASSERT_LT(std::chrono::steady_clock::now() - start, kLongestWait) << "it stays open";
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}

}  // namespace

FileDialog::FileDialog(const std::string& title) : window_(WaitForDialog(title).Handle()) {}

std::vector<std::string> FileDialog::Types() const {
    const Dialog dialog(window_);
    std::vector<std::string> types;
    for (int row = 0; row < dialog.Rows(cmb1); ++row) {
        types.push_back(dialog.Row(cmb1, row));
    }
    return types;
}

void FileDialog::Open(const std::string& file) const {
    ASSERT_NE(window_, nullptr) << "no file is asked for";
    RunStep([&] { SetWindowTextA(NameField(window_), file.c_str()); });
    Leave(window_, IDOK);
}

void FileDialog::Cancel() const {
    ASSERT_NE(window_, nullptr) << "no file is asked for";
    Leave(window_, IDCANCEL);
}

}  // namespace kit
