#include "board/arcofi.h"

#include <algorithm>
#include <bit>

namespace board {
namespace {

constexpr uint32_t kFirstRegister = 0x210;
constexpr uint32_t kIdentification = 0x21D;
constexpr uint32_t kLastRegister = 0x21E;
constexpr uint32_t kVersion = 0x12;
constexpr uint32_t kTestLoopList = 0x91F;

constexpr bool IsRegister(uint32_t number) {
    constexpr uint32_t kFirstUnused = 0x21B;
    constexpr uint32_t kLastUnused = 0x21C;
    return number >= kFirstRegister && number <= kLastRegister &&
           (number < kFirstUnused || number > kLastUnused);
}

// The bits of a register that an id means, all of them where it names no field.
uint32_t MaskOf(uint32_t id) {
    return id > 0xFFFF ? (id >> 16) & 0xFF : 0xFF;
}

uint32_t RegisterOf(uint32_t id) {
    return id & 0xFFFF;
}

uint32_t CodeOfList(uint32_t id) {
    return id & 0xFF;
}

}  // namespace

size_t Arcofi::ByteCount(uint32_t id) {
    if (IsRegister(RegisterOf(id))) {
        return MaskOf(id) != 0 ? 1 : 0;
    }
    if (id == kTestLoopList) {
        return 3;
    }
    const uint32_t bytes = (id >> 8) - 1;
    return (id & 0xF0) == 0x20 && (bytes == 4 || bytes == kMostBytes) ? bytes : 0;
}

Registers Arcofi::RegistersAtPowerOn() {
    Registers registers{.mask = 0xFF, .readOnly = {kIdentification}, .onlyListed = true};
    for (uint32_t number = kFirstRegister; number <= kLastRegister; ++number) {
        if (IsRegister(number)) {
            registers.values[number] = number == kIdentification ? kVersion : 0;
        }
    }
    return registers;
}

ResultCode Arcofi::Read(uint32_t id, uint8_t* buffer) const {
    const size_t bytes = ByteCount(id);
    if (bytes == 0 || !buffer) {
        return VXD_INVALID_PARAMETER;
    }
    if (bytes == 1) {
        const uint32_t mask = MaskOf(id);
        uint32_t value = 0;
        const ResultCode code = registers_.Read(RegisterOf(id), value);
        *buffer = static_cast<uint8_t>((value & mask) >> std::countr_zero(mask));
        return code;
    }
    const auto found = lists_.find(CodeOfList(id));
    if (found == lists_.end()) {
        std::fill_n(buffer, bytes, uint8_t{0});
    } else {
        std::copy_n(found->second.begin(), bytes, buffer);
    }
    return VXD_SUCCESS;
}

ResultCode Arcofi::Write(uint32_t id, const uint8_t* buffer) {
    const size_t bytes = ByteCount(id);
    if (bytes == 0 || !buffer) {
        return VXD_INVALID_PARAMETER;
    }
    if (bytes == 1) {
        const uint32_t mask = MaskOf(id);
        return registers_.Change(RegisterOf(id), mask, uint32_t{*buffer} << std::countr_zero(mask));
    }
    std::copy_n(buffer, bytes, lists_[CodeOfList(id)].begin());
    return VXD_SUCCESS;
}

}  // namespace board
