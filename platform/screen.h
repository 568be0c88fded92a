// The seam between the window system's core and what shows it.
//
// The core owns all state and all rules. A screen shows what it is told and hands back what a
// person did; it keeps nothing the core could ask for and decides nothing.
//
// Threads: every function here belongs to the user-interface thread, except Screen::Wake. The
// input functions are called by the screen from within Screen::Wait only. They queue what happened
// and return at once, so no program code ever runs inside a native event handler.
//
// Coordinates are pixels. A child's rectangle is relative to its parent's client area. The
// rectangle of a top-level window is the area inside the desktop's own frame: the menu bar, where
// the window has one, and below it the client area. Texts are UTF-8; `&` marks a key as in Win32.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace vxd {

// The window's handle as a number. 0 is no window.
using WidgetId = std::uint32_t;

struct Point {
    int x = 0;
    int y = 0;
};

struct Size {
    int width = 0;
    int height = 0;
};

struct Rect {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool Empty() const { return width <= 0 || height <= 0; }
    friend bool operator==(const Rect&, const Rect&) = default;
};

enum class WidgetKind {
    kWindow,   // top-level window of a class of the program's own; shows pixels
    kDialog,   // top-level dialog box
    kSurface,  // child window of a class of the program's own; shows pixels
    kLabel,    // static text
    kPicture,  // static that shows an icon
    kFrame,    // static that is a frame around what is drawn in it
    kPushButton,
    kCheckBox,
    kRadioButton,
    kGroupBox,
    kLineEdit,
    kTextEdit,  // multi-line edit; its text has CR LF line ends
    kListBox,
    kDropDownList,  // combo box without an edit
    kComboBox,      // combo box with an edit and a list that drops down
    kSimpleCombo,   // combo box with an edit and a list that is always shown
    kScrollBar,
};

struct WidgetSetup {
    WidgetId id = 0;
    WidgetKind kind = WidgetKind::kWindow;
    WidgetId parent = 0;      // child widgets: the window whose client area holds this one
    WidgetId owner = 0;       // top-level windows: the window this one stays in front of
    std::uint32_t style = 0;  // Win32 style bits, for looks the kind leaves open
    Rect rect;
    std::string text;
    bool enabled = true;
};

// 32-bit pixels, 0xAARRGGBB, row by row.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> data;
};

// A menu as it is to be shown. A popup has children; a separator has neither text nor command.
struct MenuView {
    std::string text;
    std::uint32_t command = 0;
    bool separator = false;
    bool popup = false;
    bool enabled = true;
    bool checked = false;
    bool radioMark = false;
    std::vector<MenuView> children;
};

// What a person is to choose a file by.
struct FileQuestion {
    struct Type {
        std::string name;
        std::vector<std::string> patterns;  // of file names, with * and ?
    };

    std::string title;
    WidgetId owner = 0;  // 0 for none
    std::string folder;  // to begin in; empty or not there: wherever the desktop begins
    std::vector<Type> types;
};

struct FontMetrics {
    int averageCharWidth = 0;  // of A-Z and a-z, as dialog units are defined
    int height = 0;
};

// What shows a window: its kind has use for some of these functions, and ignores the others.
class Widget {
  public:
    virtual ~Widget() = default;

    virtual void SetText(const std::string& /*text*/) {}
    virtual void SetRect(const Rect& /*rect*/) {}
    virtual void SetVisible(bool /*visible*/) {}
    // A disabled top-level window takes no input but keeps its looks; a control turns grey.
    virtual void SetEnabled(bool /*enabled*/) {}
    virtual void SetIcon(const Pixels& /*icon*/) {}
    // The client pixels have changed inside `changed`. Those of a dialog or a control lie over its
    // own look and are transparent (0) where nothing was drawn; none at all clear them.
    virtual void Draw(const Pixels& /*pixels*/, const Rect& /*changed*/) {}

    // Top-level windows.
    virtual void SetTopmost(bool /*topmost*/) {}
    // Between which sizes a person can size the window.
    virtual void SetSizeLimits(Size /*least*/, Size /*most*/) {}
    virtual void SetMenuBar(const std::vector<MenuView>& /*menu*/) {}
    // The height of the menu bar when the window is `width` wide; 0 without a menu.
    virtual int MenuBarHeight(int /*width*/) const { return 0; }

    // Buttons. `check` is BST_UNCHECKED, BST_CHECKED or BST_INDETERMINATE.
    virtual void SetCheck(int /*check*/) {}
    virtual void SetDefaultLook(bool /*isDefault*/) {}

    // Edits, and combo boxes that have one. Positions count bytes of the text. An edit that the
    // core refuses, or cuts, is answered with the text and the selection as they are to be.
    virtual void SetReadOnly(bool /*readOnly*/) {}
    virtual void SetTextSelection(int /*start*/, int /*end*/) {}

    // List and combo boxes. Row -1 is no row.
    virtual void InsertRow(int /*row*/, const std::string& /*text*/) {}
    virtual void RemoveRow(int /*row*/) {}
    virtual void ClearRows() {}
    virtual void SelectRow(int /*row*/) {}
    virtual void SetDropped(bool /*dropped*/) {}

