#include "board/settings.h"

#include <cstdlib>
#include <string_view>

#include "platform/win32.h"

namespace board {
namespace {

constexpr const char* kFile = "board.ini";

uint32_t ReadNumber(const char* section, const char* key, uint32_t defaultValue) {
    char text[32];
    if (GetPrivateProfileStringA(section, key, "", text, sizeof text, kFile) == 0) {
        return defaultValue;
    }
    const std::string_view digits = text;
    const bool hexadecimal = digits.starts_with("0x") || digits.starts_with("0X");
    return static_cast<uint32_t>(std::strtoul(text, nullptr, hexadecimal ? 16 : 10));
}

}  // namespace

void ReadSettings(State& state) {
    Revisions& revisions = state.revisions;
    state.present = ReadNumber("Board", "Present", state.present) != 0;
    revisions.board = static_cast<uint16_t>(ReadNumber("Board", "Revision", revisions.board));
    revisions.vpic = static_cast<uint8_t>(ReadNumber("Board", "VpicRevision", revisions.vpic));
    revisions.driver =
        static_cast<uint16_t>(ReadNumber("Board", "DriverRevision", revisions.driver));
    revisions.jade = static_cast<uint8_t>(ReadNumber("Board", "JadeRevision", revisions.jade));
    state.isacChipsFitted = ReadNumber("Board", "IsacChips", state.isacChipsFitted);
    EepromBehaviour& eeprom = state.eeprom.behaviour;
    eeprom.millisecondsPerByte =
        ReadNumber("Board", "EepromMillisecondsPerByte", eeprom.millisecondsPerByte);
    eeprom.hangs = ReadNumber("Board", "EepromHangs", eeprom.hangs) != 0;
    state.monitor.answersAfter = std::chrono::milliseconds(ReadNumber(
        "Board", "MonitorMilliseconds", static_cast<uint32_t>(state.monitor.answersAfter.count())));
    state.traceCalls = ReadNumber("Trace", "Calls", state.traceCalls) != 0;
}

void Disturbances::Refresh() {
    char folder[4096];  // a longer path opens no file
    if (GetWindowsDirectoryA(folder, sizeof folder) >= sizeof folder) {
        folder[0] = '\0';
    }
    if (!file_.IsUnchanged(folder, kFile)) {
        known_.clear();
    }
}

const Disturbance& Disturbances::Find(const std::string& name) {
    const auto [found, isNew] = known_.try_emplace(name);
    Disturbance& disturbance = found->second;
    if (isNew && file_.Exists()) {
        disturbance.failure =
            static_cast<ResultCode>(ReadNumber("Fail", name.c_str(), VXD_SUCCESS));
        disturbance.stuckBits = ReadNumber("StuckBits", name.c_str(), 0);
        disturbance.delay = std::chrono::milliseconds(ReadNumber("Delay", name.c_str(), 0));
    }
    return disturbance;
}

}  // namespace board
