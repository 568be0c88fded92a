// "Pixel Mask Dialog": the mask through which the encoder reads its pixels.
#include "video/pixel_mask.h"

#include <array>
#include <cstdint>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

constexpr uint32_t kConstant = 1;  // what the driver wants there

void ShowMask(HWND dialog) {
    uint32_t mask = 0;
    ReportFailure(dialog, CodeOf(vdapi_BT85X_ReadPixelMask(kConstant, &mask)),
                  "vdapi_BT85X_ReadPixelMask");
    ShowField(dialog, IDC_PIXEL_MASK, "0x%02hX", static_cast<uint16_t>(mask & 0xFF));
}

void WriteMask(HWND dialog) {
    const auto mask = static_cast<uint8_t>(ReadHexShort(dialog, IDC_PIXEL_MASK));
    ReportFailure(dialog, CodeOf(vdapi_BT85X_WritePixelMask(kConstant, mask)),
                  "vdapi_BT85X_WritePixelMask");
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDOK, Accept<WriteMask>},
    {IDCANCEL, EndWith<IDCANCEL>},
});

}  // namespace

INT_PTR OpenPixelMask(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_PIXEL_MASK, owner, {ShowMask, kActions});
}
