#include "board/monitor.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>

#include "board/isac.h"
#include "board/state.h"
#include "driver/slot.h"

namespace board {
namespace {

constexpr UINT kBytesReceived = WM_USER + 1;
constexpr uint16_t kReceiveRequest = 0x0101;
constexpr uint16_t kTransmitBytes = 2;

struct Device {
    uint32_t number;
    Service service;
    uint8_t identification;
};

constexpr auto kDevices = std::to_array<Device>({
    {3, Service::kMonitorArcofi, 0x82},
    {12, Service::kMonitorSbcx, 0x41},
});

bool IsActive(const State& state, const Device& device) {
    return state.services.lifeCycles[device.service].IsActive();
}

}  // namespace

std::optional<Service> MonitorDevice(uint32_t device) {
    const auto found = std::ranges::find(kDevices, device, &Device::number);
    return found == kDevices.end() ? std::nullopt : std::optional(found->service);
}

ResultCode InitializeMonitorDevice(State& state, const MonitorInitializeBlock& block) {
    const std::optional<Service> service = MonitorDevice(block.device.value);
    if (!service ||
        !state.registrations.IsGiven(Client::kMonitor, block.device.value, block.registration)) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode result = TakeStep(state, *service, kInitialize);
    if (result == VXD_SUCCESS && block.initializeChip) {
        return InitializeIsacChip(state, {kFirstIsacChip});
    }
    return result;
}

ResultCode ReceiveMonitorBytes(State& state, const MonitorReceiveBlock& block) {
    if (block.request.value != kReceiveRequest || block.transmitCount.value != kTransmitBytes ||
        !block.transmitData || !block.receiveBuffer) {
        return VXD_INVALID_PARAMETER;
    }
    const auto device =
        std::ranges::find_if(kDevices, [&](const Device& each) { return IsActive(state, each); });
    if (device == kDevices.end()) {
        const bool anyUp = std::ranges::any_of(kDevices, [&](const Device& each) {
            return NeedUp(state, each.service) == VXD_SUCCESS;
        });
        return anyUp ? VXD_ILLEGAL_OPERATION : VXD_CONFIGURATION_NOT_SET;
    }
    std::array<uint8_t, kTransmitBytes + 1> answer;
    std::memcpy(answer.data(), FromSlot<const void>(block.transmitData), kTransmitBytes);
    answer[kTransmitBytes] = device->identification;
    auto* buffer = FromSlot<uint8_t>(block.receiveBuffer);
    state.schedule.After(state.monitor.answersAfter, [=](State& later) {
        if (!IsActive(later, *device)) {
            return;
        }
        // The utility may look at its buffer at any time.
        for (size_t i = 0; i < answer.size(); ++i) {
            std::atomic_ref(buffer[i]).store(answer[i], std::memory_order_relaxed);
        }
        ++later.monitor.answers;
        if (later.monitor.window) {
            later.outbox.messages.push_back({later.monitor.window, kBytesReceived});
        }
    });
    return VXD_SUCCESS;
}

}  // namespace board
