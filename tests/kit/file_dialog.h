// The dialog for opening a file, as a person handles it. On Windows it is the system's own; the
// layer gets what a screen reports of the desktop's. Engineer's thread.
#pragma once

#include "platform/win32.h"
#include "tests/kit/test.h"

namespace kit {

class FileDialog {
  public:
    // Waits until it is open; the test fails when none comes with this title.
    explicit FileDialog(const std::string& title);

    // The rows of its list of file types.
    std::vector<std::string> Types() const;

    // Types a whole path, or the name of a file in the folder that is shown, and presses the
    // dialog's button; comes back when the dialog is gone.
    void Open(const std::string& file) const;
    void Cancel() const;

  private:
    HWND window_ = nullptr;  // on Windows
};

}  // namespace kit
