#include "commands/monitor_receive.h"

#include <algorithm>
#include <atomic>

#include "driver/debug_command.h"
#include "driver/low_memory.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "services/diagnostics.h"

namespace {

constexpr uint16_t kReceiveRequest = 0x0101;
constexpr uint16_t kTransmitCount = 2;

constexpr uint8_t kNothingReceived = 0xFF;

// The driver uses both after the command has returned, and writes what it receives from a context
// of its own. They never move.
struct Buffers {
    uint32_t transmitWord = 0xA0;
    std::array<std::atomic<uint8_t>, 3> received{kNothingReceived, kNothingReceived,
                                                 kNothingReceived};
};
static_assert(sizeof(Buffers::received) == 3 && std::atomic<uint8_t>::is_always_lock_free);

Buffers& TheBuffers() {
    static Buffers& buffers = LowForRun<Buffers>();
    return buffers;
}

}  // namespace

std::array<uint8_t, 3> MonitorRxBytes() {
    const auto& received = TheBuffers().received;
    return {received[0], received[1], received[2]};
}

void ReceiveMonitorBytes(HWND window) {
    Buffers& buffers = TheBuffers();
    std::ranges::fill(buffers.received, kNothingReceived);
    MonitorReceiveBlock block{kReceiveRequest, ToSlot(&buffers.transmitWord), kTransmitCount,
                              ToSlot(buffers.received.data())};
    ReportFailure(window, CodeOf(vdapi_Debug(TALVERO_DBG_MON_TR_RCV, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_MON_TR_RCV");
}

void TraceMonitorBytes() {
    const std::array<uint8_t, 3> bytes = MonitorRxBytes();
    DbgMsg(1, "TALVERO_DBG_MON_TR_RCV: [0x%02X] [0x%02X] [0x%02X]\n", bytes[0], bytes[1], bytes[2]);
}
