// "BrookTree basic operations": the encoders' mode and the port of each. What stands in the fields
// is remembered.
#include "video/encoder_basics.h"

#include <array>
#include <cstdint>

#include "driver/debug_command.h"
#include "driver/low_memory.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"
#include "services/remembered_fields.h"
#include "video/encoder_choice.h"

namespace {

constexpr auto kRemembered = std::to_array<RememberedHexField>({
    {IDC_ENCODER_MODE, setting::kEncoderMode},
    {IDC_ENCODER_PORT, setting::kEncoderPort},
});

template <typename Block>
void Send(HWND dialog, uint32_t command, Block block, const char* operation) {
    ReportFailure(dialog, CodeOf(vdapi_Debug(command, sizeof block, &block)), operation);
}

// What a failed read leaves is 0, and that is shown.
void ShowByte(HWND dialog, int id, uint32_t value) {
    ShowField(dialog, id, "0x%02X", static_cast<unsigned>(value & 0xFF));
}

uint8_t ReadByte(HWND dialog, int id) {
    return static_cast<uint8_t>(ReadHexShort(dialog, id));
}

void GetMode(HWND dialog) {
    const LowObject<uint32_t> mode;
    Send(dialog, TALVERO_DBG_BT85X_OP_RD_STATE, Bt85xStateReadBlock{mode.Address()},
         "vdapi_Debug: TALVERO_DBG_BT85X_OP_RD_STATE");
    ShowByte(dialog, IDC_ENCODER_MODE, *mode);
}

void SetMode(HWND dialog) {
    Send(dialog, TALVERO_DBG_BT85X_OP_WR_STATE,
         Bt85xStateWriteBlock{ReadByte(dialog, IDC_ENCODER_MODE)},
         "vdapi_Debug: TALVERO_DBG_BT85X_OP_WR_STATE");
}

void GetPort(HWND dialog) {
    const LowObject<uint32_t> value;
    Send(dialog, TALVERO_DBG_BT85X_OP_RD_PORT,
         Bt85xPortReadBlock{ChosenEncoder(dialog), value.Address()},
         "vdapi_Debug: TALVERO_DBG_BT85X_OP_RD_PORT");
    ShowByte(dialog, IDC_ENCODER_PORT, *value);
}

void SetPort(HWND dialog) {
    Send(dialog, TALVERO_DBG_BT85X_OP_WR_PORT,
         Bt85xPortWriteBlock{ChosenEncoder(dialog), ReadByte(dialog, IDC_ENCODER_PORT)},
         "vdapi_Debug: TALVERO_DBG_BT85X_OP_WR_PORT");
}

void Open(HWND dialog) {
    RecallEncoder(dialog, setting::kBasicsEncoder);
    RecallHexFields(dialog, kRemembered);
}

void Close(HWND dialog) {
    RememberHexFields(dialog, kRemembered,
                      {TextOf(setting::kBasicsEncoder, ChosenEncoder(dialog))});
    EndDialog(dialog, 0);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_ENCODER_MODE_GET, GetMode},
    {IDC_ENCODER_MODE_SET, SetMode},
    {IDC_ENCODER_PORT_GET, GetPort},
    {IDC_ENCODER_PORT_SET, SetPort},
    {IDOK, Close},
    {IDCANCEL, Close},
});

}  // namespace

INT_PTR OpenEncoderBasics(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_ENCODER_BASICS, owner, {Open, kActions});
}
