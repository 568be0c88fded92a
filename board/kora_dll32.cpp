// The exports of KORA_DLL32: each one a frame around what the simulated board does.
#include "driver/kora_dll32.h"

#include <algorithm>
#include <cstdint>

#include "board/call.h"
#include "board/operation.h"
#include "board/settings.h"
#include "board/state.h"
#include "driver/result_code.h"

using namespace board;

namespace {

// An operation that needs the library open and a board.
template <typename Work>
uint32_t OnBoard(Call call, Work work) {
    return Perform(std::move(call), kKoraOpen | kBoard, work);
}

// A registration value that the simulated board does not give yet: none.
uint32_t NoRegistration(Call call) {
    OnBoard(std::move(call), NotYetSimulated);
    return 0;
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
    return Perform({"KORA_DLL_Terminate"}, kKoraOpen, [](State& state) {
        state.koraOpen = false;
        return VXD_SUCCESS;
    });
}

uint32_t WINAPI KORA_DLL_GetIsacHandle(uint32_t device) {
    return NoRegistration({"KORA_DLL_GetIsacHandle", {device}});
}

uint32_t WINAPI KORA_DLL_GetMonitorHandle(uint32_t device, HWND window) {
    return NoRegistration({"KORA_DLL_GetMonitorHandle", {device, window}});
}

uint32_t WINAPI KORA_DLL_GetSeqHandle(uint32_t reserved) {
    return NoRegistration({"KORA_DLL_GetSeqHandle", {reserved}});
}

uint32_t WINAPI KORA_DLL_ChannelInitialize(uint32_t channel) {
    return OnBoard({"KORA_DLL_ChannelInitialize", {channel}}, NotYetSimulated);
}

uint32_t WINAPI KORA_DLL_ChannelTerminate(uint32_t channel) {
    return OnBoard({"KORA_DLL_ChannelTerminate", {channel}}, NotYetSimulated);
}

uint32_t WINAPI KORA_DLL_ChannelOpen(uint32_t channel, uint32_t rate) {
    return OnBoard({"KORA_DLL_ChannelOpen", {channel, rate}}, NotYetSimulated);
}

uint32_t WINAPI KORA_DLL_ChannelClose(uint32_t channel) {
    return OnBoard({"KORA_DLL_ChannelClose", {channel}}, NotYetSimulated);
}

uint32_t WINAPI KORA_DLL_ChannelSend(uint32_t channel, uint32_t length) {
    return OnBoard({"KORA_DLL_ChannelSend", {channel, length}}, NotYetSimulated);
}

uint32_t WINAPI KORA_DLL_ChannelRead(uint32_t channel) {
    return OnBoard({"KORA_DLL_ChannelRead", {channel}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_LSD_SetPacketized(uint32_t channel, uint32_t on) {
    return OnBoard({"vdapi_LSD_SetPacketized", {channel, on}}, NotYetSimulated);
}

uint32_t WINAPI KORA_DLL_StartVppStatistics(HWND window) {
    return OnBoard({"KORA_DLL_StartVppStatistics", {window}}, NotYetSimulated);
}

uint32_t WINAPI KORA_DLL_StopVppStatistics() {
    return OnBoard({"KORA_DLL_StopVppStatistics"}, NotYetSimulated);
}
