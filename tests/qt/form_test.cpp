#include "tests/qt/form_test.h"

namespace form {
namespace {

void ChangeForm(HWND dialog, unsigned number) {
    const std::string text = std::string(number % 7, 'p') + std::to_string(number);
    const auto row = static_cast<WPARAM>(number % 3);
    switch (number % 6) {
        case 5:
            SendDlgItemMessageA(dialog, IDC_NAME, EM_SETSEL, row, row + 1);
            break;
        case 0:
            SetDlgItemTextA(dialog, IDC_NAME, text.c_str());
            break;
        case 1:
            SetDlgItemTextA(dialog, IDC_WORD, text.c_str());
            break;
        case 2:
            SendDlgItemMessageA(dialog, IDC_LIST, LB_INSERTSTRING, row,
                                reinterpret_cast<LPARAM>(text.c_str()));
            break;
        case 3:
            SendDlgItemMessageA(dialog, IDC_LIST, LB_DELETESTRING, row, 0);
            break;
        default:
            SendDlgItemMessageA(dialog, IDC_LIST, LB_SETCURSEL, row, 0);
            break;
    }
}

// The codes, with the position where there is one. The program moves the bar by steps alone.
void Scroll(HWND bar, WORD code, WORD position) {
    Heard() += std::to_string(code);
    if (code == SB_THUMBTRACK || code == SB_THUMBPOSITION)
        Heard() += "=" + std::to_string(position);
    Heard() += " ";
    if (code == SB_LINELEFT || code == SB_LINERIGHT) {
        SetScrollPos(bar, SB_CTL, GetScrollPos(bar, SB_CTL) + (code == SB_LINERIGHT ? 1 : -1),
                     TRUE);
    }
}

INT_PTR CALLBACK FormProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            AddRows(dialog, IDC_PLACE, CB_ADDSTRING);
            AddRows(dialog, IDC_WORD, CB_ADDSTRING);
            AddRows(dialog, IDC_SIMPLE, CB_ADDSTRING);
            AddRows(dialog, IDC_LIST, LB_ADDSTRING);
            CheckRadioButton(dialog, IDC_RED, IDC_BLUE, IDC_RED);
            SetScrollRange(GetDlgItem(dialog, IDC_LEVEL), SB_CTL, 0, 31, FALSE);
            SetScrollPos(GetDlgItem(dialog, IDC_LEVEL), SB_CTL, 16, FALSE);
            return TRUE;
        case WM_HSCROLL:
            Scroll(reinterpret_cast<HWND>(lParam), LOWORD(wParam), HIWORD(wParam));
            return TRUE;
        case WM_RBUTTONDBLCLK:
            Heard() += "double";
            return TRUE;
        case WM_MOUSEWHEEL:
            Heard() += "wheel=" + std::to_string(GET_WHEEL_DELTA_WPARAM(wParam)) + " at " +
                       std::to_string(LOWORD(lParam)) + "," + std::to_string(HIWORD(lParam));
            return TRUE;
        case WM_COMMAND:
            Notices().emplace_back(LOWORD(wParam), HIWORD(wParam));
            if (BoxIsDue() && LOWORD(wParam) == IDC_LIST && HIWORD(wParam) == LBN_SETFOCUS) {
                MessageBoxA(dialog, "The row cannot be read.", "Report", MB_OK);
            }
            if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)
                EndDialog(dialog, LOWORD(wParam));
            return TRUE;
        case kChange:
            ChangeForm(dialog, static_cast<unsigned>(wParam));
            return TRUE;
        default:
            return FALSE;
    }
}

}  // namespace

std::vector<std::pair<int, int>>& Notices() {
    static std::vector<std::pair<int, int>> notices;
    return notices;
}

Codes TakeCodes(int id) {
    return kit::OnUserInterface([id] {
        Codes codes;
        for (const auto& [control, code] : std::exchange(Notices(), {})) {
            if (control == id)
                codes.push_back(code);
        }
        return codes;
    });
}

std::string& Heard() {
    static std::string heard;
    return heard;
}

void AddRows(HWND dialog, int id, UINT message) {
    for (const char* row : {"alpha", "beta", "gamma", "delta"})
        SendDlgItemMessageA(dialog, id, message, 0, reinterpret_cast<LPARAM>(row));
}

bool& BoxIsDue() {
    static bool isDue = false;
    return isDue;
}

int RunForm(HWND owner) {
    return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_FORM),
                                            owner, FormProcedure, 0));
}

}  // namespace form
