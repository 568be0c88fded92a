// The simulated board's settings file, "board.ini", in the folder of the utility's own INI files.
//
// [Board] says which board is plugged in. A number is decimal, or hexadecimal after "0x".
//     Present = 0 for a machine without a board: every operation that needs one then answers 4,
//               VXD_HARDWARE_FAILURE. Default 1.
//     Revision = the board's revision, 16 bits. Default 0x011D.
//     VpicRevision = 8 bits. Default 8.
//     DriverRevision = 16 bits, major and minor. Default 0x0312.
//     JadeRevision = 8 bits. Default 0x21.
//     IsacChips = how many ISAC chips are fitted, 1 to 3, of those that the revision can have.
//               Default 0, all of them.
//     EepromMillisecondsPerByte = how long an EEPROM transfer takes. Default 2.
//     MonitorMilliseconds = how long a monitor device takes to answer. Default 5.
//     EepromHangs = 1 for EEPROM transfers that never end. Default 0.
//
// [Fail] says what fails. Each key is the name of an operation ("vdapi_AUXDEV_Initialize"), of a
// debug command ("TALVERO_DBG_SEQ_TR_INIT") or of a firmware command ("PELLAN_COMMAND_GET_VER"),
// its value the result code that is answered instead of doing it; 0 lets it go its way.
//
// [StuckBits] says which bits always read 1. Each key is such a name again, its value the bits that
// are 1 in what the operation or command gives, as far as the outputs that it fills are wide:
// "vdapi_JADE_Read = 0xFFFFFF00" for 24 bits above a register of 8.
//
// [Delay] says what is slow. Each key is such a name again, its value how many milliseconds pass
// before the operation or command begins.
//
// [Trace] Calls = 1 writes each call as one line to the system's debug output: the operation, its
// arguments, the bytes of its block, its result.
//
// [Board] and [Trace] are read when a library is initialised; a key that is absent leaves things as
// they are. [Fail], [StuckBits] and [Delay] count as they stand in the file at each call.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "board/file_watch.h"
#include "board/state.h"
#include "driver/result_code.h"

namespace board {

// Reads [Board] and [Trace].
void ReadSettings(State& state);

// What the file asks of the operation or command of one name.
struct Disturbance {
    ResultCode failure = VXD_SUCCESS;
    uint32_t stuckBits = 0;
    std::chrono::milliseconds delay{0};
};

// What the file asks, kept as long as the file is unchanged.
class Disturbances {
  public:
    // Looks whether the file has changed; what is found from then on is as it stands in it now.
    void Refresh();

    const Disturbance& Find(const std::string& name);

  private:
    FileWatch file_;
    std::unordered_map<std::string, Disturbance> known_;  // by name
};

}  // namespace board
