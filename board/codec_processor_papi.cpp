// PAPI's operations on the codec processor.
#include "driver/papi.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "board/codec_software.h"
#include "board/codec_variables.h"
#include "board/papi_operation.h"

using namespace board;

namespace {

// A transfer's size is a 16-bit quantity. Nothing is known of one in units that there are none of.
size_t VariableBytes(uint32_t unitSize, int32_t count) {
    constexpr uint64_t kMost = 0xFFFF;
    const bool isUnit = unitSize == 1 || unitSize == 2 || unitSize == 4;
    return isUnit && count > 0 ? static_cast<size_t>(std::min(kMost, uint64_t{unitSize} * count))
                               : 0;
}

CodecSoftware::File FileAt(const char* path) {
    return {path ? path : ""};
}

// An absent text is an empty one.
std::vector<std::string> SectionsAt(uint32_t count, const char* const* sections) {
    std::vector<std::string> names(sections ? count : 0);
    for (size_t i = 0; i < names.size(); ++i) {
        names[i] = sections[i] ? sections[i] : "";
    }
    return names;
}

// The texts as they stand in memory, each with the zero that ends it.
std::vector<uint8_t> BytesOf(const std::vector<std::string>& texts) {
    std::vector<uint8_t> bytes;
    for (const std::string& text : texts) {
        bytes.insert(bytes.end(), text.c_str(), text.c_str() + text.size() + 1);
    }
    return bytes;
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
    CodecSoftware wanted{FileAt(monitorPath), FileAt(codecPath), FileAt(vcpIniPath),
                         FileAt(vpCodePath), SectionsAt(sectionCount, sections)};
    return OnBoard({"vdapi_VcpCode_Download",
                    {monitorPath, codecPath, vcpIniPath, vpCodePath, sectionCount, sections},
                    BytesOf(wanted.sections)},
                   [&](State& state) { return LoadCodecSoftware(state, wanted); });
}
