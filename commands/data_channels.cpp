#include "commands/data_channels.h"

#include "codec/user_data_length.h"
#include "codec/user_data_rate.h"
#include "driver/kora_dll32.h"
#include "res/resource.h"
#include "services/application.h"
#include "services/diagnostics.h"

namespace {

constexpr UINT kNoItem = static_cast<UINT>(-1);

bool packetized = false;

}  // namespace

void InitializeChannel(HWND /*window*/, uint32_t channel) {
    KORA_DLL_ChannelInitialize(channel);
}

void TerminateChannel(HWND /*window*/, uint32_t channel) {
    KORA_DLL_ChannelTerminate(channel);
}

void CloseChannel(HWND /*window*/, uint32_t channel) {
    KORA_DLL_ChannelClose(channel);
}

void ReadChannel(HWND /*window*/, uint32_t channel) {
    KORA_DLL_ChannelRead(channel);
}

void OpenChannel(HWND window, uint32_t channel) {
    if (OpenUserDataRate(AppInstance, window, channel) == 1) {
        KORA_DLL_ChannelOpen(channel, SelectedUserDataRate());
    }
}

void SendOnChannel(HWND window, uint32_t channel) {
    if (OpenUserDataLength(AppInstance, window) == 1) {
        KORA_DLL_ChannelSend(channel, SelectedUserDataLength());
    }
}

void TogglePacketized(HWND window) {
    const UINT state = GetMenuState(GetMenu(window), IDM_LSD_PACKETIZED, MF_BYCOMMAND);
    const bool isShown = state != kNoItem;
    const bool turnOn = isShown && (state & MF_CHECKED) == 0;
    const ResultCode code = CodeOf(vdapi_LSD_SetPacketized(USER_DATA_LSD, turnOn));
    if (isShown && code == VXD_SUCCESS) {
        packetized = turnOn;
        MarkPacketized(window);
    }
    ReportFailure(window, code, "vdapi_LSD_SetPacketized");
}

void MarkPacketized(HWND window) {
    CheckMenuItem(GetMenu(window), IDM_LSD_PACKETIZED, packetized ? MF_CHECKED : MF_UNCHECKED);
}
