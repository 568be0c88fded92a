// Scroll bars. One does not move by itself: it tells its parent of what a person does, and the
// program gives it the new position.
#include <algorithm>
#include <utility>

#include "platform/core/controls/control.h"

namespace vxd {
namespace {

constexpr int kNoCode = -1;

int CodeOfKey(WPARAM key) {
    switch (key) {
        case VK_LEFT:
        case VK_UP:
            return SB_LINELEFT;
        case VK_RIGHT:
        case VK_DOWN:
            return SB_LINERIGHT;
        case VK_PRIOR:
            return SB_PAGELEFT;
        case VK_NEXT:
            return SB_PAGERIGHT;
        case VK_HOME:
            return SB_LEFT;
        case VK_END:
            return SB_RIGHT;
        default:
            return kNoCode;
    }
}

class ScrollBar : public BasicControl {
  public:
    using BasicControl::BasicControl;

    WidgetKind Kind() const override { return WidgetKind::kScrollBar; }

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_GETDLGCODE:
                return DLGC_WANTARROWS;
            case WM_KEYDOWN:
                if (const int code = CodeOfKey(wParam); code != kNoCode)
                    OnScrolled(static_cast<UINT>(code), 0);
                return 0;
            case WM_KEYUP:
                if (CodeOfKey(wParam) == kNoCode) {
                    return Default(message, wParam, lParam);
                }
                OnScrolled(SB_ENDSCROLL, 0);
                return 0;
            case SBM_SETPOS:
                return Move(static_cast<int>(wParam));
            case SBM_GETPOS:
                return position_;
            case SBM_SETRANGE:
                return SetRange(static_cast<int>(wParam), static_cast<int>(lParam));
            default:
                return Default(message, wParam, lParam);
        }
    }

    bool TakesKey(WPARAM virtualKey) const override { return CodeOfKey(virtualKey) != kNoCode; }

    void OnScrolled(UINT code, int position) override {
        const bool tellsPosition = code == SB_THUMBPOSITION || code == SB_THUMBTRACK;
        const HWND handle = window_.handle;
        if (window_.parent != nullptr) {
            Call(*window_.parent, Has(SBS_VERT) ? WM_VSCROLL : WM_HSCROLL,
                 MAKEWPARAM(code, tellsPosition ? position : 0), reinterpret_cast<LPARAM>(handle));
        }
        // The widget has followed the person; a thumb that is still held goes on doing so.
        if (IsLiveWindow(handle) && code != SB_THUMBTRACK)
            ShowState();
    }

    void ShowState() override { window_.widget->SetScroll(minimum_, maximum_, position_); }

  private:
    // Gives the position before, as SetRange does.
    int Move(int position) {
        const int before = std::exchange(position_, std::clamp(position, minimum_, maximum_));
        ShowState();
        return before;
    }

    int SetRange(int minimum, int maximum) {
        minimum_ = minimum;
        maximum_ = std::max(minimum, maximum);
        return Move(position_);
    }

    int minimum_ = 0;
    int maximum_ = 0;
    int position_ = 0;
};

}  // namespace

std::unique_ptr<BuiltInControl> MakeScrollBar(Window& window) {
    return std::make_unique<ScrollBar>(window);
}

}  // namespace vxd

int WINAPI SetScrollPos(HWND window, int /*bar*/, int position, BOOL /*redraw*/) {
    return static_cast<int>(SendMessageA(window, SBM_SETPOS, static_cast<WPARAM>(position), TRUE));
}

int WINAPI GetScrollPos(HWND window, int /*bar*/) {
    return static_cast<int>(SendMessageA(window, SBM_GETPOS, 0, 0));
}

BOOL WINAPI SetScrollRange(HWND window, int /*bar*/, int minimum, int maximum, BOOL /*redraw*/) {
    SendMessageA(window, SBM_SETRANGE, static_cast<WPARAM>(minimum), maximum);
    return IsWindow(window);
}
