// What the tests of the driver interface share.
#pragma once

#include "board/control.h"
#include "driver/papi.h"
#include "driver/result_code.h"
#include "tests/kit/settings.h"

// What a firmware command gave; the responses start as marks that no command gives.
struct Answer {
    ResultCode code = VXD_SUCCESS;
    uint32_t first = 0xA5A5A5A5;
    uint32_t second = 0x5A5A5A5A;
    uint16_t third = 0xA55A;

    bool IsUntouched() const {
        const Answer marks;
        return first == marks.first && second == marks.second && third == marks.third;
    }
};

inline Answer Send(uint32_t command, uint32_t parameter1 = 0, uint32_t parameter2 = 0,
                   uint32_t parameter3 = 0) {
    Answer answer;
    answer.code = CodeOf(vdapi_SendCommand(command, parameter1, parameter2, parameter3,
                                           &answer.first, &answer.second, &answer.third));
    return answer;
}

inline constexpr uint32_t kUntouched = 0xA5A5A5A5;

// What an operation gives through its last argument, which is of this type; so much of kUntouched
// as fits where the operation gives nothing.
template <typename Value = uint32_t, typename Operation, typename... Place>
Value Read(Operation operation, Place... place) {
    auto value = static_cast<Value>(kUntouched);
    operation(place..., &value);
    return value;
}

// A board on a settings folder of its own, with the command library open.
class BoardTest : public testing::Test {
  protected:
    BoardTest() { vdapi_Initialize(0); }

    kit::SettingsFolder settings_;
};
