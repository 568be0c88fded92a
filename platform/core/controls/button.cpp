// Buttons: push buttons, check boxes, radio buttons and group boxes.
#include "platform/core/controls/control.h"
#include "platform/core/dialog.h"

namespace vxd {
namespace {

class Button : public BasicControl {
  public:
    using BasicControl::BasicControl;

    WidgetKind Kind() const override {
        switch (Type()) {
            case BS_CHECKBOX:
            case BS_AUTOCHECKBOX:
            case BS_3STATE:
            case BS_AUTO3STATE:
                return WidgetKind::kCheckBox;
            case BS_RADIOBUTTON:
            case BS_AUTORADIOBUTTON:
                return WidgetKind::kRadioButton;
            case BS_GROUPBOX:
                return WidgetKind::kGroupBox;
            default:
                return WidgetKind::kPushButton;
        }
    }

    void Shown() override {
        if (Type() == BS_DEFPUSHBUTTON)
            window_.widget->SetDefaultLook(true);
    }

    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override {
        switch (message) {
            case WM_GETDLGCODE:
                return DialogCode();
            case BM_GETCHECK:
                return check_;
            case BM_SETCHECK:
                SetCheck(static_cast<int>(wParam));
                return 0;
            case BM_SETSTYLE:
                window_.style = (window_.style & ~static_cast<DWORD>(BS_TYPEMASK)) |
                                (LOWORD(wParam) & BS_TYPEMASK);
                window_.widget->SetDefaultLook(Type() == BS_DEFPUSHBUTTON);
                return 0;
            case BM_CLICK:
                SetFocus(window_.handle);
                Click();
                return 0;
            case WM_KEYUP:
                // The space bar presses a button when it comes up again.
                if (wParam != VK_SPACE) {
                    return Default(message, wParam, lParam);
                }
                Click();
                return 0;
            default:
                return Default(message, wParam, lParam);
        }
    }

    void ShowState() override { window_.widget->SetCheck(check_); }

    void OnClicked() override { Click(); }

  private:
    DWORD Type() const { return window_.style & BS_TYPEMASK; }

    LRESULT DialogCode() const {
        switch (Kind()) {
            case WidgetKind::kGroupBox:
                return DLGC_STATIC;
            case WidgetKind::kRadioButton:
                return DLGC_BUTTON | DLGC_RADIOBUTTON;
            case WidgetKind::kCheckBox:
                return DLGC_BUTTON;
            default:
                return DLGC_BUTTON |
                       (Type() == BS_DEFPUSHBUTTON ? DLGC_DEFPUSHBUTTON : DLGC_UNDEFPUSHBUTTON);
        }
    }

    void SetCheck(int check) {
        if (Kind() != WidgetKind::kCheckBox && Kind() != WidgetKind::kRadioButton)
            return;
        const bool threeStates = Type() == BS_3STATE || Type() == BS_AUTO3STATE;
        check_ = check == BST_INDETERMINATE && !threeStates ? BST_CHECKED : check;
        // Tab enters a group of radio buttons at the one that is checked.
        if (Kind() == WidgetKind::kRadioButton) {
            window_.style = check_ != BST_UNCHECKED
                                ? window_.style | WS_TABSTOP
                                : window_.style & ~static_cast<DWORD>(WS_TABSTOP);
        }
        window_.widget->SetCheck(check_);
    }

    void CheckOnlyThisOfGroup() {
        SetCheck(BST_CHECKED);
        for (Window* other : GroupOf(window_)) {
            if (other != &window_ && other->windowClass == window_.windowClass &&
                other->control->Kind() == WidgetKind::kRadioButton)
                SendMessageA(other->handle, BM_SETCHECK, BST_UNCHECKED, 0);
        }
    }

    void Click() {
        if (Kind() == WidgetKind::kGroupBox || !window_.IsEnabled())
            return;
        switch (Type()) {
            case BS_AUTOCHECKBOX:
                SetCheck(check_ == BST_UNCHECKED ? BST_CHECKED : BST_UNCHECKED);
                break;
            case BS_AUTO3STATE:
                SetCheck((check_ + 1) % 3);
                break;
            case BS_AUTORADIOBUTTON:
                CheckOnlyThisOfGroup();
                break;
            default:
                // The screen's own widget may have changed its look on the click.
                ShowState();
                break;
        }
        Notify(window_, BN_CLICKED);
    }

    int check_ = BST_UNCHECKED;
};

}  // namespace

std::unique_ptr<BuiltInControl> MakeButton(Window& window) {
    return std::make_unique<Button>(window);
}

}  // namespace vxd
