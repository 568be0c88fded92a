// What a window does with a message that its program leaves alone.
#include "platform/core/drawing.h"
#include "platform/core/keyboard.h"
#include "platform/core/window.h"

using vxd::FindWindowOf;
using vxd::Window;

LRESULT WINAPI DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return 0;
    switch (message) {
        case WM_NCCREATE:
            return TRUE;
        case WM_SETTEXT:
            window->text = lParam != 0 ? reinterpret_cast<LPCSTR>(lParam) : "";
            window->widget->SetText(window->text);
            return TRUE;
        case WM_GETTEXT:
            return vxd::CopyText(window->text, reinterpret_cast<LPSTR>(lParam),
                                 static_cast<int>(wParam));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(window->text.size());
        case WM_CLOSE:
            DestroyWindow(handle);
            return 0;
        case WM_SYSCOMMAND:
            if ((wParam & 0xFFF0) == SC_CLOSE)
                SendMessageA(handle, WM_CLOSE, 0, 0);
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE)
                SetFocus(handle);
            return 0;
        case WM_ERASEBKGND:
            return vxd::EraseBackground(*window, reinterpret_cast<HDC>(wParam));
        case WM_PAINT: {
            PAINTSTRUCT paint;
            BeginPaint(handle, &paint);
            EndPaint(handle, &paint);
            return 0;
        }
        case WM_RBUTTONUP: {
            POINT where{static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
            ClientToScreen(handle, &where);
            SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle),
                         MAKELPARAM(where.x, where.y));
            return 0;
        }
        case WM_CONTEXTMENU:
        case WM_MOUSEWHEEL:
            if (window->parent != nullptr)
                SendMessageA(window->parent->handle, message, wParam, lParam);
            return 0;
        case WM_KEYUP:
            if (wParam == VK_APPS)
                SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), -1);
            return 0;
        case WM_SYSKEYDOWN:
            if (wParam == VK_F10 && vxd::IsShiftDown())
                SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), -1);
            if (wParam == VK_F4 && vxd::IsAltDown())
                PostMessageA(handle, WM_SYSCOMMAND, SC_CLOSE, 0);
            return 0;
        default:
            return 0;
    }
}
