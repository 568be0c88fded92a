// PAPI's operations on the video encoders and their colours. The constant first argument of those
// on the overlay and the pixel mask is 1.
#include "board/video_encoder.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "board/papi_operation.h"
#include "board/services.h"
#include "driver/papi.h"

using namespace board;

namespace {

constexpr uint32_t kConstant = 1;

template <typename Work>
uint32_t OnEncoder(Call call, Work work) {
    return OnService(Service::kBt85x, std::move(call),
                     [=](State& state) { return work(state, state.hardware.videoEncoder); });
}

template <size_t kEntries>
ResultCode ReadColour(const State& state, const std::array<uint32_t, kEntries>& table,
                      uint32_t entry, uint32_t* colour) {
    return ReadInto(state, colour, [&](uint32_t& read) -> ResultCode {
        if (entry >= kEntries) {
            return VXD_INVALID_PARAMETER;
        }
        read = table[entry];
        return VXD_SUCCESS;
    });
}

template <size_t kEntries>
ResultCode WriteColour(std::array<uint32_t, kEntries>& table, uint32_t entry, uint32_t colour) {
    if (entry >= kEntries) {
        return VXD_INVALID_PARAMETER;
    }
    table[entry] = colour & kColourBits;
    return VXD_SUCCESS;
}

// From the caller's table into the encoder's, and the other way round.
template <size_t kEntries>
ResultCode Download(std::array<uint32_t, kEntries>& table, const uint32_t* from) {
    if (!from) {
        return VXD_INVALID_PARAMETER;
    }
    std::ranges::transform(from, from + kEntries, table.begin(),
                           [](uint32_t colour) { return colour & kColourBits; });
    return VXD_SUCCESS;
}

template <size_t kEntries>
ResultCode Retrieve(const State& state, const std::array<uint32_t, kEntries>& table, uint32_t* to) {
    if (!to) {
        return VXD_INVALID_PARAMETER;
    }
    for (const uint32_t colour : table) {
        state.Give(*to++, colour);
    }
    return VXD_SUCCESS;
}

}  // namespace

uint32_t WINAPI vdapi_BT85X_Initialize() {
    return OnBoard({"vdapi_BT85X_Initialize"}, TakeStep<Service::kBt85x, kInitialize>);
}

uint32_t WINAPI vdapi_BT85X_Terminate() {
    return OnBoard({"vdapi_BT85X_Terminate"}, TakeStep<Service::kBt85x, kTerminate>);
}

uint32_t WINAPI vdapi_BT85X_Reset() {
    return OnBoard({"vdapi_BT85X_Reset"}, TakeStep<Service::kBt85x, kReset>);
}

uint32_t WINAPI vdapi_BT85X_SetDisplayType(uint32_t type) {
    return OnBoard({"vdapi_BT85X_SetDisplayType", {type}},
                   [=](State& state) { return SetDisplayType(state, type); });
}

uint32_t WINAPI vdapi_BT85X_WriteCtrlRegister(uint32_t encoder, uint32_t fieldId, uint32_t value) {
    return OnEncoder(
        {"vdapi_BT85X_WriteCtrlRegister", {encoder, fieldId, value}},
        [=](State&, VideoEncoder& encoders) { return encoders.Write(encoder, fieldId, value); });
}

uint32_t WINAPI vdapi_BT85X_ReadCtrlRegister(uint32_t encoder, uint32_t fieldId, uint32_t* value) {
    return OnEncoder({"vdapi_BT85X_ReadCtrlRegister", {encoder, fieldId, value}},
                     [=](State& state, VideoEncoder& encoders) {
                         return ReadInto(state, value, [&](uint32_t& read) {
                             return encoders.Read(encoder, fieldId, read);
                         });
                     });
}

uint32_t WINAPI vdapi_BT85X_WriteToPalette(uint32_t entry, uint32_t colour) {
    return OnEncoder({"vdapi_BT85X_WriteToPalette", {entry, colour}},
                     [=](State&, VideoEncoder& encoders) {
                         return WriteColour(encoders.palette, entry, colour);
                     });
}

