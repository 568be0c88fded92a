#include "board/codec_variables.h"

#include <chrono>
#include <cstring>
#include <optional>
#include <thread>
#include <utility>

#include "board/state.h"
#include "board/status_words.h"

namespace board {
namespace {

constexpr size_t kMostBytes = 0xFFFF;
constexpr uint32_t kTestedUnit = 4;
constexpr std::chrono::microseconds kTimeOfTest{20};

// What a transfer moves.
struct Extent {
    uint32_t unitSize;
    size_t count;
};

std::optional<Extent> ExtentOf(uint32_t unitSize, int32_t count) {
    const bool isUnit = unitSize == 1 || unitSize == 2 || unitSize == 4;
    if (!isUnit || count < 0 || static_cast<size_t>(count) > kMostBytes / unitSize) {
        return std::nullopt;
    }
    return Extent{unitSize, static_cast<size_t>(count)};
}

bool Has(const CodecVariable& variable, const Extent& extent) {
    return variable.unitSize == extent.unitSize && variable.elements.size() == extent.count;
}

// The variable of that name and extent; null where there is none.
CodecVariable* Find(State& state, const char* name, const Extent& extent) {
    CodecVariables& variables = state.hardware.codecVariables;
    const auto found = variables.find(name);
    return found != variables.end() && Has(found->second, extent) ? &found->second : nullptr;
}

// The same; made where nothing has the name yet.
CodecVariable* FindOrMake(State& state, const char* name, const Extent& extent) {
    state.hardware.codecVariables.try_emplace(
        name, CodecVariable{extent.unitSize, std::vector<uint32_t>(extent.count)});
    return Find(state, name, extent);
}

bool IsName(const char* name) {
    return name && *name != '\0';
}

ResultCode Read(State& state, const char* name, uint32_t unitSize, int32_t count, void* buffer) {
    const std::optional<Extent> extent = ExtentOf(unitSize, count);
    if (!IsName(name) || !buffer || !extent) {
        return VXD_INVALID_PARAMETER;
    }
    const CodecVariable* variable = Find(state, name, *extent);
    if (!variable) {
        return VXD_INVALID_PARAMETER;
    }
    auto* to = static_cast<uint8_t*>(buffer);
    for (const uint32_t element : variable->elements) {
        uint32_t given = 0;
        state.Give(given, element);
        std::memcpy(to, &given, unitSize);
        to += unitSize;
    }
    return VXD_SUCCESS;
}

ResultCode Write(State& state, const char* name, uint32_t unitSize, int32_t count,
                 const void* buffer) {
    const std::optional<Extent> extent = ExtentOf(unitSize, count);
    if (!IsName(name) || !buffer || !extent) {
        return VXD_INVALID_PARAMETER;
    }
    CodecVariable* variable = FindOrMake(state, name, *extent);
    if (!variable) {
        return VXD_INVALID_PARAMETER;
    }
    const auto* from = static_cast<const uint8_t*>(buffer);
    for (uint32_t& element : variable->elements) {
        element = 0;
        std::memcpy(&element, from, unitSize);
        from += unitSize;
    }
    return VXD_SUCCESS;
}

void EndTransfer(State& state, StatusWord word) {
    state.schedule.After(std::chrono::milliseconds(0),
                         [word](State& later) { ClearStatusWord<uint32_t>(later, word); });
}

}  // namespace

CodecVariables CodecVariablesAtPowerOn() {
    return {
        // Bonding: rates as 0 for 56K and 1 for 64K channels, with how many there are of them.
        {"vcx_bBondLocalBCR", {1, {1}}},
        {"vcx_oBondLocalRMult", {1, {6}}},
        {"vcx_bBondRemoteBCR", {1, {0}}},
        {"vcx_oBondRemoteRMult", {1, {4}}},
        {"vcx_bBondCommonBCR", {1, {0}}},
        {"vcx_oBondCommonRMult", {1, {4}}},
        {"vcx_bH320Caller", {1, {1}}},
        {"vcx_bBondOn", {1, {1}}},
        // Phone numbers, a digit in 4 bits from bits 27 to 24 on, 0xC where there is no more.
        {"vcx_adwBondLocalPhoneNum",
         {4, {0x05551234, 0x05551235, 0x0CCCCCCC, 0x0CCCCCCC, 0x0CCCCCCC}}},
        {"vcx_adwBondRemotePhoneNum",
         {4, {0x05559870, 0x00912CCC, 0x0912CCCC, 0x0CCCCCCC, 0x0CCCCCCC}}},
        // The streams: H.261 pictures of QCIF, G.711 by the A law both ways.
        {"vcx_bH263Enc", {4, {0}}},
        {"vcx_dwH261EncCif", {4, {0}}},
        {"vcx_dwVidProgramUpdateFlag", {4, {0}}},
        {"vcx_dwH323AudEncMode", {4, {2}}},
        {"vcx_dwH323AudDecMode", {4, {2}}},
    };
}

ResultCode ReadCodecVariable(State& state, const char* name, uint32_t unitSize, int32_t count,
                             void* buffer) {
    EndTransfer(state, StatusWord::kVcpGet);
    return Read(state, name, unitSize, count, buffer);
}

ResultCode WriteCodecVariable(State& state, const char* name, uint32_t unitSize, int32_t count,
                              const void* buffer) {
    EndTransfer(state, StatusWord::kVcpSet);
    return Write(state, name, unitSize, count, buffer);
}

ResultCode TestCodecVariable(State& state, const VcpxiTestBlock& block) {
    const auto* name = FromSlot<const char>(block.name);
    CodecVariable* variable = IsName(name) ? Find(state, name, {kTestedUnit, 1}) : nullptr;
    if (!variable) {
        return VXD_INVALID_PARAMETER;
    }
    const uint32_t times = block.repeatCount.value;
    if (times == 0) {
        return VXD_SUCCESS;
    }
    std::this_thread::sleep_for(kTimeOfTest * times);
    state.services.codecVariableTests += times;
    variable->elements[0] = block.value;
    uint32_t back = 0;
    state.Give(back, block.value);
    return back == block.value ? VXD_SUCCESS : VXD_HARDWARE_FAILURE;
}

}  // namespace board
