// The board software's own trace, by its debug levels.
#include "driver/debug_levels.h"
#include "driver/firmware_command.h"
#include "platform/debug_monitor.h"
#include "tests/board/board_test.h"

namespace {

class BoardTrace : public BoardTest {
  protected:
    // What was written since the last look, without the time and the process.
    std::string Lines() {
        OutputDebugStringA("end of test line\n");
        std::string lines;
        while (const auto line = monitor_.Next(std::chrono::milliseconds(5000))) {
            if (line->text == "end of test line\n") {
                return lines;
            }
            EXPECT_EQ(line->text.substr(3, 1) + line->text.substr(6, 3), "*: [") << line->text;
            lines += line->text.substr(8);
        }
        ADD_FAILURE() << "the debug output does not arrive";
        return lines;
    }

    DebugMonitor monitor_;
};

TEST_F(BoardTrace, FollowsTheLevelOfTheModuleThatDoesTheWork) {
    board::FailOnce("vdapi_JADE_Reset", VXD_CRIT_ERROR);
    vdapi_JADE_Reset(0x32);
    vdapi_JADE_Reset(0x32);
    EXPECT_EQ(Lines(), "[10]JADE:\t vdapi_JADE_Reset = 26\n") << "errors, as at power-on";
    vdapi_SetModuleDebugLevel(FIRMWARE_MODULE_JADE, DEBUG_LEVEL_TRACE1);
    vdapi_JADE_Reset(0x32);
    Send(PELLAN_COMMAND_AKM_READ_REGISTER, 1);
    Send(PELLAN_COMMAND_JADE_RESET);
    vdapi_SetModuleDebugLevel(FIRMWARE_MODULE_JADE, DEBUG_LEVEL_TRACE2);
    vdapi_JADE_Reset(0x32);
    vdapi_SetModuleDebugLevel(FIRMWARE_MODULE_JADE, DEBUG_LEVEL_NONE);
    board::FailOnce("vdapi_JADE_Reset", VXD_CRIT_ERROR);
    vdapi_JADE_Reset(0x32);
    EXPECT_EQ(Lines(),
              "[30]JADE:\t vdapi_JADE_Reset = 0\n"
              "[30]JADE:\t PELLAN_COMMAND_JADE_RESET = 0\n"
              "[30]JADE:\t vdapi_JADE_Reset(0x32) = 0\n");
}

TEST_F(BoardTrace, OfTheUsbLinkFollowsItsFlags) {
    Send(PELLAN_COMMAND_SET_SOFTWARE_VAR, kUsbTraceVariable,
         USB_TRACE_TXDATA | USB_TRACE_RXDATA | USB_TRACE_ERRORS);
    Lines();
    Send(PELLAN_COMMAND_JADE_WRITE_REG, 0x0A, 0x1A5);
    Send(5);
    EXPECT_EQ(Lines(),
              "[30]USB:\t 0000012D 0000000A 000001A5 00000000\n"
              "[30]USB:\t 000000A5 00000000 0000\n"
              "[10]API:\t vdapi_SendCommand = 18\n"
              "[10]USB:\t command refused: 18\n");
    vdapi_SetModuleDebugLevel(FIRMWARE_MODULE_USB, DEBUG_LEVEL_NONE);
    vdapi_SetModuleDebugLevel(FIRMWARE_MODULE_API, DEBUG_LEVEL_NONE);
    Send(PELLAN_COMMAND_JADE_WRITE_REG, 0x0A, 0x1A5);
    Send(5);
    EXPECT_EQ(Lines(), "");
}

}  // namespace
