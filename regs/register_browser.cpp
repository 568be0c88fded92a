#include "regs/register_browser.h"

#include <cstdio>
#include <vector>

#include "services/diagnostics.h"

namespace {

struct OpenBrowser {
    const RegisterBrowser& browser;
    std::size_t row = 0;    // the one used last
    bool settling = false;  // the focus is still where a report's box has moved it
};

// Posted to the dialog behind a report.
constexpr UINT kSettled = WM_APP;

// The list's selection. A list without one leaves the row that was used last.
std::size_t CurrentRow(HWND dialog, OpenBrowser& open) {
    const LRESULT selected = SendDlgItemMessageA(dialog, open.browser.list, LB_GETCURSEL, 0, 0);
    if (selected != LB_ERR)
        open.row = static_cast<std::size_t>(selected);
    return open.row;
}

void FillList(HWND dialog, const RegisterBrowser& browser) {
    const HWND list = GetDlgItem(dialog, browser.list);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (std::size_t row = 0; row < browser.catalogue.rows; ++row) {
        const char* name = browser.catalogue.nameOf(row);
        // A list that refuses a row shows fewer.
        if (SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name)) < 0)
            break;
    }
    SendMessageA(list, LB_SETCURSEL, 0, 0);
}

void Open(HWND dialog) {
    const RegisterBrowser& browser = StateOf<OpenBrowser>(dialog).browser;
    FillList(dialog, browser);
    if (browser.open != nullptr)
        browser.open(dialog);
}

// A box that reports a failed read gives the focus back, at the dialog's opening not before that is
// shown. It is no reason to read again and to report again.
void ReadRow(HWND dialog, OpenBrowser& open) {
    const unsigned boxes = BoxesShown();
    const std::string value =
        open.browser.read(dialog, open.row).value_or(open.browser.failureText);
    SetDlgItemTextA(dialog, open.browser.value, value.c_str());
    if (BoxesShown() != boxes) {
        open.settling = true;
        PostMessageA(dialog, kSettled, 0, 0);
    }
}

void EndSettling(HWND dialog, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    if (IsWindowVisible(dialog)) {
        StateOf<OpenBrowser>(dialog).settling = false;
    }
}

// The dialog is going to be shown, and to take the focus.
void SettleBehindShow(HWND dialog, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    PostMessageA(dialog, kSettled, 0, 0);
}

bool HandleListNotification(HWND dialog, int code) {
    switch (code) {
        case LBN_SETFOCUS:
            if (StateOf<OpenBrowser>(dialog).settling) {
                return true;
            }
            ShowCurrentRow(dialog);
            return true;
        case LBN_SELCHANGE:
        case LBN_DBLCLK:
            ShowCurrentRow(dialog);
            return true;
        default:
            return false;
    }
}

bool HandleCommand(HWND dialog, int id, int code) {
    const RegisterBrowser& browser = StateOf<OpenBrowser>(dialog).browser;
    if (id == browser.list)
        return HandleListNotification(dialog, code);
    if (id == browser.set) {
        SetCurrentRow(dialog);
        return true;
    }
    if (id == IDOK && browser.close != nullptr)
        browser.close(dialog);
    if (id == IDOK || id == IDCANCEL) {
        EndDialog(dialog, id == IDOK);
        return true;
    }
    return browser.command != nullptr && browser.command(dialog, id);
}

}  // namespace

INT_PTR RunBrowser(HINSTANCE instance, HWND owner, const RegisterBrowser& browser) {
    OpenBrowser open{browser};
    std::vector<DialogMessage> messages(browser.messages.begin(), browser.messages.end());
    messages.insert(messages.end(), {{kSettled, EndSettling}, {WM_SHOWWINDOW, SettleBehindShow}});
    return RunDialog(
        instance, browser.dialog, owner,
        {.open = Open, .otherwise = HandleCommand, .messages = messages, .end = browser.end},
        &open);
}

void ShowCurrentRow(HWND dialog) {
    auto& open = StateOf<OpenBrowser>(dialog);
    const RegisterBrowser& browser = open.browser;
    const std::size_t row = CurrentRow(dialog, open);
    ReadRow(dialog, open);
    if (browser.showName != nullptr) {
        browser.showName(dialog, row);
    } else {
        SetDlgItemTextA(dialog, browser.name, browser.catalogue.nameOf(row));
    }
}

void SetCurrentRow(HWND dialog) {
    auto& open = StateOf<OpenBrowser>(dialog);
    const RegisterBrowser& browser = open.browser;
    const std::size_t row = CurrentRow(dialog, open);
    browser.write(dialog, row, FieldText(dialog, browser.value, browser.valueBuffer));
}

std::string HexText(uint32_t value, int digits) {
    char text[16];
    std::snprintf(text, sizeof text, "0x%0*X", digits, static_cast<unsigned>(value));
    return text;
}
