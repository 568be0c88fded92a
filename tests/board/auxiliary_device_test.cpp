#include "driver/firmware_command.h"
#include "tests/board/board_test.h"

using AuxiliaryDevices = BoardTest;

TEST_F(AuxiliaryDevices, AreUpFromPowerOnAndDownOnceTerminated) {
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LAST + 1), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(vdapi_AUXDEV_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Terminate(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_AUXDEV_Deactivate(AUXDEV_FEATURE_LED), VXD_CONFIGURATION_NOT_SET);
    EXPECT_TRUE(board::IsLedLit());
    EXPECT_EQ(vdapi_AUXDEV_HardwareReset(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Deactivate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
    EXPECT_FALSE(board::IsLedLit());
}

TEST_F(AuxiliaryDevices, StayDownAfterAStartThatFailed) {
    board::FailOnce("vdapi_AUXDEV_Initialize", VXD_HARDWARE_FAILURE);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_HARDWARE_FAILURE);
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_CONFIGURATION_NOT_SET);
    EXPECT_FALSE(board::IsLedLit());
    EXPECT_EQ(vdapi_AUXDEV_Terminate(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
}

TEST_F(AuxiliaryDevices, PutTheWholeBoardBackToPowerOnByAHardwareReset) {
    Send(PELLAN_COMMAND_AKM_WRITE_REGISTER, 5, 0x11);
    uint32_t screenWidth = 1;
    vdapi_VPIC_WritePort(0xA000, &screenWidth);
    for (int again = 0; again < 2; ++again) {
        EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_SUCCESS);
        vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED);
        EXPECT_EQ(vdapi_AUXDEV_HardwareReset(), VXD_SUCCESS);
        EXPECT_FALSE(board::IsLedLit());
    }
    EXPECT_EQ(Send(PELLAN_COMMAND_AKM_READ_REGISTER, 5).first, 0u);
    vdapi_VPIC_ReadPort(0xA000, &screenWidth);
    EXPECT_EQ(screenWidth, 640u);
}

TEST_F(AuxiliaryDevices, KeepTheirRegistersWhenOnlyTheDriverIsReset) {
    Send(PELLAN_COMMAND_AKM_WRITE_REGISTER, 5, 0x11);
    Send(PELLAN_COMMAND_OPEN_STREAM, 4);
    vdapi_AUXDEV_Terminate();
    EXPECT_EQ(vdapi_ResetVxD(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED), VXD_SUCCESS);
    EXPECT_EQ(Send(PELLAN_COMMAND_AKM_READ_REGISTER, 5).first, 0x11u);
    EXPECT_EQ(Send(PELLAN_COMMAND_STREAM_INFO, 4).first, 0u);
}

TEST_F(AuxiliaryDevices, AreTheSameLinesForDriverAndFirmware) {
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_TEST, 1).first, 1u) << "MVIP routing at power-on";
    vdapi_AUXDEV_Deactivate(1);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_TEST, 1).first, 0u);
    Send(PELLAN_COMMAND_SET_LED_STATE, 5);
    EXPECT_TRUE(board::IsLedLit());
    board::SetLedLit(false);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_TEST, AUXDEV_FEATURE_LED).first, 0u);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_ACTIVATE, 41).first, 1u);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_DEACTIVATE, 42).code, VXD_INVALID_PARAMETER);
}

TEST_F(AuxiliaryDevices, ShowTheStateOfEachLineAndKeepItsInputs) {
    const auto state = [](uint32_t feature) {
        uint16_t value = 99;
        EXPECT_EQ(vdapi_AUXDEV_GetFeature(feature, &value), VXD_SUCCESS) << feature;
        return value;
    };
    for (const uint32_t output : {0u, 4u, 23u, 28u, 41u}) {
        EXPECT_EQ(vdapi_AUXDEV_Activate(output), VXD_SUCCESS);
        EXPECT_EQ(state(output), 1) << output;
        EXPECT_EQ(vdapi_AUXDEV_Deactivate(output), VXD_SUCCESS);
        EXPECT_EQ(state(output), 0) << output;
    }
    board::SetLedLit(true);
    EXPECT_EQ(state(AUXDEV_FEATURE_LED), 1);

    for (const uint32_t input : {3u, 13u, 19u}) {  // a button, two detections
        EXPECT_EQ(vdapi_AUXDEV_Activate(input), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(Send(PELLAN_COMMAND_AUXDEV_ACTIVATE, input).code, VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(state(input), 0) << input;
        EXPECT_TRUE(board::DriveFeatureInput(input, true));
        EXPECT_EQ(vdapi_AUXDEV_Deactivate(input), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(state(input), 1) << input;
    }
    EXPECT_FALSE(board::DriveFeatureInput(23, true)) << "an output";
    EXPECT_EQ(state(23), 0);

    uint16_t value = 99;
    EXPECT_EQ(vdapi_AUXDEV_GetFeature(42, &value), VXD_INVALID_PARAMETER);
    EXPECT_EQ(value, 99);
}

TEST_F(AuxiliaryDevices, HoldFieldsOfSixteenBitsOfWhichTwoCannotBeSet) {
    const auto field = [](uint32_t number) {
        uint16_t value = 99;
        EXPECT_EQ(vdapi_AUXDEV_GetField(number, &value), VXD_SUCCESS) << number;
        return value;
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

    vdapi_AUXDEV_Terminate();
    uint16_t value = 99;
    EXPECT_EQ(vdapi_AUXDEV_GetField(0, &value), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_AUXDEV_GetFeature(0, &value), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_AUXDEV_SetField(0, 1), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(value, 99);
}