uint32_t WINAPI vdapi_BT85X_ReadFromPalette(uint32_t entry, uint32_t* colour) {
    return OnEncoder({"vdapi_BT85X_ReadFromPalette", {entry, colour}},
                     [=](State& state, VideoEncoder& encoders) {
                         return ReadColour(state, encoders.palette, entry, colour);
                     });
}

uint32_t WINAPI vdapi_BT85X_DownloadPalette(const uint32_t* table) {
    return OnEncoder(
        {"vdapi_BT85X_DownloadPalette",
         {table},
         BytesAt(table, VideoEncoder::kPaletteEntries * sizeof *table)},
        [=](State&, VideoEncoder& encoders) { return Download(encoders.palette, table); });
}

uint32_t WINAPI vdapi_BT85X_RetrievePalette(uint32_t* table) {
    return OnEncoder({"vdapi_BT85X_RetrievePalette", {table}},
                     [=](State& state, VideoEncoder& encoders) {
                         return Retrieve(state, encoders.palette, table);
                     });
}

uint32_t WINAPI vdapi_BT85X_WriteToOverlay(uint32_t constant, uint32_t entry, uint32_t colour) {
    return OnEncoder({"vdapi_BT85X_WriteToOverlay", {constant, entry, colour}},
                     [=](State&, VideoEncoder& encoders) {
                         return constant == kConstant ? WriteColour(encoders.overlay, entry, colour)
                                                      : VXD_INVALID_PARAMETER;
                     });
}

uint32_t WINAPI vdapi_BT85X_ReadFromOverlay(uint32_t constant, uint32_t entry, uint32_t* colour) {
    return OnEncoder({"vdapi_BT85X_ReadFromOverlay", {constant, entry, colour}},
                     [=](State& state, VideoEncoder& encoders) {
                         return constant == kConstant
                                    ? ReadColour(state, encoders.overlay, entry, colour)
                                    : VXD_INVALID_PARAMETER;
                     });
}

uint32_t WINAPI vdapi_BT85X_DownloadOverlay(uint32_t constant, const uint32_t* table) {
    return OnEncoder({"vdapi_BT85X_DownloadOverlay",
                      {constant, table},
                      BytesAt(table, VideoEncoder::kOverlayEntries * sizeof *table)},
                     [=](State&, VideoEncoder& encoders) {
                         return constant == kConstant ? Download(encoders.overlay, table)
                                                      : VXD_INVALID_PARAMETER;
                     });
}

uint32_t WINAPI vdapi_BT85X_RetrieveOverlay(uint32_t constant, uint32_t* table) {
    return OnEncoder({"vdapi_BT85X_RetrieveOverlay", {constant, table}},
                     [=](State& state, VideoEncoder& encoders) {
                         return constant == kConstant ? Retrieve(state, encoders.overlay, table)
                                                      : VXD_INVALID_PARAMETER;
                     });
}

uint32_t WINAPI vdapi_BT85X_WritePixelMask(uint32_t constant, uint32_t mask) {
    return OnEncoder({"vdapi_BT85X_WritePixelMask", {constant, mask}},
                     [=](State&, VideoEncoder& encoders) -> ResultCode {
                         if (constant != kConstant) {
                             return VXD_INVALID_PARAMETER;
                         }
                         encoders.pixelMask = static_cast<uint8_t>(mask);
                         return VXD_SUCCESS;
                     });
}

uint32_t WINAPI vdapi_BT85X_ReadPixelMask(uint32_t constant, uint32_t* mask) {
    return OnEncoder({"vdapi_BT85X_ReadPixelMask", {constant, mask}},
                     [=](State& state, VideoEncoder& encoders) {
                         return ReadInto(state, mask, [&](uint32_t& read) -> ResultCode {
                             read = encoders.pixelMask;
                             return constant == kConstant ? VXD_SUCCESS : VXD_INVALID_PARAMETER;
                         });
                     });
}
