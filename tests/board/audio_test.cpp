// The audio codecs' and the echo cancellers' registers.
#include <algorithm>
#include <array>
#include <numeric>
#include <set>
#include <utility>
#include <vector>

#include "driver/firmware_command.h"
#include "tests/board/board_test.h"

using ArcofiRegisters = BoardTest;
using SaecRegisters = BoardTest;
using EchoCanceller = BoardTest;
using AkmRegisters = BoardTest;

namespace {

uint8_t ReadArcofi(uint32_t id) {
    uint8_t value = 0xA5;
    EXPECT_EQ(vdapi_ARCOFI_Read(id, &value), VXD_SUCCESS) << std::hex << id;
    return value;
}

ResultCode WriteArcofi(uint32_t id, uint8_t value) {
    return CodeOf(vdapi_ARCOFI_Write(id, &value));
}

uint32_t ReadSaec(uint32_t id) {
    uint32_t value = 0xA5A5A5A5;
    EXPECT_EQ(vdapi_SAEC_Read(id, &value), VXD_SUCCESS) << std::hex << id;
    return value;
}

ResultCode WriteSaec(uint32_t id, uint32_t value) {
    return CodeOf(vdapi_SAEC_Write(id, &value));
}

uint32_t ReadLevel(uint32_t address) {
    EXPECT_EQ(WriteSaec(0x2008B, address), VXD_SUCCESS);
    return ReadSaec(0x2008C);
}

}  // namespace

TEST_F(ArcofiRegisters, HoldFieldsThatChangeTheirOwnBitsOnly) {
    struct Case {
        uint32_t field;
        uint8_t written;
        uint8_t registerAfterwards;  // from 0x5A
        uint8_t readBack;
    };
    constexpr auto kCases = std::to_array<Case>({
        {0x06400210, 0, 0x1A, 0},      // one bit
        {0x00010210, 1, 0x5B, 1},      // the lowest
        {0x04F00215, 0xC, 0xCA, 0xC},  // a field at the top
        {0x05E00216, 0x7, 0xFA, 0x7},
        {0x03380217, 0xFF, 0x7A, 0x7},  // cut to the field
        {0x003F0219, 0x2A, 0x6A, 0x2A},
        {0x051E021E, 0x6, 0x4C, 0x6},  // the position beside the mask
    });
    for (const Case& tried : kCases) {
        const uint32_t whole = tried.field & 0xFFFF;
        EXPECT_EQ(WriteArcofi(whole, 0x5A), VXD_SUCCESS);
        EXPECT_EQ(WriteArcofi(tried.field, tried.written), VXD_SUCCESS);
        EXPECT_EQ(ReadArcofi(whole), tried.registerAfterwards) << std::hex << tried.field;
        EXPECT_EQ(ReadArcofi(tried.field), tried.readBack) << std::hex << tried.field;
    }
}

