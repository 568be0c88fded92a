// "Camera Selection": which video input the newer board takes its picture from. The board is told
// at the click; it does not say which one it uses.
#include "regs/camera_selection.h"

#include <cstdint>

#include "app/services/dialog_kit.h"
#include "driver/firmware_command.h"
#include "driver/papi.h"
#include "res/resource.h"

namespace {

constexpr uint32_t kPhilipsCamera = 1;
constexpr uint32_t kVcr = 2;

void SelectInput(uint32_t input) {
    uint32_t response1 = 0;
    uint32_t response2 = 0;
    uint16_t response3 = 0;
    vdapi_SendCommand(PELLAN_COMMAND_CAM_SET_INPUT, input, 0, 0, &response1, &response2,
                      &response3);
}

bool HandleCommand(HWND dialog, int id, int code) {
    switch (id) {
        case IDC_CAMERA_PHILIPS:
        case IDC_CAMERA_VCR:
            if (code == BN_CLICKED)
                SelectInput(id == IDC_CAMERA_PHILIPS ? kPhilipsCamera : kVcr);
            return code == BN_CLICKED;
        case IDCANCEL:
            EndDialog(dialog, 0);
            return true;
        default:
            return false;
    }
}

INT_PTR CALLBACK CameraSelectionProcedure(HWND dialog, UINT message, WPARAM wParam,
                                          LPARAM /*lParam*/) {
    switch (message) {
        case WM_INITDIALOG:
            return TRUE;
        case WM_COMMAND:
            return HandleCommand(dialog, LOWORD(wParam), HIWORD(wParam));
        default:
            return FALSE;
    }
}

}  // namespace

INT_PTR OpenCameraSelection(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_CAMERA_SELECTION, owner, CameraSelectionProcedure);
}
