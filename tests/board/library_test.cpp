// The two libraries as a program meets them: by file name and plain names.
#include "driver/shared_words.h"
#include "platform/win32.h"
#include "tests/board/driver_test.h"

TEST(Libraries, AnOperationFoundByItsPlainNameIsTheOneThatProgramsLinkTo) {
    const kit::SettingsFolder settings;
    const auto find = [](const char* library, const char* name) {
        return reinterpret_cast<void*>(GetProcAddress(LoadLibraryA(library), name));
    };
    using Initialize = uint32_t(WINAPI*)(uint32_t);
    const auto initialize = reinterpret_cast<Initialize>(find("PAPI", "vdapi_Initialize"));
    ASSERT_TRUE(initialize);
    EXPECT_EQ(initialize(0), VXD_SUCCESS);
    EXPECT_EQ(vdapi_Initialize(0), VXD_OPERATION_ALREADY_DONE);
    EXPECT_TRUE(find("KORA_DLL32", "KORA_DLL_Initialize"));
    EXPECT_TRUE(find("KORA_DLL32", "vdapi_LSD_SetPacketized"));
}

TEST(Libraries, AnswerByTheOrderInWhichTheyAreOpenedAndClosed) {
    const kit::SettingsFolder settings;
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_Terminate(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_Initialize(0), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_Terminate(), VXD_CONFIGURATION_NOT_SET);

    // The connection to the driver needs no board, but its table with every slot filled.
    board::SetPresent(false);
    EXPECT_EQ(KORA_DLL_Attach(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(KORA_DLL_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_Initialize(), VXD_OPERATION_ALREADY_DONE);
    uint32_t* table = KORA_DLL_GetSharedTable();
    const std::array<Slot, 4> slots = SharedWordSlots();
    std::copy(slots.begin(), slots.end() - 1, table);
    EXPECT_EQ(KORA_DLL_Attach(), VXD_CONFIGURATION_NOT_SET);
    table[3] = slots[3];
    EXPECT_EQ(KORA_DLL_Attach(), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_GetSharedTable(), table);
    EXPECT_EQ(KORA_DLL_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_Terminate(), VXD_CONFIGURATION_NOT_SET);
}
