// The exports of KORA_DLL32: each one a frame around what the simulated board does.
#include "driver/kora_dll32.h"

#include <algorithm>
#include <cstdint>

#include "board/call.h"
#include "board/isac_device.h"
#include "board/monitor.h"
#include "board/operation.h"
#include "board/settings.h"
#include "board/state.h"
#include "board/user_data.h"
#include "board/vpp.h"
#include "driver/result_code.h"

using namespace board;

namespace {

// An operation that needs the library open and a board.
template <typename Work>
uint32_t OnBoard(Call call, Work work) {
    return Perform(std::move(call), kKoraOpen | kBoard, work);
}

// An operation that gives a registration value, 0 where there is none for what was asked.
template <typename Work>
uint32_t Give(Call call, Work work) {
    uint32_t value = 0;
    OnBoard(std::move(call), [&](State& state) {
        value = work(state);
        return value ? VXD_SUCCESS : VXD_INVALID_PARAMETER;
    });
    return value;
}

}  // namespace

uint32_t WINAPI KORA_DLL_Initialize() {
    return Perform({"KORA_DLL_Initialize"}, kNothing, [](State& state) {
        ReadSettings(state);
        return Open(state.koraOpen);
    });
}

uint32_t* WINAPI KORA_DLL_GetSharedTable() {
    Operation operation({"KORA_DLL_GetSharedTable"}, kNothing);
    return operation.TheState().sharedTable.data();
}

uint32_t WINAPI KORA_DLL_Attach() {
    return Perform({"KORA_DLL_Attach"}, kKoraOpen, [](State& state) {
        const bool filled =
            std::ranges::none_of(state.sharedTable, [](Slot slot) { return slot == 0; });
        return filled ? VXD_SUCCESS : VXD_CONFIGURATION_NOT_SET;
    });
}

uint32_t WINAPI KORA_DLL_Terminate() {
    return Close({"KORA_DLL_Terminate"}, kKoraOpen, [](State& state) {
        state.koraOpen = false;
        state.registrations = {};
        state.monitor.window = nullptr;
        state.services.vpp.window = nullptr;
    });
}

uint32_t WINAPI KORA_DLL_GetIsacHandle(uint32_t device) {
    return Give({"KORA_DLL_GetIsacHandle", {device}}, [=](State& state) {
        return IsacDevice(device) ? state.registrations.Give(Client::kIsac, device) : 0;
    });
}

uint32_t WINAPI KORA_DLL_GetMonitorHandle(uint32_t device, HWND window) {
    return Give({"KORA_DLL_GetMonitorHandle", {device, window}}, [=](State& state) -> uint32_t {
        if (!MonitorDevice(device)) {
            return 0;
        }
        state.monitor.window = window;
        return state.registrations.Give(Client::kMonitor, device);
    });
}

uint32_t WINAPI KORA_DLL_GetSeqHandle(uint32_t reserved) {
    return Give({"KORA_DLL_GetSeqHandle", {reserved}}, [=](State& state) {
        return reserved == 0 ? state.registrations.Give(Client::kSequencer, 0) : 0;
    });
}

uint32_t WINAPI KORA_DLL_ChannelInitialize(uint32_t channel) {
    return OnBoard({"KORA_DLL_ChannelInitialize", {channel}},
                   [=](State& state) { return InitializeUserData(state, channel); });
}

uint32_t WINAPI KORA_DLL_ChannelTerminate(uint32_t channel) {
    return OnBoard({"KORA_DLL_ChannelTerminate", {channel}},
                   [=](State& state) { return TerminateUserData(state, channel); });
}

uint32_t WINAPI KORA_DLL_ChannelOpen(uint32_t channel, uint32_t rate) {
    return OnBoard({"KORA_DLL_ChannelOpen", {channel, rate}},
                   [=](State& state) { return OpenUserData(state, channel, rate); });
}

uint32_t WINAPI KORA_DLL_ChannelClose(uint32_t channel) {
    return OnBoard({"KORA_DLL_ChannelClose", {channel}},
                   [=](State& state) { return CloseUserData(state, channel); });
}

uint32_t WINAPI KORA_DLL_ChannelSend(uint32_t channel, uint32_t length) {
    return OnBoard({"KORA_DLL_ChannelSend", {channel, length}},
                   [=](State& state) { return SendUserData(state, channel, length); });
}

uint32_t WINAPI KORA_DLL_ChannelRead(uint32_t channel) {
    return OnBoard({"KORA_DLL_ChannelRead", {channel}},
                   [=](State& state) { return ReadUserData(state, channel); });
}

uint32_t WINAPI vdapi_LSD_SetPacketized(uint32_t channel, uint32_t on) {
    return OnBoard({"vdapi_LSD_SetPacketized", {channel, on}},
                   [=](State& state) { return SetUserDataPacketized(state, channel, on); });
}

uint32_t WINAPI KORA_DLL_StartVppStatistics(HWND window) {
    return OnBoard({"KORA_DLL_StartVppStatistics", {window}},
                   [relay = VppRelay(), window](State& state) {
                       return StartVppStatistics(state, relay, window);
                   });
}

uint32_t WINAPI KORA_DLL_StopVppStatistics() {
    return OnBoard({"KORA_DLL_StopVppStatistics"}, StopVppStatistics);
}
