// The two libraries as a program meets them: by file name and plain names.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <sstream>
#include <string>

#include "board/control.h"
#include "driver/kora_dll32.h"
#include "driver/papi.h"
#include "driver/result_code.h"
#include "driver/shared_words.h"
#include "platform/win32.h"
#include "tests/kit/settings.h"

namespace {

struct Family {
    const char* dll;
    const char* prefix;
    const char* operations;  // how their names go on
};

constexpr auto kFamilies = std::to_array<Family>({
    {"PAPI", "vdapi_",
     "Initialize Terminate GetVersion ResetVxD Debug SendCommand GetModuleDebugLevel "
     "SetModuleDebugLevel GetBandwidth VcpCode_Download VIDINLAY_SetFrameDispMode"},
    {"PAPI", "vdapi_Stream_", "Open Close"},
    {"PAPI", "vdapi_VPIC_", "ReadPort WritePort"},
    {"PAPI", "vdapi_AUXDEV_",
     "Initialize Terminate HardwareReset Activate Deactivate GetFeature SetField GetField"},
    {"PAPI", "vdapi_I2C_", "Initialize Terminate Transfer"},
    {"PAPI", "vdapi_MEM_", "Read Write"},
    {"PAPI", "vdapi_IO_", "Read Write"},
    {"PAPI", "vdapi_CAM_Digit_", "Initialize Terminate Read Write"},
    {"PAPI", "vdapi_CAM_ACIF_", "Initialize Terminate Read Write"},
    {"PAPI", "vdapi_ARCOFI_", "Read Write SelectChannel"},
    {"PAPI", "vdapi_SAEC_", "Read Write"},
    {"PAPI", "vdapi_AEC_", "Initialize Terminate SetMode"},
    {"PAPI", "vdapi_AKM_", "ReadRegister WriteRegister SetSwitch"},
    {"PAPI", "vdapi_JADE_", "Reset Read Write"},
    {"PAPI", "vdapi_EPROM_", "Initialize Terminate Read Write"},
    {"PAPI", "vdapi_VCPXI_", "VCPVariable_GetValue VCPVariable_SetValue"},
    {"PAPI", "vdapi_VPP_", "Initialize Terminate Activate Deactivate SetMode"},
    {"PAPI", "vdapi_BT85X_",
     "Initialize Terminate Reset SetDisplayType WriteCtrlRegister ReadCtrlRegister "
     "WriteToPalette ReadFromPalette DownloadPalette RetrievePalette WriteToOverlay "
     "ReadFromOverlay DownloadOverlay RetrieveOverlay WritePixelMask ReadPixelMask"},
    {"PAPI", "vdapi_MBE_", "Initialize Terminate RegisterOutgoingStream Read Write"},
    {"PAPI", "vdapi_BAS_", "Initialize Terminate Write"},
    {"PAPI", "vdapi_ANNEXD_", "Initialize Terminate Download"},
    {"KORA_DLL32", "KORA_DLL_",
     "Initialize GetSharedTable Attach Terminate GetIsacHandle GetMonitorHandle GetSeqHandle "
     "ChannelInitialize ChannelTerminate ChannelOpen ChannelClose ChannelSend ChannelRead "
     "StartVppStatistics StopVppStatistics"},
    {"KORA_DLL32", "vdapi_", "LSD_SetPacketized"},
});

}  // namespace

TEST(Libraries, ExportEveryOperationUnderItsPlainName) {
    int exported = 0;
    for (const Family& family : kFamilies) {
        const HMODULE module = LoadLibraryA(family.dll);
        ASSERT_TRUE(module) << family.dll;
        std::istringstream operations(family.operations);
        for (std::string operation; operations >> operation; ++exported) {
            operation = family.prefix + operation;
            EXPECT_TRUE(GetProcAddress(module, operation.c_str())) << operation;
        }
        FreeLibrary(module);
    }
    EXPECT_EQ(exported, 106);
}

TEST(Libraries, AnOperationFoundByNameIsTheOneThatProgramsLinkTo) {
    const kit::SettingsFolder settings;
    const HMODULE module = LoadLibraryA("PAPI");
    using Initialize = uint32_t(WINAPI*)(uint32_t);
    const auto initialize = reinterpret_cast<Initialize>(
        reinterpret_cast<void*>(GetProcAddress(module, "vdapi_Initialize")));
    ASSERT_TRUE(initialize);
    EXPECT_EQ(initialize(0), VXD_SUCCESS);
    EXPECT_EQ(vdapi_Initialize(0), VXD_OPERATION_ALREADY_DONE);
    FreeLibrary(module);
}

TEST(Libraries, AnswerByTheOrderInWhichTheyAreOpenedAndClosed) {
    const kit::SettingsFolder settings;
    uint16_t wide = 0;
    uint8_t narrow = 0;
    EXPECT_EQ(vdapi_GetVersion(&wide, &narrow, &wide, &narrow), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_Terminate(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_Initialize(0), VXD_SUCCESS);
    EXPECT_EQ(vdapi_GetVersion(&wide, &narrow, &wide, &narrow), VXD_SUCCESS);
    EXPECT_EQ(vdapi_GetVersion(nullptr, &narrow, &wide, &narrow), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_Terminate(), VXD_CONFIGURATION_NOT_SET);

    EXPECT_EQ(KORA_DLL_Attach(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(KORA_DLL_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_Initialize(), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(KORA_DLL_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_Terminate(), VXD_CONFIGURATION_NOT_SET);
}

TEST(Libraries, TakeTheSharedTableOnlyWhenEverySlotIsFilled) {
    const kit::SettingsFolder settings;
    board::SetPresent(false);  // the connection to the driver needs no board
    ASSERT_EQ(KORA_DLL_Initialize(), VXD_SUCCESS);
    uint32_t* table = KORA_DLL_GetSharedTable();
    const std::array<Slot, 4> slots = SharedWordSlots();
    std::copy(slots.begin(), slots.end() - 1, table);
    EXPECT_EQ(KORA_DLL_Attach(), VXD_CONFIGURATION_NOT_SET);
    table[3] = slots[3];
    EXPECT_EQ(KORA_DLL_Attach(), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_GetSharedTable(), table);
}
