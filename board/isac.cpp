#include "board/isac.h"

#include <algorithm>
#include <array>

#include "board/state.h"

namespace board {
namespace {

constexpr uint32_t kReadable = 0x200;
constexpr uint32_t kWritable = 0x400;
constexpr uint32_t kCopied = 0x100;

constexpr std::array<uint32_t, kIsacChips> kChipCodes{kFirstIsacChip, 6, 9};

// The low bytes of board revisions that have more than one chip.
constexpr auto kRevisionsForTwo = std::to_array<uint8_t>({0x05, 0x07});
constexpr auto kRevisionsForThree = std::to_array<uint8_t>({0x1D, 0x2D, 0x3D, 0x6D, 0x7D, 0x8D});

struct Initial {
    uint32_t id;
    uint8_t value;
};

// What is not 0: the transmit FIFO is free (STAR), no indication is pending (CIR0), the chip's
// version (RBCH), the test and channel codes that lines idle with.
constexpr auto kRegisters = std::to_array<Initial>({
    {0x200, 0x00}, {0x220, 0x00}, {0x221, 0x48}, {0x622, 0x00}, {0x623, 0x00}, {0x224, 0x00},
    {0x225, 0x00}, {0x226, 0x00}, {0x227, 0x00}, {0x229, 0x00}, {0x22A, 0x20}, {0x62B, 0x00},
    {0x630, 0x00}, {0x231, 0x7C}, {0x232, 0xFF}, {0x233, 0xFF}, {0x234, 0xFF}, {0x635, 0x00},
    {0x636, 0x00}, {0x237, 0xFF}, {0x238, 0xFF}, {0x639, 0x00}, {0x23A, 0x00}, {0x23B, 0x00},
    {0x400, 0x00}, {0x520, 0x00}, {0x421, 0x00}, {0x524, 0x00}, {0x525, 0x00}, {0x526, 0x00},
    {0x527, 0x00}, {0x528, 0x00}, {0x529, 0x00}, {0x531, 0x3F}, {0x532, 0xFF}, {0x533, 0xFF},
    {0x534, 0xFF}, {0x537, 0x00}, {0x538, 0x00}, {0x53A, 0x00}, {0x53B, 0x00},
});

template <typename Revisions>
bool Lists(const Revisions& revisions, uint16_t boardRevision) {
    return std::ranges::find(revisions, boardRevision & 0xFF) != revisions.end();
}

// Runs `use` on the registers of the chip with that code.
template <typename Use>
ResultCode OnChip(State& state, uint32_t code, Use use) {
    const auto found = std::ranges::find(kChipCodes, code);
    if (found == kChipCodes.end()) {
        return VXD_INVALID_PARAMETER;
    }
    const auto chip = static_cast<uint32_t>(found - kChipCodes.begin());
    return chip < state.IsacChips() ? use(state.hardware.isacs[chip]) : VXD_HARDWARE_FAILURE;
}

uint32_t RegisterOf(uint32_t bit) {
    return bit & 0xFFFF;
}

uint32_t MaskOf(uint32_t bit) {
    return (bit >> 16) & 0xFF;
}

}  // namespace

uint32_t MostIsacChips(uint16_t boardRevision) {
    if (Lists(kRevisionsForThree, boardRevision)) {
        return 3;
    }
    return Lists(kRevisionsForTwo, boardRevision) ? 2 : 1;
}

Registers IsacAtPowerOn() {
    Registers registers{.mask = 0xFF, .onlyListed = true};
    for (const Initial& initial : kRegisters) {
        registers.values[initial.id] = initial.value;
        if (!(initial.id & kWritable)) {
            registers.readOnly.insert(initial.id);
        }
        if (!(initial.id & (kReadable | kCopied))) {
            registers.writeOnly.insert(initial.id);
        }
    }
    return registers;
}

ResultCode ReadIsacRegister(State& state, const IsacRegisterReadBlock& block) {
    return OnChip(state, block.chip.value, [&](const Registers& registers) {
        auto* output = FromSlot<uint8_t>(block.value);
        uint32_t value = 0;
        const ResultCode code =
            output ? registers.Read(block.registerId, value) : VXD_INVALID_PARAMETER;
        if (code == VXD_SUCCESS) {
            state.Give(*output, value);
        }
        return code;
    });
}

ResultCode WriteIsacRegister(State& state, const IsacRegisterWriteBlock& block) {
    return OnChip(state, block.chip.value, [&](Registers& registers) {
        return registers.Write(block.registerId, block.value.value);
    });
}

ResultCode SetIsacBit(State& state, const BitBlock& block) {
    return OnChip(state, block.chip.value, [&](Registers& registers) {
        return registers.Change(RegisterOf(block.bit), MaskOf(block.bit), 0xFF);
    });
}

ResultCode ClearIsacBit(State& state, const BitBlock& block) {
    return OnChip(state, block.chip.value, [&](Registers& registers) {
        return registers.Change(RegisterOf(block.bit), MaskOf(block.bit), 0);
    });
}

ResultCode TestIsacBit(State& state, const BitBlock& block) {
    return OnChip(state, block.chip.value, [&](const Registers& registers) {
        uint32_t value = 0;
        const ResultCode code = registers.Read(RegisterOf(block.bit), value);
        return code == VXD_SUCCESS ? state.Answer((value & MaskOf(block.bit)) != 0) : code;
    });
}

ResultCode InitializeIsacChip(State& state, const IsacChipBlock& block) {
    return OnChip(state, block.chip.value, [](Registers& registers) {
        registers = IsacAtPowerOn();
        return VXD_SUCCESS;
    });
}

}  // namespace board
