#include "board/eeprom.h"

#include <chrono>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "board/state.h"
#include "board/status_words.h"
#include "platform/profile_keys.h"
#include "platform/win32.h"

namespace board {
namespace {

constexpr uint32_t kMostBytes = 8;
constexpr uint8_t kErased = 0xFF;

constexpr const char* kFile = "board.eeprom";
constexpr const char* kSection = "EEPROM";

// The key of the byte at an address.
std::string KeyOf(size_t address) {
    char key[8];
    wsprintfA(key, "0x%03X", static_cast<unsigned>(address));
    return key;
}

uint8_t LoadByte(size_t address) {
    char text[8];
    const DWORD length =
        GetPrivateProfileStringA(kSection, KeyOf(address).c_str(), "", text, sizeof text, kFile);
    return length != 0 ? static_cast<uint8_t>(std::strtoul(text, nullptr, 0)) : kErased;
}

std::string TextOf(uint8_t byte) {
    char text[8];
    wsprintfA(text, "0x%02X", static_cast<unsigned>(byte));
    return text;
}

bool HasRange(uint32_t address, uint32_t length) {
    constexpr uint32_t kSize = std::tuple_size_v<EepromContents>;
    return length >= 1 && length <= kMostBytes && address <= kSize - length;
}

// Starts a transfer: does `first` at once and, where that went well, `last` when `length` bytes'
// time has passed.
template <typename First, typename Last>
ResultCode Start(State& state, uint32_t length, First first, Last last) {
    Eeprom& eeprom = state.eeprom;
    const auto now = Schedule::Clock::now();
    if (now < eeprom.busyUntil) {
        return VXD_BUSY_WITH_PRIOR_REQUEST;
    }
    if (eeprom.behaviour.hangs) {
        return VXD_SUCCESS;
    }
    if (!first()) {
        return VXD_FILE_OPEN_FAILURE;
    }
    const std::chrono::milliseconds duration{uint64_t{eeprom.behaviour.millisecondsPerByte} *
                                             length};
    eeprom.busyUntil = now + duration;
    state.schedule.After(duration, [last = std::move(last)](State& later) {
        last();
        ClearStatusWord<uint16_t>(later, StatusWord::kEpromPending);
    });
    return VXD_SUCCESS;
}

}  // namespace

EepromContents LoadEeprom() {
    EepromContents contents;
    for (size_t address = 0; address < contents.size(); ++address) {
        contents[address] = LoadByte(address);
    }
    return contents;
}

bool StoreEeprom(uint32_t address, std::span<const uint8_t> bytes) {
    std::vector<ProfileKey> keys;
    for (const uint8_t byte : bytes) {
        keys.push_back({KeyOf(address++), TextOf(byte)});
    }
    return WriteProfileKeys(kSection, keys, kFile);
}

ResultCode StartEepromRead(State& state, uint32_t address, uint8_t* buffer, uint32_t length) {
    if (!buffer || !HasRange(address, length)) {
        return VXD_INVALID_PARAMETER;
    }
    return Start(
        state, length, [] { return true; },
        [=] {
            for (uint32_t i = 0; i < length; ++i) {
                buffer[i] = LoadByte(address + i);
            }
        });
}

ResultCode StartEepromWrite(State& state, uint32_t address, const uint8_t* buffer,
                            uint32_t length) {
    if (!buffer || !HasRange(address, length)) {
        return VXD_INVALID_PARAMETER;
    }
    return Start(
        state, length,
        [=] {
            return StoreEeprom(address, {buffer, length});
        },
        [] {});
}

}  // namespace board
