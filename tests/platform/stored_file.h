// The two kinds of files that programs store, by what a program does with them.
#pragma once

#include <ostream>

#include "board/control.h"
#include "driver/kora_dll32.h"
#include "driver/papi.h"
#include "driver/result_code.h"
#include "driver/shared_words.h"
#include "platform/win32.h"
#include "tests/kit/test.h"

// One byte in the file, 0 where none was stored.
struct StoredFile {
    const char* name;
    bool (*store)(std::uint8_t byte);
    std::uint8_t (*load)();
};

inline std::ostream& operator<<(std::ostream& stream, const StoredFile& file) {
    return stream << file.name;
}

// The board's two libraries, open, with an EEPROM that takes no time.
inline void OpenBoard() {
    vdapi_Initialize(0);
    KORA_DLL_Initialize();
    std::ranges::copy(SharedWordSlots(), KORA_DLL_GetSharedTable());
    board::SetEepromBehaviour({.millisecondsPerByte = 0});
}

// Makes a transfer and waits for its end; gives its result code.
template <typename Transfer>
ResultCode Complete(Transfer transfer) {
    const std::atomic_ref flag(const_cast<std::uint16_t&>(GetSharedWords().EpromPendingFlag));
    flag.store(1);
    const ResultCode code = CodeOf(transfer());
    while (code == VXD_SUCCESS && flag.load() != 0)
        std::this_thread::yield();
    return code;
}

inline constexpr std::uint32_t kEepromConstant = 30;

inline constexpr StoredFile kProfile = {
    "kora_tst.ini",
    [](std::uint8_t byte) {
        const std::string text = std::to_string(byte);
        return WritePrivateProfileStringA("s", "k", text.c_str(), "kora_tst.ini") != 0;
    },
    [] { return static_cast<std::uint8_t>(GetPrivateProfileIntA("s", "k", 0, "kora_tst.ini")); }};

inline constexpr StoredFile kEeprom = {
    "board.eeprom",
    [](std::uint8_t byte) {
        const std::uint8_t stored = static_cast<std::uint8_t>(~byte);
        return Complete([&] { return vdapi_EPROM_Write(7, &stored, 1, kEepromConstant); }) ==
               VXD_SUCCESS;
    },
    [] {
        std::uint8_t byte = 0;
        Complete([&] { return vdapi_EPROM_Read(7, &byte, 1, kEepromConstant); });
        return static_cast<std::uint8_t>(~byte);
    }};
