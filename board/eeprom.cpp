#include "board/eeprom.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <utility>
#include <vector>

#include "board/state.h"
#include "platform/win32.h"

namespace board {
namespace {

constexpr uint32_t kMostBytes = 8;
constexpr uint8_t kErased = 0xFF;
constexpr size_t kPendingFlagSlot = 0;  // in the table shared with the utility

std::filesystem::path FilePath() {
    char folder[MAX_PATH];
    GetWindowsDirectoryA(folder, sizeof folder);
    return std::filesystem::path(folder) / "board.eeprom";
}

bool HasRange(uint32_t address, uint32_t length) {
    constexpr uint32_t kSize = std::tuple_size_v<EepromContents>;
    return length >= 1 && length <= kMostBytes && address <= kSize - length;
}

// The utility watches the flag from its own thread, without the board's lock.
void ClearPendingFlag(const State& state) {
    if (auto* flag = FromSlot<uint16_t>(state.sharedTable[kPendingFlagSlot])) {
        std::atomic_ref(*flag).store(0);
    }
}

// Has `transfer` made when `length` bytes' time has passed.
template <typename Transfer>
ResultCode Start(State& state, uint32_t length, Transfer transfer) {
    Eeprom& eeprom = state.eeprom;
    const auto now = Schedule::Clock::now();
    if (now < eeprom.busyUntil) {
        return VXD_BUSY_WITH_PRIOR_REQUEST;
    }
    if (eeprom.behaviour.hangs) {
        return VXD_SUCCESS;
    }
    const std::chrono::milliseconds duration{uint64_t{eeprom.behaviour.millisecondsPerByte} *
                                             length};
    eeprom.busyUntil = now + duration;
    state.schedule.After(duration, [transfer = std::move(transfer)](State& later) {
        transfer();
        ClearPendingFlag(later);
    });
    return VXD_SUCCESS;
}

}  // namespace

EepromContents LoadEeprom() {
    EepromContents contents;
    contents.fill(kErased);
    std::array<char, std::tuple_size_v<EepromContents>> bytes;
    std::ifstream file(FilePath(), std::ios::binary);
    file.read(bytes.data(), bytes.size());
    std::copy_n(bytes.begin(), file.gcount(), contents.begin());
    return contents;
}

void StoreEeprom(const EepromContents& contents) {
    const std::filesystem::path path = FilePath();
    std::error_code ignored;
    std::filesystem::create_directories(path.parent_path(), ignored);
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    std::ranges::for_each(contents, [&](uint8_t byte) { file.put(static_cast<char>(byte)); });
}

ResultCode StartEepromRead(State& state, uint32_t address, uint8_t* buffer, uint32_t length) {
    if (!buffer || !HasRange(address, length)) {
        return VXD_INVALID_PARAMETER;
    }
    return Start(state, length, [=] {
        const EepromContents contents = LoadEeprom();
        std::copy_n(contents.begin() + address, length, buffer);
    });
}

ResultCode StartEepromWrite(State& state, uint32_t address, const uint8_t* buffer,
                            uint32_t length) {
    if (!buffer || !HasRange(address, length)) {
        return VXD_INVALID_PARAMETER;
    }
    const std::vector<uint8_t> bytes(buffer, buffer + length);
    return Start(state, length, [=] {
        EepromContents contents = LoadEeprom();
        std::ranges::copy(bytes, contents.begin() + address);
        StoreEeprom(contents);
    });
}

}  // namespace board
