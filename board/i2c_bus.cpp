#include "board/i2c_bus.h"

#include <algorithm>
#include <utility>

namespace board {
namespace {

constexpr uint32_t kReadBit = 0x01;
constexpr uint32_t kMasterReset = 0x0F;
constexpr uint32_t kNoRegister = 0xFFFFFFFF;

Registers CameraAtPowerOn() {
    constexpr uint32_t kVersion = 0x0E;
    return {.mask = 0xFF,
            .values = {{0x00, 0x00},
                       {0x01, 0x00},
                       {0x02, 0x80},
                       {0x03, 0x00},
                       {0x04, 0x80},
                       {0x05, 0x80},
                       {0x06, 0x80},
                       {0x07, 0x80},
                       {0x08, 0x80},
                       {kVersion, 0x21},
                       {kMasterReset, 0x00}},
            .readOnly = {kVersion},
            .writeOnly = {kMasterReset},
            .onlyListed = true};
}

Registers DecoderAtPowerOn() {
    constexpr uint32_t kVersion = 0x00;
    constexpr uint32_t kStatus = 0x1F;
    return {.last = kStatus,
            .mask = 0xFF,
            .values = {{kVersion, 0x01},
                       {0x02, 0x40},
                       {0x03, 0x03},
                       {0x04, 0x75},
                       {0x05, 0x8C},
                       {0x08, 0x06},
                       {0x0A, 0x8B},
                       {0x0B, 0x46},
                       {0x0C, 0x40},
                       {0x0E, 0xB0},
                       {0x11, 0xD9},
                       {0x12, 0x16},
                       {kStatus, 0x4F}},
            .readOnly = {kVersion, kStatus}};
}

Registers MemoryAtPowerOn() {
    return {.last = 0xFF, .mask = 0xFF};
}

uint32_t WithoutReadBit(uint32_t address) {
    return address & ~kReadBit;
}

bool IsByte(uint16_t item) {
    return item <= 0xFF;
}

bool IsRead(uint16_t item) {
    return item == I2cBus::kReadByte;
}

}  // namespace

I2cBus::I2cBus()
    : chips_{{kCameraAddress, {CameraAtPowerOn()}},
             {kVideoDecoder, {DecoderAtPowerOn()}},
             {kSerialMemory, {MemoryAtPowerOn()}}} {}

const I2cBus::Chip* I2cBus::Find(uint32_t address) const {
    const auto found = chips_.find(WithoutReadBit(address));
    return found == chips_.end() ? nullptr : &found->second;
}

I2cBus::Chip* I2cBus::Find(uint32_t address) {
    return const_cast<Chip*>(std::as_const(*this).Find(address));
}

bool I2cBus::Answers(uint32_t address) const {
    return Find(address) != nullptr;
}

ResultCode I2cBus::Read(uint32_t address, uint32_t number, uint32_t& value) const {
    const Chip* chip = Find(address);
    return chip ? chip->registers.Read(number, value) : VXD_HARDWARE_FAILURE;
}

ResultCode I2cBus::Write(uint32_t address, uint32_t number, uint32_t value) {
    Chip* chip = Find(address);
    if (!chip) {
        return VXD_HARDWARE_FAILURE;
    }
    if (WithoutReadBit(address) == kCameraAddress && number == kMasterReset) {
        Reset(address);
        return VXD_SUCCESS;
    }
    return chip->registers.Write(number, value);
}

void I2cBus::Reset(uint32_t address) {
    if (Chip* chip = Find(address)) {
        *chip = *I2cBus().Find(address);
    }
}

ResultCode I2cBus::Transfer(std::span<const uint16_t> items, uint32_t* result) {
    if (items.empty() || !IsByte(items[0])) {
        return VXD_INVALID_PARAMETER;
    }
    const std::span<const uint16_t> bytes = items.subspan(1);
    if (items[0] & kReadBit) {
        const bool fits = std::ranges::all_of(bytes, IsRead) && (result || bytes.empty());
        return fits ? ReadOn(items[0], bytes.size(), result) : VXD_INVALID_PARAMETER;
    }
    return std::ranges::all_of(bytes, IsByte) ? WriteOn(items[0], bytes) : VXD_INVALID_PARAMETER;
}

ResultCode I2cBus::ReadOn(uint32_t address, size_t count, uint32_t* result) const {
    const Chip* chip = Find(address);
    ResultCode code = chip ? VXD_SUCCESS : VXD_HARDWARE_FAILURE;
    for (uint32_t i = 0; i < count && code == VXD_SUCCESS; ++i) {
        code = Read(address, chip->position + i, *result);
    }
    return code;
}

ResultCode I2cBus::WriteOn(uint32_t address, std::span<const uint16_t> bytes) {
    Chip* chip = Find(address);
    if (!chip) {
        return VXD_HARDWARE_FAILURE;
    }
    if (bytes.empty()) {
        return VXD_SUCCESS;
    }
    chip->position = bytes[0];
    ResultCode code = VXD_SUCCESS;
    for (uint32_t i = 1; i < bytes.size() && code == VXD_SUCCESS; ++i) {
        code = Write(address, bytes[0] + i - 1, bytes[i]);
    }
    return code;
}

uint32_t CameraRegister(uint32_t id) {
    const uint32_t accessClass = id >> 8;
    return accessClass == 2 || accessClass == 3 || accessClass == 6 ? id & 0xFF : kNoRegister;
}

}  // namespace board
