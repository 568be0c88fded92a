// What holds for every operation: failures asked for, a missing board, the list of calls.
#include <fstream>

#include "driver/firmware_command.h"
#include "platform/debug_monitor.h"
#include "platform/win32.h"
#include "tests/board/driver_test.h"

using Operations = BoardTest;

namespace {

// The calls, a line for each.
std::string CallLines() {
    std::string lines;
    for (const board::Call& call : board::Calls()) {
        lines += board::Describe(call) + '\n';
    }
    return lines;
}

// The next line of debug output that this process has written; empty where none comes.
std::string NextOwnLine(DebugMonitor& monitor) {
    while (const auto line = monitor.Next(std::chrono::seconds(5))) {
        if (line->processId == GetCurrentProcessId()) {
            return line->text;
        }
    }
    return "";
}

}  // namespace

TEST_F(Operations, FailAsAskedForUntilAllIsWellAgain) {
    board::FailOnce("vdapi_AUXDEV_Activate", VXD_TIMEOUT_FAILURE);
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_TIMEOUT_FAILURE);
    EXPECT_FALSE(board::IsLedLit());
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
    EXPECT_TRUE(board::IsLedLit());

    board::FailAlways("PELLAN_COMMAND_GET_VER", VXD_DSP_EXCEPTION);
    board::FailAlways("TALVERO_DBG_PCI_OP_INIT", 200);
    for (int again = 0; again < 2; ++again) {
        const Answer answer = Send(PELLAN_COMMAND_GET_VER);
        EXPECT_EQ(answer.code, VXD_DSP_EXCEPTION);
        EXPECT_TRUE(answer.IsUntouched());
        EXPECT_EQ(Send(PELLAN_COMMAND_STANDBY).code, VXD_SUCCESS);
        EXPECT_EQ(Debug(TALVERO_DBG_PCI_OP_INIT), 200);
    }
    board::SucceedAgain();
    EXPECT_EQ(Send(PELLAN_COMMAND_GET_VER).code, VXD_SUCCESS);
}

TEST_F(Operations, ReadBitsAsOneThatAreStuck) {
    vdapi_JADE_Write(9, 0x0A);
    board::StickBits("vdapi_JADE_Read", 0xABCDEF00);
    EXPECT_EQ(Read(vdapi_JADE_Read, 9), 0xABCDEF0A);
    settings_.Write(kit::kBoardFile, "StuckBits", "vdapi_AUXDEV_GetField", "0xF8000");
    EXPECT_EQ(Read<uint16_t>(vdapi_AUXDEV_GetField, 10), 0x8002) << "an output of 16 bits";

    board::StickBits("PELLAN_COMMAND_JADE_READ_REG", 0x100);
    EXPECT_EQ(Send(PELLAN_COMMAND_JADE_READ_REG, 9).first, 0x10Au);
    EXPECT_TRUE(Send(PELLAN_COMMAND_JADE_READ_REG, 0x100).IsUntouched());
    board::SucceedAgain();
    EXPECT_EQ(Send(PELLAN_COMMAND_JADE_READ_REG, 9).first, 0x0Au);
    EXPECT_EQ(Read(vdapi_JADE_Read, 9), 0x0Au);
}

TEST_F(Operations, TakeTheirTimeWithoutKeepingOthersWaiting) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds kLong(600);
    const auto timeOf = [](auto operation) {
        const auto start = Clock::now();
        operation();
        return Clock::now() - start;
    };
    const auto getVersion = [] { Send(PELLAN_COMMAND_GET_VER); };
    settings_.Write(kit::kBoardFile, "Delay", "PELLAN_COMMAND_GET_VER", "600");
    EXPECT_GE(timeOf(getVersion), kLong);
    board::SlowDown("PELLAN_COMMAND_GET_VER", {});
    EXPECT_LT(timeOf(getVersion), kLong) << "the test has the last word";

    board::SlowDown("vdapi_JADE_Reset", kLong);
    board::ForgetCalls();
    std::thread utility([] { EXPECT_EQ(vdapi_JADE_Reset(0x32), VXD_CRIT_ERROR); });
    std::this_thread::sleep_for(kLong / 3);
    board::FailAlways("vdapi_JADE_Reset", VXD_CRIT_ERROR);
    vdapi_AUXDEV_Activate(4);
    EXPECT_EQ(CallLines(), "vdapi_AUXDEV_Activate(0x4) = 0\n");
    utility.join();
    board::SucceedAgain();
    EXPECT_LT(timeOf([] { vdapi_JADE_Reset(0x32); }), kLong);
}