    // Scroll bars. A thumb that a person holds stays with the person.
    virtual void SetScroll(int /*minimum*/, int /*maximum*/, int /*position*/) {}
};

// Shows nothing: the widget of a window that is not on the screen, or not any more.
Widget& NoWidget();

class Screen {
  public:
    virtual ~Screen() = default;

    // Measures.
    virtual FontMetrics DialogFont() = 0;
    // The size of a text that may have several lines; wrapWidth 0 means no wrapping.
    virtual Size TextSize(const std::string& text, int wrapWidth) = 0;
    // The part of the desktop that windows may cover.
    virtual Rect WorkArea() = 0;

    // The widget is the screen's and stays until it is destroyed. A new one is hidden.
    virtual Widget& Create(const WidgetSetup& setup) = 0;
    // Those inside it and those it owns go too.
    virtual void Destroy(WidgetId id) = 0;
    virtual void SetFocus(WidgetId id) = 0;
    // Brings a window to the front and asks the desktop to make it the active one. The core takes
    // it for active from now on; only what differs from that is reported by input::Activated.
    virtual void Raise(WidgetId id) = 0;

    // Shows a popup menu at a point of the desktop and returns at once; input::MenuEnded follows.
    virtual void ShowPopup(WidgetId id, const std::vector<MenuView>& menu, Point where) = 0;
    virtual void ClosePopup() = 0;

    // The desktop's dialog for opening a file that exists. Shows it and returns at once;
    // input::FileChosen follows. A screen that has none shows nothing.
    virtual void AskForFile(const FileQuestion& /*question*/) {}
    virtual void CloseFileDialog() {}

    // Takes in what the desktop has to tell, at most for `milliseconds` (-1: until something
    // happened), and returns early after any input and after Wake.
    virtual void Wait(int milliseconds) = 0;
    // Ends a Wait that is going on, or the next one. Any thread.
    virtual void Wake() = 0;
};

// The screen that the process shows its windows on. Installed before the first window is made and
// never replaced; without one the first use installs the headless screen.
void InstallScreen(Screen& screen);
Screen& CurrentScreen();

// What a person did. Each report waits for its turn behind posted messages; by then, what it was
// about may have changed. It counts for nothing if its window is gone or takes no input any more.
namespace input {

// Whether something that was reported still waits. Until it does not, a screen reports no further
// key and nothing that comes of the mouse or a close box.
bool Waits();

void Clicked(WidgetId button);
// The text after the edit, and the selection in it. If the program has set another text when the
// turn comes, what was put in goes into that one, and the screen is told the result.
void Edited(WidgetId edit, const std::string& text, int selectionStart, int selectionEnd);
void SelectionMoved(WidgetId edit, int start, int end);
// The mouse went down on a row, or on none (-1), which takes the focus to the list first. RowChosen
// follows when the button comes up among the rows.
void RowPressed(WidgetId list, int row);
// The row as the list shows it now; it stays that row when others come and go before its turn.
void RowChosen(WidgetId list, int row);
void RowDoubleClicked(WidgetId list, int row);
void Dropped(WidgetId combo, bool dropped);
// A step of a scroll action as WM_HSCROLL's code, with the thumb's position, which counts for
// SB_THUMBTRACK and SB_THUMBPOSITION. The last step is SB_ENDSCROLL.
void Scrolled(WidgetId bar, std::uint32_t code, int position);
// The focus went to a control by other means than the core's.
void Focused(WidgetId id);
// The desktop made a window the active one, or took that from it. Never answered by a request,
// unless the window is disabled.
void Activated(WidgetId window, bool active);
void CloseRequested(WidgetId window);
void Placed(WidgetId window, const Rect& rect);
// The desktop lost what the client area showed there.
void Uncovered(WidgetId id, const Rect& area);
void MenuOpened(WidgetId window, int position);
void MenuChosen(WidgetId window, std::uint32_t command);
// The popup of ShowPopup is gone; command 0 when nothing was chosen.
void MenuEnded(std::uint32_t command);
// The whole path of the file that AskForFile asked for; empty when none was chosen.
void FileChosen(const std::string& path);
// A mouse message (WM_LBUTTONDOWN and its like) on a window, dialog or surface, at a client point.
// The core makes a context menu's request of the right button's release and of the menu keys.
void Mouse(WidgetId id, std::uint32_t message, Point where);
// The wheel was turned over a window, dialog or surface, or over a control in it that has no use
// for it: by 120 for each notch away from the person.
void Wheel(WidgetId id, int turned, Point where);

struct KeyPress {
    std::uint32_t virtualKey = 0;  // 0 where the key has none
    std::uint32_t character = 0;   // 0 where the key makes none
    bool shift = false;
    bool control = false;
    bool alt = false;
};

// A key went down while the widget had the focus. Returns whether the core takes the key, which
// then goes to whoever has the focus at its turn; if not, the native widget handles it. A key that
// is held goes down again and again.
bool KeyPressed(WidgetId id, const KeyPress& key);
// A key that the core took came up; once, however often it went down.
void KeyReleased(const KeyPress& key);

}  // namespace input
}  // namespace vxd
