// Message boxes: dialog boxes that are laid out around their text.
#include <algorithm>
#include <array>
#include <span>
#include <string>

#include "platform/core/dialog.h"

namespace vxd {
namespace {

// Dialog units.
constexpr int kMargin = 7;
constexpr int kGap = 4;
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;
constexpr int kIconUnits = 21;
constexpr int kWidestText = 260;
constexpr int kShortestText = 12;
// What the caption has beside its title: the icon, as many as three boxes, which some desktops give
// a window without an owner, what keeps them apart, and what a bold title takes more.
constexpr int kCaptionParts = 72;

// As Win32 numbers the parts of its message boxes.
constexpr int kTextId = 0xFFFF;
constexpr int kIconId = 0x14;

struct ButtonChoice {
    int id;
    const char* caption;
};

constexpr std::array kOk = {ButtonChoice{IDOK, "OK"}};
constexpr std::array kOkCancel = {ButtonChoice{IDOK, "OK"}, ButtonChoice{IDCANCEL, "Cancel"}};
constexpr std::array kYesNo = {ButtonChoice{IDYES, "&Yes"}, ButtonChoice{IDNO, "&No"}};

std::span<const ButtonChoice> ButtonsOf(UINT style) {
    switch (style & MB_TYPEMASK) {
        case MB_YESNO:
            return kYesNo;
        case MB_OKCANCEL:
            return kOkCancel;
        default:
            return kOk;
    }
}

HICON SignOf(UINT style) {
    switch (style & MB_ICONMASK) {
        case MB_ICONHAND:
            return LoadIconA(nullptr, IDI_HAND);
        case MB_ICONEXCLAMATION:
            return LoadIconA(nullptr, IDI_EXCLAMATION);
        case MB_ICONINFORMATION:
            return LoadIconA(nullptr, IDI_ASTERISK);
        default:
            return nullptr;
    }
}

DialogControl BoxControl(const char* className, int id, std::uint32_t style, const Rect& units,
                         std::string title) {
    DialogControl control;
    control.className = className;
    control.id = id;
    control.style = style | WS_CHILD | WS_VISIBLE;
    control.x = units.x;
    control.y = units.y;
    control.width = units.width;
    control.height = units.height;
    control.title = std::move(title);
    return control;
}

DialogTemplate LayOut(const std::string& text, const char* title, UINT style) {
    const bool hasIcon = SignOf(style) != nullptr;
    const auto buttons = ButtonsOf(style);
    const Rect widest = FromDialogUnits({0, 0, kWidestText, 0});
    const Size size = CurrentScreen().TextSize(text, widest.width);
    // A little more than measured, so that no screen's rounding cuts a letter.
    const Rect measured = ToDialogUnits({0, 0, size.width, size.height});
    const int textWidth = measured.width + kGap;
    const int textHeight = std::max(measured.height + 2, kShortestText);
    const int textLeft = kMargin + (hasIcon ? kIconUnits + kMargin : 0);
    const int bodyHeight = std::max(textHeight, hasIcon ? kIconUnits : 0);
    // As wide as the title needs, as far as the desktop goes.
    const Rect area = CurrentScreen().WorkArea();
    const int titleWidth = std::min(CurrentScreen().TextSize(title, 0).width, area.width);
    const int captionWidth = std::min(ToDialogUnits({0, 0, titleWidth, 0}).width + kCaptionParts,
                                      ToDialogUnits({0, 0, area.width, 0}).width);
    const int count = static_cast<int>(buttons.size());
    const int buttonsWidth = count * kButtonWidth + (count - 1) * kGap;

    DialogTemplate made;
    // Windows' own message boxes are told from other dialogs by DS_NOIDLEMSG too.
    made.style =
        WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_NOIDLEMSG | DS_SETFONT | DS_CENTER;
    made.title = title;
    made.width =
        std::max({textLeft + textWidth + kMargin, buttonsWidth + 2 * kMargin, captionWidth});
    made.height = kMargin + bodyHeight + kMargin + kButtonHeight + kMargin;
    if (hasIcon) {
        made.controls.push_back(
            BoxControl("Static", kIconId, SS_ICON, {kMargin, kMargin, kIconUnits, kIconUnits}, {}));
    }
    made.controls.push_back(BoxControl(
        "Static", kTextId, SS_LEFT | SS_NOPREFIX,
        {textLeft, kMargin + (bodyHeight - textHeight) / 2, textWidth, textHeight}, text));
    int x = (made.width - buttonsWidth) / 2;
    for (const ButtonChoice& button : buttons) {
        const bool first = &button == &buttons.front();
        made.controls.push_back(BoxControl(
            "Button", button.id, WS_TABSTOP | (first ? WS_GROUP | BS_DEFPUSHBUTTON : BS_PUSHBUTTON),
            {x, made.height - kMargin - kButtonHeight, kButtonWidth, kButtonHeight},
            button.caption));
        x += kButtonWidth + kGap;
    }
    return made;
}

INT_PTR CALLBACK MessageBoxProcedure(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG: {
            const auto sign = SignOf(static_cast<UINT>(lParam));
            SendDlgItemMessageA(box, kIconId, STM_SETICON, reinterpret_cast<WPARAM>(sign), 0);
            return TRUE;
        }
        case WM_COMMAND: {
            // Escape and the close box answer OK where OK is all there is, and nothing where
            // there is a question without Cancel.
            const int id = LOWORD(wParam);
            const bool onlyOk =
                GetDlgItem(box, IDCANCEL) == nullptr && GetDlgItem(box, IDOK) != nullptr;
            if (id == IDCANCEL && onlyOk) {
                EndDialog(box, IDOK);
            } else if (GetDlgItem(box, id) != nullptr) {
                EndDialog(box, id);
            }
            return TRUE;
        }
        default:
            return FALSE;
    }
}

}  // namespace
}  // namespace vxd

int WINAPI MessageBoxA(HWND owner, LPCSTR text, LPCSTR title, UINT style) {
    const vxd::DialogTemplate box =
        vxd::LayOut(text != nullptr ? text : "", title != nullptr ? title : "Error", style);
    const bool shutsOutAll = owner == nullptr && (style & MB_TASKMODAL) != 0;
    return static_cast<int>(vxd::RunDialogBox(
        GetModuleHandleA(nullptr), box, owner, vxd::MessageBoxProcedure, static_cast<LPARAM>(style),
        shutsOutAll ? vxd::Modality::kAllWindows : vxd::Modality::kOwner));
}
