#include "driver/firmware_command.h"
#include "tests/board/board_test.h"

using FirmwareCommands = BoardTest;

TEST_F(FirmwareCommands, ReadBackWhatWasWritten) {
    struct Case {
        uint32_t write;
        uint32_t read;
        uint32_t number;
        uint32_t value;
        uint32_t kept;  // as far as the register is wide
    };
    constexpr auto kCases = std::to_array<Case>({
        {PELLAN_COMMAND_SAA7111_WRITE_REG, PELLAN_COMMAND_SAA7111_READ_REG, 0x0A, 0x17, 0x17},
        {PELLAN_COMMAND_WRITE_PORT, PELLAN_COMMAND_READ_PORT, 0x4024, 0x89ABCDEF, 0x89ABCDEF},
        {PELLAN_COMMAND_SET_SOFTWARE_VAR, PELLAN_COMMAND_GET_SOFTWARE_VAR, 50, 0xF001, 0xF001},
        {PELLAN_COMMAND_VCP_SET_VAR, PELLAN_COMMAND_VCP_GET_VAR, 7, 0x80000001, 0x80000001},
        {PELLAN_COMMAND_AUDIO_SET_PARAM, PELLAN_COMMAND_AUDIO_GET_PARAM, VC_AUDIOPARAM_VOLUME, 31,
         31},
        {PELLAN_COMMAND_CAM_SET_PARAM, PELLAN_COMMAND_CAM_GET_PARAM, 3, 0x10042, 0x42},
        {PELLAN_COMMAND_AEC_SET_VALUE, PELLAN_COMMAND_AEC_GET_VALUE, 9, 0x7FFF, 0x7FFF},
        {PELLAN_COMMAND_DEBUG_SETLEVEL, PELLAN_COMMAND_DEBUG_GETLEVEL, 21, 70, 70},
        {PELLAN_COMMAND_AUXDEV_SET_FIELD, PELLAN_COMMAND_AUXDEV_GET_FIELD, 15, 0x12345, 0x2345},
    });
    for (const Case& tried : kCases) {
        ASSERT_NE(Send(tried.read, tried.number).first, tried.kept) << tried.write;
        EXPECT_EQ(Send(tried.write, tried.number, tried.value).first, tried.kept) << tried.write;
        EXPECT_EQ(Send(tried.read, tried.number).first, tried.kept) << tried.read;
        EXPECT_NE(Send(tried.read, tried.number - 1).first, tried.kept) << "a neighbour's too";
    }
    Send(PELLAN_COMMAND_SET_USS_REG, 0xC0000010, 0xABCDEF01);
    EXPECT_EQ(Send(PELLAN_COMMAND_GET_USS_REG, 0xC0000010).second, 0xABCDEF01u);
}

TEST_F(FirmwareCommands, RefuseWhatTheBoardDoesNotHaveAndGiveNoResponse) {
    struct Case {
        uint32_t command;
        uint32_t parameter1;
        ResultCode code;
    };
    for (const Case& tried : std::to_array<Case>({
             {5, 0, VXD_OPERATION_NOT_SUPPORTED},
             {0xFFFFFFFF, 0, VXD_OPERATION_NOT_SUPPORTED},
             {PELLAN_COMMAND_JADE_READ_REG, 0x100, VXD_INVALID_PARAMETER},
             {PELLAN_COMMAND_AUDIO_GET_PARAM, VC_AUDIOPARAM_LAST, VXD_INVALID_PARAMETER},
             {PELLAN_COMMAND_AUDIO_SET_PARAM, VC_AUDIOPARAM_MIC_DETECT, VXD_ILLEGAL_OPERATION},
             {PELLAN_COMMAND_AUXDEV_SET_FIELD, 10, VXD_ILLEGAL_OPERATION},
             {PELLAN_COMMAND_I2C_ACCESS, 0x60, VXD_HARDWARE_FAILURE},
             {PELLAN_COMMAND_CAM_SET_INPUT, 3, VXD_INVALID_PARAMETER},
             {PELLAN_COMMAND_OPEN_STREAM, 5, VXD_INVALID_PARAMETER},
             {PELLAN_COMMAND_ERASE_ONE_BLOCK, 16, VXD_INVALID_PARAMETER},
             {PELLAN_COMMAND_SEND_FILE, 0, VXD_FILE_OPEN_FAILURE},
         })) {
        const Answer answer = Send(tried.command, tried.parameter1);
        EXPECT_EQ(answer.code, tried.code) << tried.command;
        EXPECT_TRUE(answer.IsUntouched()) << tried.command;
    }
}

TEST_F(FirmwareCommands, FindTheVideoDecoderOnTheI2cBus) {
    EXPECT_EQ(Send(PELLAN_COMMAND_I2C_ACCESS, 0x49).first, 1u);
    Send(PELLAN_COMMAND_I2C_SEND, 0x48, 0x0B, 0x55);
    EXPECT_EQ(Send(PELLAN_COMMAND_SAA7111_READ_REG, 0x0B).first, 0x55u);
    EXPECT_EQ(Send(PELLAN_COMMAND_I2C_RETRIEVE, 0x49, 0x0B).first, 0x55u);
}