TEST_F(ArcofiRegisters, RefuseTheIdentificationAndWhatTheChipDoesNotHave) {
    const uint8_t identification = ReadArcofi(0x21D);
    EXPECT_NE(identification, 0);
    EXPECT_EQ(WriteArcofi(0x21D, static_cast<uint8_t>(~identification)), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(ReadArcofi(0x21D), identification);

    for (const uint32_t id : {0x20Fu, 0x21Bu, 0x21Cu, 0x21Fu, 0x06400220u, 0x07000210u, 0x20u,
                              0x620u, 0x930u, 0x91Eu, 0x10920u}) {
        uint8_t value[8]{0xA5};
        EXPECT_EQ(vdapi_ARCOFI_Read(id, value), VXD_INVALID_PARAMETER) << std::hex << id;
        EXPECT_EQ(value[0], 0xA5);
        EXPECT_EQ(vdapi_ARCOFI_Write(id, value), VXD_INVALID_PARAMETER) << std::hex << id;
    }
    EXPECT_EQ(vdapi_ARCOFI_Read(0x210, nullptr), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_ARCOFI_Write(0x920, nullptr), VXD_INVALID_PARAMETER);
}

TEST_F(ArcofiRegisters, KeepTheBytesOfEachListAndMoveNoMore) {
    using Buffer = std::array<uint8_t, 8>;
    constexpr std::array kLists{std::pair{0x920u, 8}, std::pair{0x523u, 4}, std::pair{0x92Fu, 8},
                                std::pair{0x91Fu, 3}};
    const auto read = [](uint32_t id) {
        Buffer buffer;
        buffer.fill(0xA5);
        EXPECT_EQ(vdapi_ARCOFI_Read(id, buffer.data()), VXD_SUCCESS) << std::hex << id;
        return buffer;
    };
    const auto numbersFrom = [](uint32_t first) {
        Buffer buffer;
        std::iota(buffer.begin(), buffer.end(), static_cast<uint8_t>(first));
        return buffer;
    };
    for (const auto& [id, bytes] : kLists) {
        EXPECT_EQ(std::ranges::count(read(id), 0), bytes) << std::hex << id;
        EXPECT_EQ(vdapi_ARCOFI_Write(id, numbersFrom(id).data()), VXD_SUCCESS);
    }
    for (const auto& [id, bytes] : kLists) {
        Buffer expected = numbersFrom(id);
        std::fill(expected.begin() + bytes, expected.end(), uint8_t{0xA5});
        EXPECT_EQ(read(id), expected) << std::hex << id;
    }
}

TEST_F(SaecRegisters, KeepWhatWasWrittenAsFarAsTheyAreWide) {
    for (const auto& [id, kept] : {std::pair{0x10000u, 0xEFu}, std::pair{0x10300u, 0xEFu},
                                   std::pair{0x20001u, 0xCDEFu}, std::pair{0x20078u, 0xCDEFu},
                                   std::pair{0x2008Bu, 0xCDEFu}, std::pair{0x200ADu, 0xCDEFu}}) {
        EXPECT_EQ(WriteSaec(id, 0x89ABCDEF), VXD_SUCCESS) << std::hex << id;
        EXPECT_EQ(ReadSaec(id), kept) << std::hex << id;
    }
    EXPECT_EQ(ReadSaec(0x10100), 0u);
    EXPECT_EQ(ReadSaec(0x20002), 0u);
}

TEST_F(SaecRegisters, RefuseStatusRevisionAndWhatTheChipDoesNotHave) {
    for (const uint32_t id : {0x30000u, 0x20000u}) {
        const uint32_t before = ReadSaec(id);
        EXPECT_EQ(WriteSaec(id, ~before), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(ReadSaec(id), before);
    }
    for (const uint32_t id : {0x0u, 0x10400u, 0x10001u, 0x200AEu, 0x20101u, 0x30001u}) {
        uint32_t value = 77;
        EXPECT_EQ(vdapi_SAEC_Read(id, &value), VXD_INVALID_PARAMETER) << std::hex << id;
        EXPECT_EQ(value, 77u);
        EXPECT_EQ(WriteSaec(id, 0), VXD_INVALID_PARAMETER) << std::hex << id;
    }
}

TEST_F(SaecRegisters, ReachTheInternalMemoryThroughAnAddress) {
    ReadLevel(0x1234);
    EXPECT_EQ(WriteSaec(0x2008C, 0x5566), VXD_SUCCESS);
    EXPECT_EQ(ReadLevel(0x1235), 0u);
    EXPECT_EQ(ReadLevel(0x1234), 0x5566u);
    ReadLevel(0xFFDA);
    EXPECT_EQ(WriteSaec(0x2008C, 1), VXD_ILLEGAL_OPERATION) << "a level is measured";
}

TEST_F(SaecRegisters, MeasureLevelsThatMoveAsThoseWhoSpeak) {
    constexpr uint32_t kStart = 0xFFFF0000;  // the clock runs over on the way
    constexpr uint32_t kMinute = 60000;
    constexpr uint32_t kStep = 20;
    constexpr uint32_t kLongPause = 200;
    const auto course = [](uint32_t address) {
        std::vector<uint32_t> levels;
        for (uint32_t time = 0; time < kMinute; time += kStep) {
            board::SetTime(kStart + time);
            levels.push_back(ReadLevel(address));
        }
        return levels;
    };
    std::set<std::vector<uint32_t>> courses;
    for (const uint32_t address : {0xFFDAu, 0xFFC0u, 0xFFC1u}) {
        const std::vector<uint32_t> levels = course(address);
        EXPECT_EQ(course(address), levels) << "the same minute again";
        const auto [lowest, highest] = std::ranges::minmax(levels);
        EXPECT_GT(lowest, 0u);
        EXPECT_LE(highest, 0x7FFFu);
        std::set<uint32_t> peaks;
        std::set<size_t> pauses;
        size_t quiet = 0;
        for (size_t at = 1; at + 1 < levels.size(); ++at) {
            if (levels[at - 1] < levels[at] && levels[at] >= levels[at + 1]) {
                peaks.insert(levels[at]);
            }
            if (levels[at] == lowest) {
                ++quiet;
            } else if (std::exchange(quiet, 0) * kStep >= kLongPause) {
                pauses.insert(at);
            }
        }
        // Some syllables a second, of all strengths, in a dozen groups or more.
        EXPECT_GT(peaks.size(), 60u);
        EXPECT_LT(peaks.size(), 300u);
        EXPECT_GE(pauses.size(), 10u);
        EXPECT_LE(pauses.size(), 30u);
        const auto silent = std::ranges::count(levels, lowest);
        EXPECT_GT(silent * kStep, kMinute / 6);
        EXPECT_LT(silent * kStep, kMinute / 2);
        courses.insert(levels);
    }
    EXPECT_EQ(courses.size(), 3u);
}

TEST_F(EchoCanceller, KeepsItsModeWhileItIsUp) {
    const auto mode = [] { return Send(PELLAN_COMMAND_AEC_GET_MODE).first; };
    EXPECT_EQ(vdapi_AEC_SetMode(0x8C), VXD_SUCCESS) << "up since power-on";
    EXPECT_EQ(mode(), 0x8Cu);
    EXPECT_EQ(vdapi_AEC_SetMode(0x100), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Send(PELLAN_COMMAND_AEC_SET_MODE, 0x148).code, VXD_INVALID_PARAMETER);
    EXPECT_EQ(mode(), 0x8Cu);
    EXPECT_EQ(vdapi_AEC_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(mode(), 0u);
    EXPECT_EQ(vdapi_AEC_Initialize(), VXD_OPERATION_ALREADY_DONE);
    Send(PELLAN_COMMAND_AEC_SET_MODE, 0x48);
    EXPECT_EQ(vdapi_AEC_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AEC_Terminate(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_AEC_SetMode(0x81), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(mode(), 0x48u) << "the latch keeps what it has";
}

TEST_F(AkmRegisters, AreTheFirmwaresOwnWithASwitchOnEachOfTheirBits) {
    const auto read = [](uint32_t number) {
        uint8_t value = 0xA5;
        EXPECT_EQ(vdapi_AKM_ReadRegister(number, &value), VXD_SUCCESS) << number;
        return value;
    };
    EXPECT_EQ(vdapi_AKM_WriteRegister(0x19, 0x1C3), VXD_SUCCESS);
    EXPECT_EQ(read(0x19), 0xC3) << "8 bits of it";
    EXPECT_EQ(Send(PELLAN_COMMAND_AKM_READ_REGISTER, 0x19).first, 0xC3u);
    Send(PELLAN_COMMAND_AKM_WRITE_REGISTER, 0x04, 0x3A);
    EXPECT_EQ(read(0x04), 0x3A);

    for (uint32_t number = 0x10; number <= 0x15; ++number) {
        vdapi_AKM_WriteRegister(number, 0);
    }
    // Register and value in the switches' order; together they set all the bits that are wired.
    constexpr uint32_t kWired[]{0x1010, 0x1018, 0x1019, 0x1120, 0x1130, 0x1138,
                                0x113C, 0x1210, 0x1218, 0x1310, 0x1318, 0x1410,
                                0x1418, 0x141C, 0x1510, 0x1518, 0x151C};
    for (uint32_t number = 0; number < std::size(kWired); ++number) {
        EXPECT_EQ(vdapi_AKM_SetSwitch(number, 2), VXD_SUCCESS);
        EXPECT_EQ(read(kWired[number] >> 8), kWired[number] & 0xFF) << number;
    }
    EXPECT_EQ(vdapi_AKM_SetSwitch(5, 0), VXD_SUCCESS);
    EXPECT_EQ(read(0x11), 0x34);

    uint8_t untouched = 0x77;
    EXPECT_EQ(vdapi_AKM_ReadRegister(0x1A, &untouched), VXD_INVALID_PARAMETER);
    EXPECT_EQ(untouched, 0x77);
    EXPECT_EQ(vdapi_AKM_ReadRegister(0, nullptr), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_AKM_WriteRegister(0x1A, 0), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_AKM_SetSwitch(17, 1), VXD_INVALID_PARAMETER);
}
