// "MBE SEND DEMO": sends what is typed over the MBE data channel, as it is, also nothing.
#include "regs/mbe_send.h"

#include <cstdint>
#include <string>

#include "app/services/dialog_kit.h"
#include "driver/papi.h"
#include "res/resource.h"

namespace {

// Characters of the message field that count, with the terminator.
constexpr std::size_t kMessageField = 200;

constexpr uint32_t kWriteArgument = 1;
constexpr uint32_t kTerminator = 0xFE;

void SendText(HWND dialog) {
    const std::string text = FieldText(dialog, IDC_MBE_MESSAGE, kMessageField);
    vdapi_MBE_Write(text.c_str(), kWriteArgument, static_cast<uint32_t>(text.size()), kTerminator);
}

// Escape is left unanswered: it must not end a demonstration.
bool HandleCommand(HWND dialog, int id) {
    switch (id) {
        case IDC_MBE_SEND:
            SendText(dialog);
            return true;
        case IDC_MBE_EXIT:
            EndDialog(dialog, 0);
            return true;
        default:
            return false;
    }
}

INT_PTR CALLBACK MbeSendProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM /*lParam*/) {
    switch (message) {
        case WM_INITDIALOG:
            return TRUE;
        case WM_COMMAND:
            return HandleCommand(dialog, LOWORD(wParam));
        default:
            return FALSE;
    }
}

}  // namespace

INT_PTR OpenMbeSend(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_MBE_SEND, owner, MbeSendProcedure);
}
