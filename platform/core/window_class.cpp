#include "platform/core/window_class.h"

#include "platform/core/controls/control.h"
#include "platform/core/dialog.h"
#include "platform/core/paint.h"
#include "platform/core/text.h"

namespace vxd {
namespace {

constexpr ATOM kFirstAtom = 0xC000;

// Never destroyed: windows may outlive the end of the program.
std::vector<std::unique_ptr<WindowClass>>& TheClasses() {
    static auto& classes = *new std::vector<std::unique_ptr<WindowClass>>;
    return classes;
}

const WindowClass* AddClass(std::unique_ptr<WindowClass> windowClass) {
    auto& classes = TheClasses();
    windowClass->atom = static_cast<ATOM>(kFirstAtom + classes.size());
    classes.push_back(std::move(windowClass));
    return classes.back().get();
}

// After these messages a control is painted anew, and what the program drew on it is gone.
bool ChangesLook(UINT message) {
    switch (message) {
        case WM_SETTEXT:
        case WM_ENABLE:
        case BM_SETCHECK:
        case BM_SETSTYLE:
        case STM_SETICON:
            return true;
        default:
            return false;
    }
}

void RegisterDialogClass() {
    auto dialogClass = std::make_unique<WindowClass>();
    dialogClass->name = kDialogClass;
    dialogClass->procedure = DefDlgProcA;
    AddClass(std::move(dialogClass));
}

}  // namespace

const WindowClass* FindClass(LPCSTR name) {
    for (const auto& windowClass : TheClasses()) {
        if (IS_INTRESOURCE(name) ? windowClass->atom == reinterpret_cast<ULONG_PTR>(name)
                                 : EqualIgnoringCase(windowClass->name, name))
            return windowClass.get();
    }
    return nullptr;
}

void RegisterControl(const char* name, std::unique_ptr<BuiltInControl> (*make)(Window& window)) {
    auto windowClass = std::make_unique<WindowClass>();
    windowClass->name = name;
    windowClass->procedure = ControlProcedure;
    windowClass->makeControl = make;
    AddClass(std::move(windowClass));
}

LRESULT CALLBACK ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr || window->control == nullptr)
        return DefWindowProcA(handle, message, wParam, lParam);
    if (ChangesLook(message))
        DrawnAnew(*window);
    return window->control->Handle(message, wParam, lParam);
}

void RegisterBuiltInClasses() {
    if (!TheClasses().empty())
        return;
    RegisterDialogClass();
    RegisterControls();
}

}  // namespace vxd

ATOM WINAPI RegisterClassA(const WNDCLASSA* given) {
    vxd::RegisterBuiltInClasses();
    if (given == nullptr || given->lpszClassName == nullptr || given->lpfnWndProc == nullptr ||
        vxd::FindClass(given->lpszClassName) != nullptr)
        return 0;
    auto windowClass = std::make_unique<vxd::WindowClass>();
    windowClass->name = given->lpszClassName;
    windowClass->style = given->style;
    windowClass->procedure = given->lpfnWndProc;
    windowClass->icon = given->hIcon;
    windowClass->background = given->hbrBackground;
    if (IS_INTRESOURCE(given->lpszMenuName)) {
        windowClass->menuNumber = LOWORD(reinterpret_cast<ULONG_PTR>(given->lpszMenuName));
    } else {
        windowClass->menuName = given->lpszMenuName;
    }
    return vxd::AddClass(std::move(windowClass))->atom;
}
