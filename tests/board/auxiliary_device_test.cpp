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
    for (int again = 0; again < 2; ++again) {
        EXPECT_EQ(vdapi_AUXDEV_Initialize(), VXD_SUCCESS);
        vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED);
        EXPECT_EQ(vdapi_AUXDEV_HardwareReset(), VXD_SUCCESS);
        EXPECT_FALSE(board::IsLedLit());
    }
    EXPECT_EQ(Send(PELLAN_COMMAND_AKM_READ_REGISTER, 5).first, 0u);
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