TEST_F(FirmwareCommands, OpenAStreamOnceAndPassItsWordsInOrder) {
    EXPECT_EQ(Send(PELLAN_COMMAND_CLOSE_STREAM, 3).code, VXD_FAILED_STREAM_CLOSE);
    EXPECT_EQ(Send(PELLAN_COMMAND_STREAM_READ, 3).code, VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(Send(PELLAN_COMMAND_OPEN_STREAM, 3).code, VXD_SUCCESS);
    EXPECT_EQ(Send(PELLAN_COMMAND_OPEN_STREAM, 3).code, VXD_FAILED_STREAM_OPEN);
    EXPECT_EQ(Send(PELLAN_COMMAND_STREAM_READ, 3).code, VXD_OPERATION_FAILED);
    Send(PELLAN_COMMAND_STREAM_WRITE, 3, 0x11);
    Send(PELLAN_COMMAND_STREAM_WRITE, 3, 0x22);
    Send(PELLAN_COMMAND_RESYNC_STREAM, 3);
    const Answer info = Send(PELLAN_COMMAND_STREAM_INFO, 3);
    EXPECT_EQ(info.first, 1u);
    EXPECT_EQ(info.second, 2u);
    EXPECT_EQ(info.third, 1);
    EXPECT_EQ(Send(PELLAN_COMMAND_STREAM_READ, 3).first, 0x11u);
    EXPECT_EQ(Send(PELLAN_COMMAND_STREAM_READ, 3).first, 0x22u);
    ResultCode code = VXD_SUCCESS;
    for (int word = 0; word < 1000 && code == VXD_SUCCESS; ++word) {
        code = Send(PELLAN_COMMAND_STREAM_WRITE, 3, 1).code;
    }
    EXPECT_EQ(code, VXD_STREAM_OVERFLOW);
    EXPECT_EQ(Send(PELLAN_COMMAND_STREAM_INFO, 2).first, 0u) << "the other streams stay closed";
}

TEST_F(FirmwareCommands, BurnFlashOnlyFromOnesToZerosUntilItIsErased) {
    EXPECT_EQ(Send(PELLAN_COMMAND_DUMP_BLOCK, 15, 255).first, 0xFFFFFFFFu);
    Send(PELLAN_COMMAND_BURN_BLOCK, 2, 0, 0xFFFF0F0F);
    EXPECT_EQ(Send(PELLAN_COMMAND_BURN_BLOCK, 2, 0, 0x00FFFFFF).first, 0x00FF0F0Fu);
    Send(PELLAN_COMMAND_BURN_BLOCK, 3, 0, 0);
    Send(PELLAN_COMMAND_ERASE_ONE_BLOCK, 2);
    EXPECT_EQ(Send(PELLAN_COMMAND_DUMP_BLOCK, 2, 0).first, 0xFFFFFFFFu);
    EXPECT_EQ(Send(PELLAN_COMMAND_DUMP_BLOCK, 3, 0).first, 0u);
}

TEST_F(FirmwareCommands, SetTheDebugLevelOfAllModulesAtOnce) {
    for (const auto& [command, level] :
         {std::pair{PELLAN_COMMAND_DEBUG_TRACE, 30u}, std::pair{PELLAN_COMMAND_DEBUG_MUTE, 0u},
          std::pair{PELLAN_COMMAND_DEBUG_TECH, 10u}}) {
        Send(command);
        for (uint32_t module = 0; module < 22; ++module) {
            EXPECT_EQ(Send(PELLAN_COMMAND_DEBUG_GETLEVEL, module).first, level);
        }
    }
}

TEST_F(FirmwareCommands, RememberModesAndGiveParametersBack) {
    Send(PELLAN_COMMAND_AUDIO_SELECT_INPUT, 5);
    EXPECT_EQ(Send(PELLAN_COMMAND_AUDIO_GET_PARAM, VC_AUDIOPARAM_MIC_SELECT).first, 5u);
    EXPECT_EQ(Send(PELLAN_COMMAND_TARGET_CONNECTED).first, 0u);
    Send(PELLAN_COMMAND_SERIAL_CONNECT_ENABLE, 1);
    EXPECT_EQ(Send(PELLAN_COMMAND_TARGET_CONNECTED).first, 1u);
    Send(PELLAN_COMMAND_UPDATE_VERSION, 0x0401);
    EXPECT_EQ(board::GetRevisions().driver, 0x0401);
    EXPECT_EQ(Send(PELLAN_COMMAND_PSHELL_RUN).first, 1u);
    EXPECT_EQ(Send(PELLAN_COMMAND_PSHELL_RUN).first, 2u);
    const Answer echo = Send(PELLAN_COMMAND_GENERAL_PURPOSE_2, 0x89ABCDEF, 2, 0x12345);
    EXPECT_EQ(echo.first, 0x89ABCDEFu);
    EXPECT_EQ(echo.second, 2u);
    EXPECT_EQ(echo.third, 0x2345);
}
