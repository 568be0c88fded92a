// The GDS dump in the debug output.
#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

#include "platform/debug_monitor.h"
#include "tests/board/driver_test.h"

using GdsDumps = DriverTest;

namespace {

// What a dump writes; not what the board tells of calls that failed before.
std::vector<std::string> Dump(DebugMonitor& monitor, uint32_t module) {
    EXPECT_EQ(Debug(TALVERO_DBG_CORE_TR_DUMP_GDS, GdsDumpBlock{module}), VXD_SUCCESS);
    std::vector<std::string> lines;
    while (const auto line = monitor.Next(std::chrono::milliseconds(200))) {
        if (line->processId == GetCurrentProcessId() && line->text.starts_with("GDS ")) {
            lines.push_back(line->text);
        }
    }
    return lines;
}

}  // namespace

TEST_F(GdsDumps, TellWhatAModuleHoldsAndHowItWasCalled) {
    DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    EXPECT_EQ(Dump(monitor, 9), (std::vector<std::string>{"GDS Jade: unused\n"}));
    EXPECT_EQ(Dump(monitor, 0), (std::vector<std::string>{
                                    "GDS Validity: board revision: 0x11D\n",
                                    "GDS Validity: VPIC revision: 0x8\n",
                                    "GDS Validity: driver revision: 0x312\n",
                                    "GDS Validity: JADE revision: 0x21\n",
                                }));

    Debug(TALVERO_DBG_SEQ_TR_INIT);
    Debug(TALVERO_DBG_SEQ_TR_INIT);
    Debug(TALVERO_DBG_SEQ_TR_CRITENTER);
    Debug(TALVERO_DBG_SEQ_TR_ATOMENTER, AtomBlock{3});
    Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x200});
    EXPECT_EQ(Dump(monitor, 5), (std::vector<std::string>{
                                    "GDS Seq: sequencer: initialised\n",
                                    "GDS Seq: client registered: no\n",
                                    "GDS Seq: in critical section: yes\n",
                                    "GDS Seq: in atomic section of device: 3\n",
                                    "GDS Seq: interrupts of source 9: 1\n",
                                    "GDS Seq: TALVERO_DBG_SEQ_OP_INTERRUPT: 1 called, 0 failed\n",
                                    "GDS Seq: TALVERO_DBG_SEQ_TR_ATOMENTER: 1 called, 0 failed\n",
                                    "GDS Seq: TALVERO_DBG_SEQ_TR_CRITENTER: 1 called, 0 failed\n",
                                    "GDS Seq: TALVERO_DBG_SEQ_TR_INIT: 2 called, 1 failed\n",
                                }));

    constexpr uint32_t kTransmitFifoIsFree = 0x00400221;
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_OP_BIT_ST, BitBlock{{1}, kTransmitFifoIsFree}), 1);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_OP_BIT_ST, BitBlock{{2}, kTransmitFifoIsFree}), 1);
    EXPECT_EQ(Dump(monitor, 6).back(), "GDS Isac: TALVERO_DBG_ISAC_OP_BIT_ST: 2 called, 1 failed\n")
        << "a bit that is 1 and a chip that is not there";

    vdapi_CAM_ACIF_Terminate();
    EXPECT_EQ(Dump(monitor, 15), (std::vector<std::string>{
                                     "GDS Acif: analog camera: down\n",
                                     "GDS Acif: vdapi_CAM_ACIF_Terminate: 1 called, 0 failed\n",
                                 }));
}

TEST_F(GdsDumps, TellOfTheDataOfACall) {
    DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    vdapi_LSD_SetPacketized(0, 1);
    KORA_DLL_ChannelOpen(0, 0x800E);
    for (const uint32_t length : {11, 2}) {
        KORA_DLL_ChannelSend(0, length);
    }
    KORA_DLL_ChannelRead(0);
    EXPECT_EQ(Dump(monitor, 18),
              (std::vector<std::string>{"GDS LSD: channel: up since power-on\n",
                                        "GDS LSD: open at rate: 0x800E\n",
                                        "GDS LSD: packetized: yes\n", "GDS LSD: bytes sent: 13\n",
                                        "GDS LSD: bytes waiting: 2\n", "GDS LSD: bytes read: 11\n",
                                        "GDS LSD: last read: 00 01 02 03 04 05 06 07 08 09 0A\n",
                                        "GDS LSD: vdapi_LSD_SetPacketized: 1 called, 0 failed\n"}));
    EXPECT_EQ(Dump(monitor, 20), (std::vector<std::string>{
                                     "GDS MLP: channel: up since power-on\n", "GDS MLP: not open\n",
                                     "GDS MLP: bytes sent: 0\n", "GDS MLP: bytes waiting: 0\n",
                                     "GDS MLP: bytes read: 0\n"}));
    const uint8_t bytes[6] = {0x1F, 0x0A, 0xFF, 1, 2, 3};
    vdapi_BAS_Write(2, 5, bytes, 3);
    EXPECT_EQ(Dump(monitor, 17),
              (std::vector<std::string>{
                  "GDS Stream: stream service: up since power-on\n",
                  "GDS Stream: BAS: up since power-on\n", "GDS Stream: BAS sendings: 1\n",
                  "GDS Stream: BAS commands: 2, repeated: 5, bytes: 1F 0A FF\n",
                  "GDS Stream: KORA_DLL_ChannelOpen: 1 called, 0 failed\n",
                  "GDS Stream: KORA_DLL_ChannelRead: 1 called, 0 failed\n",
                  "GDS Stream: KORA_DLL_ChannelSend: 2 called, 0 failed\n",
                  "GDS Stream: vdapi_BAS_Write: 1 called, 0 failed\n"}));
    vdapi_VPP_Initialize();
    vdapi_VPP_Deactivate();
    EXPECT_EQ(
        Dump(monitor, 23),
        (std::vector<std::string>{"GDS VPP: post-processing: initialised, not active\n",
                                  "GDS VPP: mode word: 0x10000\n", "GDS VPP: frame rate: 20\n",
                                  "GDS VPP: lowest threshold: 20\n",
                                  "GDS VPP: highest threshold: 20\n", "GDS VPP: statistics: no\n",
                                  "GDS VPP: vdapi_VPP_Deactivate: 1 called, 0 failed\n",
                                  "GDS VPP: vdapi_VPP_Initialize: 1 called, 0 failed\n"}));
}

TEST_F(GdsDumps, GoThroughAllModulesInTheirOrder) {
    DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    std::vector<std::string> modules;
    for (const std::string& line : Dump(monitor, 0xFFFFFFFF)) {
        const size_t start = line.find(' ') + 1;
        modules.push_back(line.substr(start, line.find(':') - start));
    }
    modules.erase(std::unique(modules.begin(), modules.end()), modules.end());
    EXPECT_EQ(modules, (std::vector<std::string>{
                           "Validity", "Core",    "Debug",    "Pmapi",  "Vpic",  "Seq", "Isac",
                           "Iom2",     "Arcofi",  "Jade",     "Auxdev", "Vcpxi", "I2c", "Camera",
                           "Eprom",    "Acif",    "Vidinlay", "Stream", "LSD",   "HSD", "MLP",
                           "Bt85x",    "vcpregs", "VPP",      "AnnexD", "MBE"}));
}

TEST_F(GdsDumps, KnowNoOtherModules) {
    EXPECT_EQ(Debug(TALVERO_DBG_CORE_TR_DUMP_GDS, GdsDumpBlock{26}), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_CORE_TR_DUMP_GDS, GdsDumpBlock{0xFFFFFFFE}), VXD_INVALID_PARAMETER);
}
