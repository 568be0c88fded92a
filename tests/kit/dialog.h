// A dialog box or message box of the running program, as the engineer handles it. Every function
// is the engineer's thread's; it comes back when the program has dealt with what was done.
#pragma once

#include "platform/win32.h"
#include "tests/kit/test.h"

namespace kit {

class Dialog {
  public:
    explicit Dialog(HWND window) : window_(window) {}

    HWND Handle() const { return window_; }
    HWND Control(int id) const;
    std::string Caption() const;
    bool IsOpen() const;

    // What can be seen.
    std::string Text(int id) const;
    bool IsEnabled(int id) const;
    bool IsChecked(int id) const;
    int FocusedId() const;
    // Of a list box or combo box: the number of rows, a row's text, the selected row (-1: none).
    int Rows(int id) const;
    std::string Row(int id, int row) const;
    int SelectedRow(int id) const;

    // What a person does. Typing takes the place of what the field held.
    void Type(int id, const std::string& text) const;
    void Press(int id) const;
    // Chooses a row by a key, also when it is the one that is selected.
    void Pick(int id, int row) const;
    // The row of this text, which must be there.
    void Pick(int id, const std::string& text) const;
    // A key that goes to the focused control.
    void Key(WPARAM virtualKey) const;
    // A letter with Alt.
    void AltKey(char letter) const;
    void CloseBox() const;

    // What the program does with a control.
    void Focus(int id) const;
    void Enable(int id, bool enable) const;
    void SetText(int id, const char* text) const;
    void CheckRadio(int first, int last, int id) const;
    LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  private:
    bool IsCombo(int id) const;

    HWND window_;
};

// The dialog box in front of all others, if one is open.
Dialog FrontDialog();
// Waits for the front dialog to have this caption; the test fails when another one stays in front
// or none comes.
Dialog WaitForDialog(const std::string& caption);
// Meets a message box: compares title and text, and its style where one is given, answers it and
// waits until it is gone.
void MeetBox(const std::string& title, const std::string& text, int answer = IDOK,
             std::optional<UINT> style = std::nullopt);
// Fails the test if any dialog or message box is open.
void ExpectNoBox();
// All texts in a box that a person reads.
std::string BoxText(const Dialog& box);
// The sign and the buttons of a message box, as the MB_ flags that ask for them; ~0u for a sign or
// a set of buttons that none of these flags asks for.
UINT BoxStyle(const Dialog& box);

}  // namespace kit
