// The GDS dump in the debug output.
#include "platform/debug_monitor.h"
#include "tests/board/driver_test.h"

using GdsDumps = DriverTest;

namespace {

// What a dump writes, without "GDS " before each line; not what the board tells of calls that
// failed before.
std::string Dump(DebugMonitor& monitor, uint32_t module) {
    EXPECT_EQ(Debug(TALVERO_DBG_CORE_TR_DUMP_GDS, GdsDumpBlock{module}), VXD_SUCCESS);
    std::string lines;
    while (const auto line = monitor.Next(std::chrono::milliseconds(200))) {
        if (line->processId == GetCurrentProcessId() && line->text.starts_with("GDS ")) {
            lines += line->text.substr(4);
        }
    }
    return lines;
}

}  // namespace

TEST_F(GdsDumps, TellWhatAModuleHoldsAndHowItWasCalled) {
    DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    EXPECT_EQ(Dump(monitor, 9), "Jade: unused\n");
    EXPECT_EQ(Dump(monitor, 0),
              "Validity: board revision: 0x11D\n"
              "Validity: VPIC revision: 0x8\n"
              "Validity: driver revision: 0x312\n"
              "Validity: JADE revision: 0x21\n");

    Debug(TALVERO_DBG_SEQ_TR_INIT);
    Debug(TALVERO_DBG_SEQ_TR_INIT);
    Debug(TALVERO_DBG_SEQ_TR_CRITENTER);
    Debug(TALVERO_DBG_SEQ_TR_ATOMENTER, AtomBlock{3});
    Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x200});
    EXPECT_EQ(Dump(monitor, 5),
              "Seq: sequencer: initialised\n"
              "Seq: client registered: no\n"
              "Seq: in critical section: yes\n"
              "Seq: in atomic section of device: 3\n"
              "Seq: interrupts of source 9: 1\n"
              "Seq: TALVERO_DBG_SEQ_OP_INTERRUPT: 1 called, 0 failed\n"
              "Seq: TALVERO_DBG_SEQ_TR_ATOMENTER: 1 called, 0 failed\n"
              "Seq: TALVERO_DBG_SEQ_TR_CRITENTER: 1 called, 0 failed\n"
              "Seq: TALVERO_DBG_SEQ_TR_INIT: 2 called, 1 failed\n");

    // A bit that is 1 is no failure; a chip that is not there is one.
    constexpr uint32_t kTransmitFifoIsFree = 0x00400221;
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_OP_BIT_ST, BitBlock{{1}, kTransmitFifoIsFree}), 1);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_OP_BIT_ST, BitBlock{{2}, kTransmitFifoIsFree}), 1);
    EXPECT_TRUE(
        Dump(monitor, 6).ends_with("Isac: TALVERO_DBG_ISAC_OP_BIT_ST: 2 called, 1 failed\n"));
}

TEST_F(GdsDumps, TellOfTheDataOfACall) {
    DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    vdapi_LSD_SetPacketized(0, 1);
    KORA_DLL_ChannelOpen(0, 0x800E);
    KORA_DLL_ChannelSend(0, 11);
    KORA_DLL_ChannelSend(0, 2);
    KORA_DLL_ChannelRead(0);
    EXPECT_EQ(Dump(monitor, 18),
              "LSD: channel: up since power-on\n"
              "LSD: open at rate: 0x800E\n"
              "LSD: packetized: yes\n"
              "LSD: bytes sent: 13\n"
              "LSD: bytes waiting: 2\n"
              "LSD: bytes read: 11\n"
              "LSD: last read: 00 01 02 03 04 05 06 07 08 09 0A\n"
              "LSD: vdapi_LSD_SetPacketized: 1 called, 0 failed\n");
    const uint8_t bytes[6] = {0x1F, 0x0A, 0xFF, 1, 2, 3};
    vdapi_BAS_Write(2, 5, bytes, 3);
    EXPECT_TRUE(Dump(monitor, 17)
                    .starts_with("Stream: stream service: up since power-on\n"
                                 "Stream: BAS: up since power-on\n"
                                 "Stream: BAS sendings: 1\n"
                                 "Stream: BAS commands: 2, repeated: 5, bytes: 1F 0A FF\n"
                                 "Stream: KORA_DLL_ChannelOpen: 1 called, 0 failed\n"));
    vdapi_VPP_Initialize();
    vdapi_VPP_Deactivate();
    EXPECT_TRUE(Dump(monitor, 23)
                    .starts_with("VPP: post-processing: initialised, not active\n"
                                 "VPP: mode word: 0x10000\n"
                                 "VPP: frame rate: 20\n"));
}

TEST_F(GdsDumps, GoThroughAllModulesInTheirOrder) {
    DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    std::istringstream lines(Dump(monitor, 0xFFFFFFFF));
    std::string modules;
    for (std::string line, last; std::getline(lines, line);) {
        const std::string module = line.substr(0, line.find(':'));
        if (module != std::exchange(last, module)) {
            modules += module + ' ';
        }
    }
    EXPECT_EQ(modules,
              "Validity Core Debug Pmapi Vpic Seq Isac Iom2 Arcofi Jade Auxdev Vcpxi I2c Camera "
              "Eprom Acif Vidinlay Stream LSD HSD MLP Bt85x vcpregs VPP AnnexD MBE ");
    EXPECT_EQ(Debug(TALVERO_DBG_CORE_TR_DUMP_GDS, GdsDumpBlock{26}), VXD_INVALID_PARAMETER);
}
