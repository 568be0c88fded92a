// Windows: what each of them and its class keeps, and how they are found.
//
// Everything here belongs to the user-interface thread, except IsLiveWindow.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/core/handle_table.h"
#include "platform/screen.h"
#include "platform/win32.h"

namespace vxd {

struct Window;

// What a built-in control keeps and how it answers. One object lives as long as its window.
class BuiltInControl {
  public:
    virtual ~BuiltInControl() = default;
    virtual LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    // The kind of widget that shows the control.
    virtual WidgetKind Kind() const = 0;
    // Called once, when the widget exists and before the window's WM_CREATE.
    virtual void Shown() {}

    // Whether the control itself, and not its widget, is to have a key that is not the dialog's.
    virtual bool TakesKey(WPARAM /*virtualKey*/) const { return false; }

    // The text that a person edits; for controls that have one.
    virtual std::string EditedText() const { return {}; }
    // Shows again whatever a person can change on the screen.
    virtual void ShowState() {}

    // What a person did with the widget; controls answer what concerns them.
    virtual void OnClicked() {}
    virtual void OnEdited(const std::string& /*text*/, int /*start*/, int /*end*/) {}
    virtual void OnSelectionMoved(int /*start*/, int /*end*/) {}
    virtual void OnRowPressed(int /*row*/) {}
    virtual void OnRowChosen(int /*row*/) {}
    virtual void OnRowDoubleClicked(int /*row*/) {}
    virtual void OnDropped(bool /*dropped*/) {}
    virtual void OnScrolled(UINT /*code*/, int /*position*/) {}
};

struct WindowClass {
    std::string name;
    ATOM atom = 0;
    UINT style = 0;
    WNDPROC procedure = nullptr;
    HICON icon = nullptr;
    HBRUSH background = nullptr;
    std::string menuName;  // empty where the class names its menu by number or has none
    WORD menuNumber = 0;
    // Makes the control's state; null for classes of the program's own and for dialogs.
    std::unique_ptr<BuiltInControl> (*makeControl)(Window& window) = nullptr;
};

// What only dialog boxes keep.
struct DialogState {
    INT_PTR result = 0;
    bool ended = false;
    int defaultId = 0;          // 0: no button is, and Enter stands for OK
    HWND savedFocus = nullptr;  // who had the focus when the dialog was last active
    std::vector<HWND> shutOut;  // the windows that are disabled while it runs
};

struct Window {
    HWND handle = nullptr;
    Widget* widget = &NoWidget();
    const WindowClass* windowClass = nullptr;
    WNDPROC procedure = nullptr;
    HINSTANCE instance = nullptr;
    DWORD style = 0;
    DWORD exStyle = 0;
    int id = 0;
    Window* parent = nullptr;       // of a child window
    HWND owner = nullptr;           // of a top-level window
    std::vector<Window*> children;  // in the order of their making, which is the tab order
    Rect rect;
    std::string text;
    HMENU menu = nullptr;
    int menuHeight = 0;
    HICON icon = nullptr;
    LONG_PTR userData = 0;                 // GWLP_USERDATA
    std::array<LONG_PTR, 3> dialogData{};  // DWLP_MSGRESULT, DWLP_DLGPROC, DWLP_USER
    std::optional<Rect> update;            // what of the client area waits to be painted
    bool eraseUpdate = false;
    Pixels pixels;
    HDC ownContext = nullptr;  // of a class that asks for one by CS_OWNDC
    bool destroying = false;
    bool placed = false;        // is told of new places by WM_SIZE and WM_MOVE
    bool placementDue = false;  // will be told of its first place when it is shown
    std::unique_ptr<BuiltInControl> control;
    std::unique_ptr<DialogState> dialog;

    WidgetId Number() const { return HandleNumber(handle); }
    bool IsChild() const { return (style & WS_CHILD) != 0; }
    bool IsVisible() const { return (style & WS_VISIBLE) != 0; }
    bool IsEnabled() const { return (style & WS_DISABLED) == 0; }
    DLGPROC DialogProcedure() const { return reinterpret_cast<DLGPROC>(dialogData[1]); }
};

// What there is once in the process. For the files that make up the windows alone.
struct Desk {
    HandleTable<Window, HandleKind::kWindow> windows;
    std::vector<Window*> topLevel;
    HWND focus = nullptr;
    HWND active = nullptr;
};
Desk& TheDesk();

// Null for a handle that is not a window's.
Window* FindWindowOf(HWND handle);
// Any thread.
bool IsLiveWindow(HWND handle);
// The windows without a parent, front to back.
const std::vector<Window*>& TopLevelWindows();
// Puts one of them before all others, as far as the core knows their order.
void MoveToFront(Window& window);
HWND FocusedWindow();
Window& TopLevelOf(Window& window);
// Whether `window` is `ancestor` or inside it.
bool IsInside(const Window& window, const Window& ancestor);
// Shown, with all its parents.
bool IsShown(const Window& window);

// The area that a window's children and pixels lie in: its size, the same in its own coordinates,
// and where it begins on the desktop.
Size ClientSize(const Window& window);
Rect ClientRect(const Window& window);
Point ClientOrigin(const Window& window);

// Calls the window's procedure, at once and on this thread.
LRESULT Call(Window& window, UINT message, WPARAM wParam, LPARAM lParam);
// Sends WM_COMMAND for a control to its parent.
void Notify(Window& control, int code);
// Copies at most capacity - 1 bytes and a zero; gives the number of bytes without the zero.
int CopyText(const std::string& text, LPSTR destination, int capacity);

}  // namespace vxd
