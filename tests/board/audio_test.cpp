// The audio codecs' and the echo cancellers' registers.
#include "driver/firmware_command.h"
#include "tests/board/board_test.h"

using ArcofiRegisters = BoardTest;
using SaecRegisters = BoardTest;
using EchoCanceller = BoardTest;
using AkmRegisters = BoardTest;

namespace {

ResultCode WriteArcofi(uint32_t id, uint8_t value) {
    return CodeOf(vdapi_ARCOFI_Write(id, &value));
}

ResultCode WriteSaec(uint32_t id, uint32_t value) {
    return CodeOf(vdapi_SAEC_Write(id, &value));
}

uint32_t ReadLevel(uint32_t address) {
    EXPECT_EQ(WriteSaec(0x2008B, address), VXD_SUCCESS);
    return Read(vdapi_SAEC_Read, 0x2008C);
}

}  // namespace

TEST_F(ArcofiRegisters, HoldFieldsThatChangeTheirOwnBitsOnly) {
    // Of a field: its id, what is written, its register then (from 0x5A), what is read back.
    for (const auto& [field, written, whole, readBack] : std::to_array<std::array<uint32_t, 4>>({
             {0x06400210, 0x00, 0x1A, 0x0},
             {0x00010210, 0x01, 0x5B, 0x1},
             {0x04F00215, 0x0C, 0xCA, 0xC},
             {0x03380217, 0xFF, 0x7A, 0x7},  // cut to the field
             {0x051E021E, 0x06, 0x4C, 0x6},  // the position beside the mask
         })) {
        const uint32_t id = field & 0xFFFF;
        EXPECT_EQ(WriteArcofi(id, 0x5A), VXD_SUCCESS);
        EXPECT_EQ(WriteArcofi(field, static_cast<uint8_t>(written)), VXD_SUCCESS);
        EXPECT_EQ(Read<uint8_t>(vdapi_ARCOFI_Read, id), whole) << std::hex << field;
        EXPECT_EQ(Read<uint8_t>(vdapi_ARCOFI_Read, field), readBack) << std::hex << field;
    }
    const uint8_t identification = Read<uint8_t>(vdapi_ARCOFI_Read, 0x21D);
    EXPECT_EQ(WriteArcofi(0x21D, 0xFF), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(Read<uint8_t>(vdapi_ARCOFI_Read, 0x21D), identification);
    EXPECT_EQ(WriteArcofi(0x21B, 0), VXD_INVALID_PARAMETER);
}

TEST_F(ArcofiRegisters, KeepTheBytesOfEachListAndMoveNoMore) {
    using Buffer = std::array<uint8_t, 8>;
    constexpr std::array kLists{std::pair{0x920u, 8}, std::pair{0x523u, 4}, std::pair{0x92Fu, 8},
                                std::pair{0x91Fu, 3}};
    const auto written = [](uint32_t id) {
        return Buffer{static_cast<uint8_t>(id), 1, 2, 3, 4, 5, 6, 7};
    };
    for (const auto& [id, bytes] : kLists) {
        EXPECT_EQ(vdapi_ARCOFI_Write(id, written(id).data()), VXD_SUCCESS);
    }
    for (const auto& [id, bytes] : kLists) {
        Buffer expected = written(id);
        std::fill(expected.begin() + bytes, expected.end(), uint8_t{0xA5});
        Buffer read;
        read.fill(0xA5);
        EXPECT_EQ(vdapi_ARCOFI_Read(id, read.data()), VXD_SUCCESS);
        EXPECT_EQ(read, expected) << std::hex << id;
    }
}

TEST_F(SaecRegisters, KeepWhatWasWrittenAsFarAsTheyAreWideButForStatusAndRevision) {
    for (const auto& [id, kept] : {std::pair{0x10000u, 0xEFu}, std::pair{0x10300u, 0xEFu},
                                   std::pair{0x20001u, 0xCDEFu}, std::pair{0x200ADu, 0xCDEFu}}) {
        EXPECT_EQ(WriteSaec(id, 0x89ABCDEF), VXD_SUCCESS) << std::hex << id;
        EXPECT_EQ(Read(vdapi_SAEC_Read, id), kept) << std::hex << id;
    }
    EXPECT_EQ(Read(vdapi_SAEC_Read, 0x10100), 0u);
    EXPECT_EQ(Read(vdapi_SAEC_Read, 0x20002), 0u);
    for (const uint32_t id : {0x30000u, 0x20000u}) {
        const uint32_t before = Read(vdapi_SAEC_Read, id);
        EXPECT_EQ(WriteSaec(id, ~before), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(Read(vdapi_SAEC_Read, id), before);
    }
    EXPECT_EQ(Read(vdapi_SAEC_Read, 0x200AE), kUntouched);
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
    constexpr uint32_t kMinute = 60000;
    constexpr uint32_t kStep = 20;
    const auto course = [](uint32_t address) {
        std::vector<uint32_t> levels;
        for (uint32_t time = 0; time < kMinute; time += kStep) {
            board::SetTime(0xFFFF0000 + time);  // the clock runs over on the way
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
        const auto silent = std::ranges::count(levels, lowest);
        EXPECT_GT(silent * kStep, kMinute / 6);
        EXPECT_LT(silent * kStep, kMinute / 2);
        EXPECT_GT(std::set(levels.begin(), levels.end()).size(), 300u) << "of all strengths";
        courses.insert(levels);
    }
    EXPECT_EQ(courses.size(), 3u);
}

TEST_F(EchoCanceller, KeepsItsModeWhileItIsUp) {
    const auto mode = [] { return Send(PELLAN_COMMAND_AEC_GET_MODE).first; };
    EXPECT_EQ(vdapi_AEC_SetMode(0x8C), VXD_SUCCESS) << "up since power-on";
    EXPECT_EQ(vdapi_AEC_SetMode(0x100), VXD_INVALID_PARAMETER);
    EXPECT_EQ(mode(), 0x8Cu);
    EXPECT_EQ(vdapi_AEC_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(mode(), 0u);
    EXPECT_EQ(vdapi_AEC_Initialize(), VXD_OPERATION_ALREADY_DONE);
    Send(PELLAN_COMMAND_AEC_SET_MODE, 0x48);
    EXPECT_EQ(vdapi_AEC_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AEC_SetMode(0x81), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(mode(), 0x48u) << "the latch keeps what it has";
}

TEST_F(AkmRegisters, AreTheFirmwaresOwnWithSwitchesAndChannels) {
    const auto read = [](uint32_t number) { return Read<uint8_t>(vdapi_AKM_ReadRegister, number); };
    EXPECT_EQ(vdapi_AKM_WriteRegister(0x19, 0x1C3), VXD_SUCCESS);
    EXPECT_EQ(read(0x19), 0xC3) << "8 bits of it";
    EXPECT_EQ(Send(PELLAN_COMMAND_AKM_READ_REGISTER, 0x19).first, 0xC3u);

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
    Send(PELLAN_COMMAND_AKM_SWITCH, 6, 0);
    EXPECT_EQ(read(0x11), 0x30);
    EXPECT_EQ(vdapi_AKM_SetSwitch(17, 1), VXD_INVALID_PARAMETER);
    EXPECT_EQ(read(0x1A), 0xA5) << "there is none";

    Send(PELLAN_COMMAND_AKM_WRITE_REGISTER, 0x0B, 0x9F);
    Send(PELLAN_COMMAND_AKM_VOLUME, 7, 3);
    EXPECT_EQ(read(0x0B), 0x83);
    Send(PELLAN_COMMAND_AKM_MUTE, 7, 1);
    EXPECT_EQ(read(0x0B), 0x03);
    Send(PELLAN_COMMAND_AKM_MUTE, 7, 0);
    EXPECT_EQ(read(0x0B), 0x83);
}
