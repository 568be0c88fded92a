// "Camera Selection": which video input the newer board takes its picture from. The board is told
// at the click; it does not say which one it uses.
#include "regs/camera_selection.h"

#include <array>
#include <cstdint>

#include "driver/firmware_command.h"
#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

constexpr uint32_t kPhilipsCamera = 1;
constexpr uint32_t kVcr = 2;

template <uint32_t kInput>
void SelectInput(HWND /*dialog*/) {
    uint32_t response1 = 0;
    uint32_t response2 = 0;
    uint16_t response3 = 0;
    vdapi_SendCommand(PELLAN_COMMAND_CAM_SET_INPUT, kInput, 0, 0, &response1, &response2,
                      &response3);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_CAMERA_PHILIPS, SelectInput<kPhilipsCamera>},
    {IDC_CAMERA_VCR, SelectInput<kVcr>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenCameraSelection(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_CAMERA_SELECTION, owner, {nullptr, kActions});
}
