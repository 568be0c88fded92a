// The audio codec's and the echo canceller's registers.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <numeric>
#include <thread>
#include <utility>

#include "tests/board/board_test.h"

using ArcofiRegisters = BoardTest;
using SaecRegisters = BoardTest;

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

TEST_F(SaecRegisters, MeasureLevelsThatMoveSlowly) {
    constexpr uint32_t kHighest = 0x7FFF;
    constexpr int kLargestStep = 1000;
    for (const uint32_t address : {0xFFDAu, 0xFFC0u, 0xFFC1u}) {
        const uint32_t first = ReadLevel(address);
        uint32_t later = first;
        for (int wait = 0; wait < 100 && later == first; ++wait) {
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
            later = ReadLevel(address);
        }
        EXPECT_NE(later, first) << std::hex << address;
        EXPECT_LT(std::abs(static_cast<int>(later) - static_cast<int>(first)), kLargestStep);
        EXPECT_GT(first, 0u);
        EXPECT_LE(first, kHighest);
    }
}
