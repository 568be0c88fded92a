// What the tests of the older board's commands share.
#pragma once

#include "driver/debug_command.h"
#include "driver/kora_dll32.h"
#include "driver/parameter_block.h"
#include "tests/board/board_test.h"

inline ResultCode Debug(uint32_t command) {
    return CodeOf(vdapi_Debug(command, 0, nullptr));
}

template <typename Block>
ResultCode Debug(uint32_t command, Block block) {
    return CodeOf(vdapi_Debug(command, sizeof block, &block));
}

// A board with both libraries open.
class DriverTest : public BoardTest {
  protected:
    DriverTest() { KORA_DLL_Initialize(); }
};
