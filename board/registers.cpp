#include "board/registers.h"

namespace board {

bool Registers::Has(uint32_t number) const {
    return number <= last && (!onlyListed || values.contains(number));
}

ResultCode Registers::Read(uint32_t number, uint32_t& value) const {
    if (!Has(number)) {
        return VXD_INVALID_PARAMETER;
    }
    if (writeOnly.contains(number)) {
        return VXD_ILLEGAL_OPERATION;
    }
    const auto found = values.find(number);
    value = found == values.end() ? 0 : found->second;
    return VXD_SUCCESS;
}

ResultCode Registers::Write(uint32_t number, uint32_t value) {
    if (!Has(number)) {
        return VXD_INVALID_PARAMETER;
    }
    if (readOnly.contains(number)) {
        return VXD_ILLEGAL_OPERATION;
    }
    values[number] = value & mask;
    return VXD_SUCCESS;
}

ResultCode Registers::Change(uint32_t number, uint32_t changed, uint32_t bits) {
    uint32_t value = 0;
    const ResultCode code = Read(number, value);
    return code == VXD_SUCCESS ? Write(number, (value & ~changed) | (bits & changed)) : code;
}

}  // namespace board
