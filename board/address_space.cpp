#include "board/address_space.h"

#include <bit>

namespace board {

bool AddressSpace::Has(uint32_t address, uint32_t unitSize) const {
    return std::has_single_bit(unitSize) && unitSize <= widest_ && address <= last_ &&
           unitSize - 1 <= last_ - address;
}

ResultCode AddressSpace::Read(uint32_t address, uint32_t unitSize, uint32_t& value) const {
    if (!Has(address, unitSize)) {
        return VXD_INVALID_PARAMETER;
    }
    value = 0;
    for (uint32_t i = 0; i < unitSize; ++i) {
        const auto found = bytes_.find(address + i);
        value |= (found == bytes_.end() ? 0u : found->second) << (8 * i);
    }
    return VXD_SUCCESS;
}

ResultCode AddressSpace::Write(uint32_t address, uint32_t unitSize, uint32_t value) {
    if (!Has(address, unitSize)) {
        return VXD_INVALID_PARAMETER;
    }
    for (uint32_t i = 0; i < unitSize; ++i) {
        bytes_[address + i] = static_cast<uint8_t>(value >> (8 * i));
    }
    return VXD_SUCCESS;
}

}  // namespace board
