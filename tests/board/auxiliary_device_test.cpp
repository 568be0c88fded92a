#include "driver/firmware_command.h"
#include "tests/board/board_test.h"

using AuxiliaryDevices = BoardTest;

TEST_F(AuxiliaryDevices, AreUpFromPowerOnAndDownOnceTerminatedOrAfterAStartThatFailed) {
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(vdapi_AUXDEV_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Terminate(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_AUXDEV_Deactivate(AUXDEV_FEATURE_LED), VXD_CONFIGURATION_NOT_SET);
    EXPECT_TRUE(board::IsLedLit());
    EXPECT_EQ(vdapi_AUXDEV_HardwareReset(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Read<uint16_t>(vdapi_AUXDEV_GetField, 0), 0xA5A5);
    EXPECT_EQ(Read<uint16_t>(vdapi_AUXDEV_GetFeature, 0), 0xA5A5);
    EXPECT_EQ(vdapi_AUXDEV_SetField(0, 1), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Deactivate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
    EXPECT_FALSE(board::IsLedLit());

    board::FailOnce("vdapi_AUXDEV_Initialize", VXD_HARDWARE_FAILURE);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_HARDWARE_FAILURE);
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_CONFIGURATION_NOT_SET);
}

TEST_F(AuxiliaryDevices, PutTheWholeBoardBackToPowerOnByAHardwareResetAlone) {
    Send(PELLAN_COMMAND_OPEN_STREAM, 4);
    Send(PELLAN_COMMAND_AKM_WRITE_REGISTER, 5, 0x11);
    vdapi_AUXDEV_Terminate();
    EXPECT_EQ(vdapi_ResetVxD(), VXD_SUCCESS);
    EXPECT_EQ(Send(PELLAN_COMMAND_AKM_READ_REGISTER, 5).first, 0x11u);
    EXPECT_EQ(Send(PELLAN_COMMAND_STREAM_INFO, 4).first, 0u);

    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_SUCCESS) << "up by the driver's reset";
    const uint32_t screenWidth = 1;
    vdapi_VPIC_WritePort(0xA000, &screenWidth);
    EXPECT_EQ(vdapi_AUXDEV_HardwareReset(), VXD_SUCCESS);
    EXPECT_EQ(Send(PELLAN_COMMAND_AKM_READ_REGISTER, 5).first, 0u);
    EXPECT_EQ(Read(vdapi_VPIC_ReadPort, 0xA000), 640u);
    EXPECT_FALSE(board::IsLedLit());
}

TEST_F(AuxiliaryDevices, ShowTheStateOfEachLineAndKeepItsInputs) {
    const auto state = [](uint32_t feature) {
        return Read<uint16_t>(vdapi_AUXDEV_GetFeature, feature);
    };
    for (const uint32_t output : {0u, 4u, 23u, 28u, 41u}) {
        EXPECT_EQ(vdapi_AUXDEV_Activate(output), VXD_SUCCESS);
        EXPECT_EQ(state(output), 1) << output;
        EXPECT_EQ(vdapi_AUXDEV_Deactivate(output), VXD_SUCCESS);
        EXPECT_EQ(state(output), 0) << output;
    }
    for (const uint32_t input : {3u, 13u, 19u}) {  // a button, two detections
        EXPECT_EQ(vdapi_AUXDEV_Activate(input), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(state(input), 0) << input;
        EXPECT_TRUE(board::DriveFeatureInput(input, true));
        EXPECT_EQ(vdapi_AUXDEV_Deactivate(input), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(state(input), 1) << input;
    }
    EXPECT_EQ(state(42), 0xA5A5) << "there is none";

    // The firmware sees the same lines.
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_TEST, 1).first, 1u) << "MVIP routing at power-on";
    vdapi_AUXDEV_Deactivate(1);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_TEST, 1).first, 0u);
    Send(PELLAN_COMMAND_SET_LED_STATE, 5);
    EXPECT_EQ(state(AUXDEV_FEATURE_LED), 1);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_ACTIVATE, 41).first, 1u);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_ACTIVATE, 3).code, VXD_ILLEGAL_OPERATION);
}

TEST_F(AuxiliaryDevices, HoldFieldsOfSixteenBitsOfWhichTwoCannotBeSet) {
    const auto field = [](uint32_t number) {
        return Read<uint16_t>(vdapi_AUXDEV_GetField, number);
    };
    EXPECT_EQ(vdapi_AUXDEV_SetField(0, 0x12345), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_SetField(15, 0xFFFF), VXD_SUCCESS);
    EXPECT_EQ(field(0), 0x2345);
    EXPECT_EQ(field(15), 0xFFFF);
    EXPECT_EQ(field(14), 0);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_GET_FIELD, 10).first, field(10));
    for (const uint32_t readOnly : {9u, 10u}) {
        const uint16_t before = field(readOnly);
        EXPECT_EQ(vdapi_AUXDEV_SetField(readOnly, 0x77), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(field(readOnly), before);
    }
    EXPECT_EQ(vdapi_AUXDEV_SetField(16, 0), VXD_INVALID_PARAMETER);
}