TEST_F(Operations, NameTheHardwareWhileNoBoardIsThere) {
    board::SetPresent(false);
    EXPECT_EQ(Read<uint16_t>(vdapi_AUXDEV_GetField, 10), 0xA5A5);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_INIT), VXD_HARDWARE_FAILURE);
    EXPECT_TRUE(Send(PELLAN_COMMAND_GET_VER).IsUntouched());
    EXPECT_EQ(vdapi_JADE_Reset(0x32), VXD_HARDWARE_FAILURE);
    EXPECT_EQ(vdapi_Terminate(), VXD_SUCCESS);
}

TEST_F(Operations, AreListedWithTheirArgumentsBlocksAndResults) {
    board::ForgetCalls();
    vdapi_AUXDEV_Activate(4);
    Debug(TALVERO_DBG_ISAC_TR_INIT, IsacInitializeBlock{13, 0x12345678, 1});
    Send(PELLAN_COMMAND_SET_SOFTWARE_VAR, 50, 0x801);
    Debug(0xFFF);
    vdapi_BAS_Write(2, -1, nullptr, 0);
    const uint16_t items[]{0xA1, 0x100};
    vdapi_I2C_Transfer(items, 2, nullptr);
    const uint8_t bytes[]{1, 2, 3, 4, 5, 6, 7, 8};
    vdapi_VCPXI_VCPVariable_SetValue("vcx_bBondOn", 2, 3, bytes, 33);
    EXPECT_EQ(CallLines(),
              "vdapi_AUXDEV_Activate(0x4) = 0\n"
              "vdapi_Debug(0x46, 0xC, address) TALVERO_DBG_ISAC_TR_INIT "
              "[0D 00 00 00 78 56 34 12 01 00 00 00] = 1\n"
              "vdapi_SendCommand(0x7D0, 0x32, 0x801, 0x0, address, address, address) "
              "PELLAN_COMMAND_SET_SOFTWARE_VAR = 0\n"
              "vdapi_Debug(0xFFF, 0x0, none) = 23\n"
              "vdapi_BAS_Write(0x2, 0xFFFFFFFF, none, 0x0) = 1\n"
              "vdapi_I2C_Transfer(address, 0x2, none) [A1 00 00 01] = 1\n"
              "vdapi_VCPXI_VCPVariable_SetValue(\"vcx_bBondOn\", 0x2, 0x3, address, 0x21) "
              "[01 02 03 04 05 06] = 1\n");
    board::ForgetCalls();
    EXPECT_TRUE(board::Calls().empty());
}

TEST_F(Operations, KeepOnlyTheLastCalls) {
    for (uint32_t number = 0; number < 10001; ++number) {
        vdapi_JADE_Reset(number);
    }
    const std::vector<board::Call> calls = board::Calls();
    ASSERT_EQ(calls.size(), 10000u);
    EXPECT_EQ(calls.front().arguments[0].value, 1u);
    EXPECT_EQ(calls.back().arguments[0].value, 10000u);
}

TEST_F(Operations, MayBeWatchedAndDisturbedFromAnotherThread) {
    std::thread utility([] {
        for (int step = 0; step < 500; ++step) {
            vdapi_AUXDEV_Activate(4);
            Send(PELLAN_COMMAND_GET_VER);
        }
    });
    for (int look = 0; look < 100; ++look) {
        board::SetPresent(look % 2 == 0);
        board::FailOnce("PELLAN_COMMAND_GET_VER", VXD_ERR_BIOS);
        board::Calls();
        board::GetRevisions();
    }
    utility.join();
    EXPECT_EQ(board::Calls().size(), 1001u);
}

