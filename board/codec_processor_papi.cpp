// PAPI's operations on the codec processor.
#include "driver/papi.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "board/codec_variables.h"
#include "board/papi_operation.h"

using namespace board;

namespace {

// A transfer's size is a 16-bit quantity.
size_t VariableBytes(uint32_t unitSize, int32_t count) {
    constexpr uint64_t kMost = 0xFFFF;
    return count <= 0 ? 0 : static_cast<size_t>(std::min(kMost, uint64_t{unitSize} * count));
}

}  // namespace

uint32_t WINAPI vdapi_VCPXI_VCPVariable_GetValue(const char* name, uint32_t unitSize, int32_t count,
                                                 void* buffer, uint32_t constant) {
    return OnBoard(
        {"vdapi_VCPXI_VCPVariable_GetValue", {name, unitSize, count, buffer, constant}},
        [=](State& state) { return ReadCodecVariable(state, name, unitSize, count, buffer); });
}

uint32_t WINAPI vdapi_VCPXI_VCPVariable_SetValue(const char* name, uint32_t unitSize, int32_t count,
                                                 const void* buffer, uint32_t constant) {
    return OnBoard(
        {"vdapi_VCPXI_VCPVariable_SetValue",
         {name, unitSize, count, buffer, constant},
         BytesAt(buffer, VariableBytes(unitSize, count))},
        [=](State& state) { return WriteCodecVariable(state, name, unitSize, count, buffer); });
}

uint32_t WINAPI vdapi_VcpCode_Download(const char* monitorPath, const char* codecPath,
                                       const char* vcpIniPath, const char* vpCodePath,
                                       uint32_t sectionCount, const char* const* sections) {
    return OnBoard({"vdapi_VcpCode_Download",
                    {monitorPath, codecPath, vcpIniPath, vpCodePath, sectionCount, sections}},
                   NotYetSimulated);
}
