#include "app/monitor_receive.h"

#include "app/services/diagnostics.h"
#include "driver/low_memory.h"

std::array<uint8_t, 3>& MonitorRxBytes() {
    static std::array<uint8_t, 3>& bytes = []() -> std::array<uint8_t, 3>& {
        auto& fresh = LowForRun<std::array<uint8_t, 3>>();
        fresh.fill(0xFF);
        return fresh;
    }();
    return bytes;
}

void TraceMonitorBytes() {
    const std::array<uint8_t, 3>& bytes = MonitorRxBytes();
    DbgMsg(1, "TALVERO_DBG_MON_TR_RCV: [0x%02X] [0x%02X] [0x%02X]\n", bytes[0], bytes[1], bytes[2]);
}
