// The two libraries as a program meets them: by file name and plain names.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>

#include "board/control.h"
#include "driver/kora_dll32.h"
#include "driver/papi.h"
#include "driver/result_code.h"
#include "driver/shared_words.h"
#include "platform/win32.h"
#include "tests/kit/settings.h"

namespace {

// The name of an operation that the headers declare.
#define OPERATION(name) (static_cast<void>(sizeof(&name)), #name)

const auto kPapi = std::to_array<const char*>({OPERATION(vdapi_Initialize),
                                               OPERATION(vdapi_Terminate),
                                               OPERATION(vdapi_GetVersion),
                                               OPERATION(vdapi_ResetVxD),
                                               OPERATION(vdapi_Debug),
                                               OPERATION(vdapi_SendCommand),
                                               OPERATION(vdapi_GetModuleDebugLevel),
                                               OPERATION(vdapi_SetModuleDebugLevel),
                                               OPERATION(vdapi_Stream_Open),
                                               OPERATION(vdapi_Stream_Close),
                                               OPERATION(vdapi_GetBandwidth),
                                               OPERATION(vdapi_VPIC_ReadPort),
                                               OPERATION(vdapi_VPIC_WritePort),
                                               OPERATION(vdapi_AUXDEV_Initialize),
                                               OPERATION(vdapi_AUXDEV_Terminate),
                                               OPERATION(vdapi_AUXDEV_HardwareReset),
                                               OPERATION(vdapi_AUXDEV_Activate),
                                               OPERATION(vdapi_AUXDEV_Deactivate),
                                               OPERATION(vdapi_AUXDEV_GetFeature),
                                               OPERATION(vdapi_AUXDEV_SetField),
                                               OPERATION(vdapi_AUXDEV_GetField),
                                               OPERATION(vdapi_I2C_Initialize),
                                               OPERATION(vdapi_I2C_Terminate),
                                               OPERATION(vdapi_I2C_Transfer),
                                               OPERATION(vdapi_MEM_Read),
                                               OPERATION(vdapi_MEM_Write),
                                               OPERATION(vdapi_IO_Read),
                                               OPERATION(vdapi_IO_Write),
                                               OPERATION(vdapi_CAM_Digit_Initialize),
                                               OPERATION(vdapi_CAM_Digit_Terminate),
                                               OPERATION(vdapi_CAM_Digit_Read),
                                               OPERATION(vdapi_CAM_Digit_Write),
                                               OPERATION(vdapi_CAM_ACIF_Initialize),
                                               OPERATION(vdapi_CAM_ACIF_Terminate),
                                               OPERATION(vdapi_CAM_ACIF_Read),
                                               OPERATION(vdapi_CAM_ACIF_Write),
                                               OPERATION(vdapi_ARCOFI_Read),
                                               OPERATION(vdapi_ARCOFI_Write),
                                               OPERATION(vdapi_ARCOFI_SelectChannel),
                                               OPERATION(vdapi_SAEC_Read),
                                               OPERATION(vdapi_SAEC_Write),
                                               OPERATION(vdapi_AEC_Initialize),
                                               OPERATION(vdapi_AEC_Terminate),
                                               OPERATION(vdapi_AEC_SetMode),
                                               OPERATION(vdapi_AKM_ReadRegister),
                                               OPERATION(vdapi_AKM_WriteRegister),
                                               OPERATION(vdapi_AKM_SetSwitch),
                                               OPERATION(vdapi_JADE_Reset),
                                               OPERATION(vdapi_JADE_Read),
                                               OPERATION(vdapi_JADE_Write),
                                               OPERATION(vdapi_EPROM_Initialize),
                                               OPERATION(vdapi_EPROM_Terminate),
                                               OPERATION(vdapi_EPROM_Read),
                                               OPERATION(vdapi_EPROM_Write),
                                               OPERATION(vdapi_VCPXI_VCPVariable_GetValue),
                                               OPERATION(vdapi_VCPXI_VCPVariable_SetValue),
                                               OPERATION(vdapi_VcpCode_Download),
                                               OPERATION(vdapi_VIDINLAY_SetFrameDispMode),
                                               OPERATION(vdapi_VPP_Initialize),
                                               OPERATION(vdapi_VPP_Terminate),
                                               OPERATION(vdapi_VPP_Activate),
                                               OPERATION(vdapi_VPP_Deactivate),
                                               OPERATION(vdapi_VPP_SetMode),
                                               OPERATION(vdapi_BT85X_Initialize),
                                               OPERATION(vdapi_BT85X_Terminate),
                                               OPERATION(vdapi_BT85X_Reset),
                                               OPERATION(vdapi_BT85X_SetDisplayType),
                                               OPERATION(vdapi_BT85X_WriteCtrlRegister),
                                               OPERATION(vdapi_BT85X_ReadCtrlRegister),
                                               OPERATION(vdapi_BT85X_WriteToPalette),
                                               OPERATION(vdapi_BT85X_ReadFromPalette),
                                               OPERATION(vdapi_BT85X_DownloadPalette),
                                               OPERATION(vdapi_BT85X_RetrievePalette),
                                               OPERATION(vdapi_BT85X_WriteToOverlay),
                                               OPERATION(vdapi_BT85X_ReadFromOverlay),
                                               OPERATION(vdapi_BT85X_DownloadOverlay),
                                               OPERATION(vdapi_BT85X_RetrieveOverlay),
                                               OPERATION(vdapi_BT85X_WritePixelMask),
                                               OPERATION(vdapi_BT85X_ReadPixelMask),
                                               OPERATION(vdapi_MBE_Initialize),
                                               OPERATION(vdapi_MBE_Terminate),
                                               OPERATION(vdapi_MBE_RegisterOutgoingStream),
                                               OPERATION(vdapi_MBE_Read),
                                               OPERATION(vdapi_MBE_Write),
                                               OPERATION(vdapi_BAS_Initialize),
                                               OPERATION(vdapi_BAS_Terminate),
                                               OPERATION(vdapi_BAS_Write),
                                               OPERATION(vdapi_ANNEXD_Initialize),
                                               OPERATION(vdapi_ANNEXD_Terminate),
                                               OPERATION(vdapi_ANNEXD_Download)});

const auto kKoraDll32 = std::to_array<const char*>(
    {OPERATION(KORA_DLL_Initialize), OPERATION(KORA_DLL_GetSharedTable), OPERATION(KORA_DLL_Attach),
     OPERATION(KORA_DLL_Terminate), OPERATION(KORA_DLL_GetIsacHandle),
     OPERATION(KORA_DLL_GetMonitorHandle), OPERATION(KORA_DLL_GetSeqHandle),
     OPERATION(KORA_DLL_ChannelInitialize), OPERATION(KORA_DLL_ChannelTerminate),
     OPERATION(KORA_DLL_ChannelOpen), OPERATION(KORA_DLL_ChannelClose),
     OPERATION(KORA_DLL_ChannelSend), OPERATION(KORA_DLL_ChannelRead),
     OPERATION(vdapi_LSD_SetPacketized), OPERATION(KORA_DLL_StartVppStatistics),
     OPERATION(KORA_DLL_StopVppStatistics)});

#undef OPERATION

template <typename Names>
void ExpectExports(const char* library, const Names& names) {
    const HMODULE module = LoadLibraryA(library);
    ASSERT_TRUE(module) << library;
    for (const char* name : names) {
        EXPECT_TRUE(GetProcAddress(module, name)) << library << " lacks " << name;
    }
    FreeLibrary(module);
}

}  // namespace

TEST(Libraries, ExportEveryOperationUnderItsPlainName) {
    ExpectExports("PAPI", kPapi);
    ExpectExports("KORA_DLL32", kKoraDll32);
    EXPECT_EQ(kPapi.size() + kKoraDll32.size(), 106u);
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