TEST_F(Operations, TakeTheBoardFromTheSettingsFile) {
    const char* file = kit::kBoardFile;
    settings_.Write(file, "Board", "Revision", "0x0107");
    settings_.Write(file, "Board", "DriverRevision", "1026");
    settings_.Write(file, "Board", "VpicRevision", "010");
    settings_.Write(file, "Board", "IsacChips", "1");
    board::SetRevisions({.board = 1, .vpic = 1, .driver = 1, .jade = 0x31});
    vdapi_Initialize(0);
    const board::Revisions revisions = board::GetRevisions();
    EXPECT_EQ(revisions.board, 0x0107);
    EXPECT_EQ(revisions.driver, 0x0402);
    EXPECT_EQ(revisions.vpic, 10);
    EXPECT_EQ(revisions.jade, 0x31) << "a key that is absent changes nothing";
    EXPECT_EQ(Read<uint16_t>(vdapi_AUXDEV_GetField, 10), 0) << "the chips beyond the first";

    settings_.Write(file, "Fail", "PELLAN_COMMAND_GET_VER", "14");
    EXPECT_EQ(Send(PELLAN_COMMAND_GET_VER).code, VXD_DSP_EXCEPTION);
    board::FailOnce("PELLAN_COMMAND_GET_VER", VXD_SUCCESS);
    EXPECT_EQ(Send(PELLAN_COMMAND_GET_VER).code, VXD_SUCCESS);

    settings_.Write(file, "Board", "Present", "0");
    vdapi_Initialize(0);
    EXPECT_FALSE(board::IsPresent());
}

TEST_F(Operations, MeetEveryChangeOfTheSettingsFileAtOnce) {
    constexpr DWORD kUntilTheFileIsAtRest = 2300;
    const auto file = kit::SettingsPath(kit::kBoardFile);
    std::filesystem::create_directories(file.parent_path());
    const auto codeAfterWriting = [&](ResultCode code) {
        std::ofstream(file) << "[Fail]\nvdapi_JADE_Reset = " << code << '\n';
        return CodeOf(vdapi_JADE_Reset(0x32));
    };
    // What is kept from a file at rest, or from its absence, lasts no longer than that.
    const auto rest = [] {
        vdapi_JADE_Reset(0x32);
        Sleep(kUntilTheFileIsAtRest);
        vdapi_JADE_Reset(0x32);
    };
    rest();
    EXPECT_EQ(codeAfterWriting(11), 11);
    rest();
    EXPECT_EQ(codeAfterWriting(12), 12);
    const auto time = std::filesystem::last_write_time(file);
    std::ofstream(file) << "[Fail]\nvdapi_JADE_Reset = 13\n";
    std::filesystem::last_write_time(file, time);
    EXPECT_EQ(vdapi_JADE_Reset(0x32), 13u) << "written twice, with the same length, in one tick";
    rest();
    std::filesystem::remove(file);
    EXPECT_EQ(vdapi_JADE_Reset(0x32), VXD_SUCCESS);
}

TEST_F(Operations, AreTracedAsLinesWhereTheSettingsFileWantsIt) {
    vdapi_AUXDEV_Activate(1);
    settings_.Write(kit::kBoardFile, "Trace", "Calls", "1");
    Send(PELLAN_COMMAND_DEBUG_MUTE);
    DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    vdapi_Initialize(0);
    vdapi_AUXDEV_Activate(2);
    EXPECT_EQ(NextOwnLine(monitor), "vdapi_Initialize(0x0) = 7\n");
    EXPECT_EQ(NextOwnLine(monitor), "vdapi_AUXDEV_Activate(0x2) = 0\n");
}
