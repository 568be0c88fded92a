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

INT_PTR CALLBACK FormProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            AddRows(dialog, IDC_PLACE, CB_ADDSTRING);
            AddRows(dialog, IDC_WORD, CB_ADDSTRING);
            AddRows(dialog, IDC_SIMPLE, CB_ADDSTRING);
            AddRows(dialog, IDC_LIST, LB_ADDSTRING);
            CheckRadioButton(dialog, IDC_RED, IDC_BLUE, IDC_RED);
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
