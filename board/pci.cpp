#include "board/pci.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <vector>

#include "board/state.h"
#include "driver/slot.h"

namespace board {
namespace {

constexpr uint32_t kVendor = 0x1061;
constexpr uint32_t kBridgeId = 0x0001;
constexpr uint32_t kBoardId = 0x0002;
constexpr uint32_t kBridgeClass = 0x060400;
constexpr uint32_t kBoardClass = 0x000000;

constexpr uint8_t kHardwareMechanism = 1;
constexpr uint16_t kInterfaceVersion = 0x0210;
constexpr uint8_t kLastBus = 1;

// The header at the start of a device's configuration space, by registers of four bytes; the rest
// of the space holds zeros.
using Header = std::array<uint32_t, 16>;

struct Device {
    uint8_t bus;
    uint8_t deviceAndFunction;
    Header header;
};

uint32_t ClassOf(const Device& device) {
    return device.header[2] >> 8;
}

std::array<Device, 2> Devices(const State& state) {
    const uint32_t revision = state.revisions.board & 0xFF;
    Header bridge{kBridgeId << 16 | kVendor, 0x02800007, kBridgeClass << 8 | revision, 0x00012008};
    bridge[6] = 0x20010100;  // latency; its buses: 0 in front, 1 behind
    Header board{kBoardId << 16 | kVendor, 0x02800007, kBoardClass << 8 | revision, 0x00002008};
    board[4] = 0xE1000000;                 // its memory
    board[5] = 0x00006101;                 // its I/O ports
    board[11] = kBoardId << 16 | kVendor;  // as a subsystem
    board[15] = 0x0000010B;                // interrupt pin A, line 11
    return {{{0, 0x00, bridge}, {1, 9 << 3, board}}};
}

template <typename Value>
void Put(const State& state, Slot output, Value value) {
    state.Give(value, value);
    std::memcpy(FromSlot<void>(output), &value, sizeof value);
}

// Tells where the device is that is number `index` of those that `matches`.
template <typename Matches>
ResultCode Find(const State& state, uint32_t index, Slot bus, Slot deviceAndFunction,
                Matches matches) {
    if (!bus || !deviceAndFunction) {
        return VXD_INVALID_PARAMETER;
    }
    for (const Device& device : Devices(state)) {
        if (matches(device) && index-- == 0) {
            Put(state, bus, device.bus);
            Put(state, deviceAndFunction, device.deviceAndFunction);
            return VXD_SUCCESS;
        }
    }
    return VXD_ERR_BIOS;
}

// 0 for an access that there is not.
uint32_t BytesOf(uint8_t access) {
    switch (access) {
        case PCI_READ_CONFIG_BYTE:
            return 1;
        case PCI_READ_CONFIG_WORD:
            return 2;
        case PCI_READ_CONFIG_DWORD:
            return 4;
    }
    return 0;
}

}  // namespace

ResultCode FindPciBios(State& state, const PciBiosPresentBlock& block) {
    if (!block.hardwareMechanism || !block.interfaceVersion || !block.lastBus) {
        return VXD_INVALID_PARAMETER;
    }
    Put(state, block.hardwareMechanism, kHardwareMechanism);
    Put(state, block.interfaceVersion, kInterfaceVersion);
    Put(state, block.lastBus, kLastBus);
    return VXD_SUCCESS;
}

ResultCode FindPciDevice(State& state, const PciFindDeviceBlock& block) {
    const uint32_t wanted = uint32_t{block.deviceId.value} << 16 | block.vendorId.value;
    return Find(state, block.index.value, block.bus, block.deviceAndFunction,
                [=](const Device& device) { return device.header[0] == wanted; });
}

ResultCode FindPciClass(State& state, const PciFindClassCodeBlock& block) {
    return Find(state, block.index.value, block.bus, block.deviceAndFunction,
                [&](const Device& device) { return ClassOf(device) == block.classCode; });
}

ResultCode ReadPciConfig(State& state, PciReadConfigBlock& block) {
    if (state.pciAccess != 0) {
        block.access.value = state.pciAccess;
    }
    const uint32_t bytes = BytesOf(block.access.value);
    const uint32_t first = block.registerNumber.value;
    if (!block.result || bytes == 0 || first % bytes != 0) {
        return VXD_INVALID_PARAMETER;
    }
    const auto devices = Devices(state);
    const auto device = std::ranges::find_if(devices, [&](const Device& each) {
        return each.bus == block.bus.value &&
               each.deviceAndFunction == block.deviceAndFunction.value;
    });
    uint32_t value = 0xFFFFFFFF;
    if (device != devices.end()) {
        value = first / 4 < device->header.size() ? device->header[first / 4] : 0;
        value >>= 8 * (first % 4);
    }
    Put(state, block.result, bytes == 4 ? value : value & ((1u << 8 * bytes) - 1));
    return VXD_SUCCESS;
}

ResultCode SimulatePciInterrupt(State& state) {
    if (NeedUp(state, Service::kVpic) != VXD_SUCCESS) {
        return VXD_IRQ_ERROR;
    }
    ++state.services.boardInterrupts;
    return VXD_SUCCESS;
}

}  // namespace board
