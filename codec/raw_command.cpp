// "Send Raw Command": any command of the board's firmware, by name or by number, with three
// parameters, and the three values that come back.
#include "codec/raw_command.h"

#include <array>
#include <cstdint>

#include "driver/firmware_command.h"
#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

// Characters of a number field that count, with the terminator.
constexpr std::size_t kNumberField = 16;

#define BY_NAME(constant) \
    { #constant, constant }

// The first row lets a number be typed that no other row has.
constexpr auto kCommands = std::to_array<NamedNumber>({
    {"Enter your command number or select it from this combo box", 0},
    BY_NAME(PELLAN_COMMAND_486_READ_IO),
    BY_NAME(PELLAN_COMMAND_486_READ_MEM),
    BY_NAME(PELLAN_COMMAND_486_WRITE_IO),
    BY_NAME(PELLAN_COMMAND_486_WRITE_MEM),
    BY_NAME(PELLAN_COMMAND_AEC_GET_MODE),
    BY_NAME(PELLAN_COMMAND_AEC_GET_VALUE),
    BY_NAME(PELLAN_COMMAND_AEC_SET_8KHZ),
    BY_NAME(PELLAN_COMMAND_AEC_SET_MODE),
    BY_NAME(PELLAN_COMMAND_AEC_SET_VALUE),
    BY_NAME(PELLAN_COMMAND_AKM_MUTE),
    BY_NAME(PELLAN_COMMAND_AKM_READ_REGISTER),
    BY_NAME(PELLAN_COMMAND_AKM_SWITCH),
    BY_NAME(PELLAN_COMMAND_AKM_VOLUME),
    BY_NAME(PELLAN_COMMAND_AKM_WRITE_REGISTER),
    BY_NAME(PELLAN_COMMAND_ASYNCHRONOUS_RESYNC_STREAM),
    BY_NAME(PELLAN_COMMAND_AUDIO_GET_PARAM),
    BY_NAME(PELLAN_COMMAND_AUDIO_SELECT_INPUT),
    BY_NAME(PELLAN_COMMAND_AUDIO_SELECT_OUTPUT),
    BY_NAME(PELLAN_COMMAND_AUDIO_SET_PARAM),
    BY_NAME(PELLAN_COMMAND_AUXDEV_ACTIVATE),
    BY_NAME(PELLAN_COMMAND_AUXDEV_DEACTIVATE),
    BY_NAME(PELLAN_COMMAND_AUXDEV_GET_FIELD),
    BY_NAME(PELLAN_COMMAND_AUXDEV_HW_RESET),
    BY_NAME(PELLAN_COMMAND_AUXDEV_SET_FIELD),
    BY_NAME(PELLAN_COMMAND_AUXDEV_TEST),
    BY_NAME(PELLAN_COMMAND_BURN_BLOCK),
    BY_NAME(PELLAN_COMMAND_CAM_GET_PARAM),
    BY_NAME(PELLAN_COMMAND_CAM_SET_INPUT),
    BY_NAME(PELLAN_COMMAND_CAM_SET_PARAM),
    BY_NAME(PELLAN_COMMAND_CAM_SET_TYPE),
    BY_NAME(PELLAN_COMMAND_CLOSE_STREAM),
    BY_NAME(PELLAN_COMMAND_DEBUG_GETLEVEL),
    BY_NAME(PELLAN_COMMAND_DEBUG_MUTE),
    BY_NAME(PELLAN_COMMAND_DEBUG_SETLEVEL),
    BY_NAME(PELLAN_COMMAND_DEBUG_TECH),
    BY_NAME(PELLAN_COMMAND_DEBUG_TRACE),
    BY_NAME(PELLAN_COMMAND_DOWNLOAD2),
    BY_NAME(PELLAN_COMMAND_DUMP_BLOCK),
    BY_NAME(PELLAN_COMMAND_ERASE_ONE_BLOCK),
    BY_NAME(PELLAN_COMMAND_GENERAL_PURPOSE_0),
    BY_NAME(PELLAN_COMMAND_GENERAL_PURPOSE_1),
    BY_NAME(PELLAN_COMMAND_GENERAL_PURPOSE_2),
    BY_NAME(PELLAN_COMMAND_GENERAL_PURPOSE_3),
    BY_NAME(PELLAN_COMMAND_GET_SOFTWARE_VAR),
    BY_NAME(PELLAN_COMMAND_GET_USS_REG),
    BY_NAME(PELLAN_COMMAND_GET_VER),
    BY_NAME(PELLAN_COMMAND_I2C_ACCESS),
    BY_NAME(PELLAN_COMMAND_I2C_RETRIEVE),
    BY_NAME(PELLAN_COMMAND_I2C_SEND),
    BY_NAME(PELLAN_COMMAND_JADE_READ_REG),
    BY_NAME(PELLAN_COMMAND_JADE_RESET),
    BY_NAME(PELLAN_COMMAND_JADE_WRITE_REG),
    BY_NAME(PELLAN_COMMAND_LAN_SET_IP),
    BY_NAME(PELLAN_COMMAND_OPEN_STREAM),
    BY_NAME(PELLAN_COMMAND_PLAY_VIDEO_FILE),
    BY_NAME(PELLAN_COMMAND_PSHELL_RUN),
    BY_NAME(PELLAN_COMMAND_READ_PORT),
    BY_NAME(PELLAN_COMMAND_RESYNC_STREAM),
    BY_NAME(PELLAN_COMMAND_RUN_VCP_SCRIPT),
    BY_NAME(PELLAN_COMMAND_SAA7111_READ_REG),
    BY_NAME(PELLAN_COMMAND_SAA7111_WRITE_REG),
    BY_NAME(PELLAN_COMMAND_SEARCHING_FOR_TARGET),
    BY_NAME(PELLAN_COMMAND_SEND_FILE),
    BY_NAME(PELLAN_COMMAND_SERIAL_CONNECT_ENABLE),
    BY_NAME(PELLAN_COMMAND_SET_LED_STATE),
    BY_NAME(PELLAN_COMMAND_SET_SOFTWARE_VAR),
    BY_NAME(PELLAN_COMMAND_SET_USS_REG),
    BY_NAME(PELLAN_COMMAND_STANDBY),
    BY_NAME(PELLAN_COMMAND_STREAM_INFO),
    BY_NAME(PELLAN_COMMAND_STREAM_READ),
    BY_NAME(PELLAN_COMMAND_STREAM_WRITE),
    BY_NAME(PELLAN_COMMAND_TARGET_CONNECTED),
    BY_NAME(PELLAN_COMMAND_UPDATE_VERSION),
    BY_NAME(PELLAN_COMMAND_VCP_GET_VAR),
    BY_NAME(PELLAN_COMMAND_VCP_SET_VAR),
    BY_NAME(PELLAN_COMMAND_WRITE_PORT),
});

constexpr auto kAudioParameters = std::to_array<NamedNumber>({
    BY_NAME(VC_AUDIOPARAM_AEC),
    BY_NAME(VC_AUDIOPARAM_AGC),
    BY_NAME(VC_AUDIOPARAM_ANS),
    BY_NAME(VC_AUDIOPARAM_DELAY_ENC_G711),
    BY_NAME(VC_AUDIOPARAM_DELAY_ENC_G722),
    BY_NAME(VC_AUDIOPARAM_DELAY_ENC_G728),
    BY_NAME(VC_AUDIOPARAM_DEVICE),
    BY_NAME(VC_AUDIOPARAM_DEVICE_LIST),
    BY_NAME(VC_AUDIOPARAM_EXT_PHONE),
    BY_NAME(VC_AUDIOPARAM_EXT_SPKR_DETECT),
    BY_NAME(VC_AUDIOPARAM_G722_SUPPORT),
    BY_NAME(VC_AUDIOPARAM_G723_SUPPORT),
    BY_NAME(VC_AUDIOPARAM_INT_SPKR_DETECT),
    BY_NAME(VC_AUDIOPARAM_LAST),
    BY_NAME(VC_AUDIOPARAM_LINE_TONE),
    BY_NAME(VC_AUDIOPARAM_MIC_DETECT),
    BY_NAME(VC_AUDIOPARAM_MIC_GAIN),
    BY_NAME(VC_AUDIOPARAM_MIC_SELECT),
    BY_NAME(VC_AUDIOPARAM_MODE_VOICE),
    BY_NAME(VC_AUDIOPARAM_MUTE_INCOMING),
    BY_NAME(VC_AUDIOPARAM_MUTE_OUTGOING),
    BY_NAME(VC_AUDIOPARAM_PLAYBACK),
    BY_NAME(VC_AUDIOPARAM_RECORD),
    BY_NAME(VC_AUDIOPARAM_SELFLOOP_SELECT),
    BY_NAME(VC_AUDIOPARAM_SPKR_SELECT),
    BY_NAME(VC_AUDIOPARAM_VOLUME),
});

#undef BY_NAME

uint32_t ReadNumber(HWND dialog, int id) {
    return ParseAnyBase(FieldText(dialog, id, kNumberField));
}

void EnableField(HWND dialog, int id, bool enable) {
    EnableWindow(GetDlgItem(dialog, id), enable);
}

void ShowAudioParameter(HWND dialog) {
    ShowField(dialog, IDC_RAW_PARAM_1, "%u", SelectedNumber(dialog, IDC_RAW_AUDIO_PARAM_LIST));
}

// The audio commands take their first parameter from the list of audio parameters.
void ChooseCommand(HWND dialog) {
    const uint32_t command = SelectedNumber(dialog, IDC_RAW_COMMAND_LIST);
    const bool audio =
        command == PELLAN_COMMAND_AUDIO_SET_PARAM || command == PELLAN_COMMAND_AUDIO_GET_PARAM;
    EnableField(dialog, IDC_RAW_COMMAND,
                SelectedRow(dialog, IDC_RAW_COMMAND_LIST).value_or(0) == 0);
    EnableField(dialog, IDC_RAW_PARAM_1, !audio);
    EnableField(dialog, IDC_RAW_AUDIO_PARAM_LIST, audio);
    if (audio) {
        ShowAudioParameter(dialog);
    } else {
        SetDlgItemTextA(dialog, IDC_RAW_PARAM_1, "");
    }
    ShowField(dialog, IDC_RAW_COMMAND, "%u", command);
}

// Shows the responses whatever the result: a command that fails leaves them at 0.
void Send(HWND dialog) {
    uint32_t response1 = 0;
    uint32_t response2 = 0;
    uint16_t response3 = 0;
    vdapi_SendCommand(ReadNumber(dialog, IDC_RAW_COMMAND), ReadNumber(dialog, IDC_RAW_PARAM_1),
                      ReadNumber(dialog, IDC_RAW_PARAM_2), ReadNumber(dialog, IDC_RAW_PARAM_3),
                      &response1, &response2, &response3);
    ShowField(dialog, IDC_RAW_RESPONSE_1, "0x%08X", response1);
    ShowField(dialog, IDC_RAW_RESPONSE_2, "0x%08X", response2);
    ShowField(dialog, IDC_RAW_RESPONSE_3, "0x%04X", static_cast<unsigned>(response3));
}

void Open(HWND dialog) {
    AddComboRows(dialog, IDC_RAW_COMMAND_LIST, kCommands);
    SetDlgItemTextA(dialog, IDC_RAW_COMMAND, "0");
    AddComboRows(dialog, IDC_RAW_AUDIO_PARAM_LIST, kAudioParameters);
    SendDlgItemMessageA(dialog, IDC_RAW_COMMAND_LIST, CB_SETCURSEL, 0, 0);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_RAW_COMMAND_LIST, ChooseCommand, CBN_SELCHANGE},
    {IDC_RAW_AUDIO_PARAM_LIST, ShowAudioParameter, CBN_SELCHANGE},
    {IDC_RAW_SEND, Send},
    {IDOK, EndWith<0>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenRawCommand(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_RAW_COMMAND, owner, {Open, kActions});
}
