// The board's I2C bus and the chips on it, each with registers of 8 bits.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>

#include "board/registers.h"
#include "driver/result_code.h"

namespace board {

// The addresses that answer, with the read bit, bit 0, cleared.
inline constexpr uint32_t kCameraAddress = 0x20;
inline constexpr uint32_t kVideoDecoder = 0x48;  // the analog camera's
inline constexpr uint32_t kSerialMemory = 0xA0;

class I2cBus {
  public:
    I2cBus();

    bool Answers(uint32_t address) const;

    // One register of a chip; the address's read bit makes no difference. A chip that is not there
    // answers VXD_HARDWARE_FAILURE, a register that is not there VXD_INVALID_PARAMETER, one that
    // cannot be written or read VXD_ILLEGAL_OPERATION. Writing the digital camera's master reset
    // puts that chip's registers back to what they are at power-on.
    ResultCode Read(uint32_t address, uint32_t number, uint32_t& value) const;
    ResultCode Write(uint32_t address, uint32_t number, uint32_t value);

    // A chip's registers as at power-on.
    void Reset(uint32_t address);

    // One transfer, an item per byte on the bus. The first is the chip's address. Without the read
    // bit the next byte names a register, where the chip then stays, and further ones go to that
    // register and those that follow it. With the read bit every further item is kReadByte and
    // takes a byte from the register where the chip stays and those that follow it; the last one
    // is the result, which may be null where nothing is read. Items in another order answer
    // VXD_INVALID_PARAMETER.
    static constexpr uint16_t kReadByte = 0x100;
    ResultCode Transfer(std::span<const uint16_t> items, uint32_t* result);

  private:
    struct Chip {
        Registers registers;
        uint32_t position = 0;  // the register where it stays
    };

    const Chip* Find(uint32_t address) const;
    Chip* Find(uint32_t address);
    ResultCode ReadOn(uint32_t address, size_t count, uint32_t* result) const;
    ResultCode WriteOn(uint32_t address, std::span<const uint16_t> bytes);

    std::map<uint32_t, Chip> chips_;
};

// The register that a camera's register id means: its address is in bits 0 to 7, and bits 8 to 11
// are one of the classes of access, 2, 3 and 6. A number that no register has where the id is not
// of that kind.
uint32_t CameraRegister(uint32_t id);

}  // namespace board
