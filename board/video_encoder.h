// The video encoders, BT855 (0) and BT858 (1), with the colours that they share.
//
// An encoder has registers of 8 bits, 0x0 to 0xF without 0x5, and fields in them. The id of a
// register is its number. The id of a field has bit 15 set; bits 0 to 7 are the register's number,
// bits 8 to 11 the position of the field's lowest bit, bits 12 to 14 its width. Bit 0 of register 4
// is the genlock status, which cannot be written; writing 1 to bit 2 of register 2 resets the
// encoder's registers, and the bit with them.
//
// A colour is 0x00BBGGRR. The palette, the overlay, the pixel mask and the mode are there once.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "board/registers.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

struct State;

class VideoEncoder {
  public:
    static constexpr size_t kEncoders = 2;
    static constexpr size_t kPaletteEntries = 256;
    static constexpr size_t kOverlayEntries = 16;

    VideoEncoder();

    // An encoder, a register or a field that there is not answers VXD_INVALID_PARAMETER, writing
    // the status alone VXD_ILLEGAL_OPERATION. Of a value as many bits count as the field has.
    ResultCode Read(uint32_t encoder, uint32_t fieldId, uint32_t& value) const;
    ResultCode Write(uint32_t encoder, uint32_t fieldId, uint32_t value);

    std::array<uint32_t, kPaletteEntries> palette{};
    std::array<uint32_t, kOverlayEntries> overlay;
    uint8_t pixelMask = 0xFF;
    uint8_t mode = 0;                        // what the debug channel calls the state
    std::array<uint8_t, kEncoders> ports{};  // what was last written to each encoder's port

  private:
    std::array<Registers, kEncoders> registers_;
};

inline constexpr uint32_t kColourBits = 0x00FFFFFF;

// The debug channel's commands. The encoders must be up, else VXD_CONFIGURATION_NOT_SET; an encoder
// or an address that is not there answers VXD_INVALID_PARAMETER.
ResultCode WriteEncoderState(State& state, const Bt85xStateWriteBlock& block);
ResultCode ReadEncoderState(State& state, const Bt85xStateReadBlock& block);
ResultCode WriteEncoderPort(State& state, const Bt85xPortWriteBlock& block);
ResultCode ReadEncoderPort(State& state, const Bt85xPortReadBlock& block);

}  // namespace board
