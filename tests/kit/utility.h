// The utility under test, run as a person runs it: WinMain, its window, its menus. Engineer's
// thread. One a process; on destruction it is closed, and a box that was left open fails the test.
#pragma once

#include "platform/win32.h"
#include "tests/kit/dialog.h"
#include "tests/kit/settings.h"

namespace kit {

class Utility {
  public:
    // Starts it on a fresh settings folder and waits until the window is shown or a box is open.
    Utility();
    // The same on settings that a test has written; `before` runs on the user-interface thread
    // before the utility does.
    explicit Utility(SettingsFolder& settings, std::function<void()> before = {});
    ~Utility();

    HWND Window() const;
    // Chooses a command of the shown menu bar, which must offer it, enabled.
    void Choose(UINT command) const;
    // Sends the window a command as menus do, whether or not the bar offers it.
    void Command(UINT command) const;
    bool IsChecked(UINT command) const;
    // The captions of the menu bar, separated by '|'.
    std::string MenuBar() const;
    // Closes the window; gives the exit code.
    int Close();
    // The exit code, when the window is closed already.
    int WaitForEnd();

  private:
    void Start(std::function<void()> before);

    std::optional<SettingsFolder> ownSettings_;
    std::future<int> exitCode_;
};

// Runs WinMain to its end where no window is expected to stay; gives the exit code.
int RunToEnd(HINSTANCE previousInstance);

}  // namespace kit
