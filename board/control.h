// The test's hand on the simulated board, in the process that has the driver libraries loaded.
//
// Every function may be called from any thread, also while operations run on another: each takes
// the board's lock for its own duration. A change is met by the next operation, and what is read is
// what the operations before have left. What is set here stays when a library is initialised,
// except for what "board.ini" names (board/settings.h).
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

#include "board/call.h"
#include "board/state.h"
#include "driver/result_code.h"

namespace board {

// Whether a board is plugged in. Without one every operation that needs it answers
// VXD_HARDWARE_FAILURE.
bool IsPresent();
void SetPresent(bool present);

// The board's revisions, as vdapi_GetVersion gives them.
Revisions GetRevisions();
void SetRevisions(const Revisions& revisions);

// Whether the board's LED is lit.
bool IsLedLit();

// How many ISAC chips are fitted; 0 for as many as the board's revision can have.
void SetIsacChipsFitted(uint32_t count);

// What the world outside does to one of the auxiliary device's inputs: a button, a detection. False
// where the feature is no input.
bool DriveFeatureInput(uint32_t feature, bool active);

// Sets the board's clock, which drives what the board measures; it then stands until it is set
// anew.
void SetTime(uint32_t milliseconds);

// The board's chips with all that their registers hold; as a copy and back.
Hardware GetHardware();
void SetHardware(const Hardware& hardware);

// How the EEPROM behaves from the next transfer on, and what is in it.
void SetEepromBehaviour(const EepromBehaviour& behaviour);
EepromContents GetEeprom();
void SetEeprom(const EepromContents& contents);

// The chips and services that the driver brings through a life cycle, as a copy.
Services GetServices();

// The monitor channel: the window that learns of bytes (null where none was named), how many
// answers have arrived.
Monitor GetMonitor();

// How long a monitor device takes to answer, from the next request on.
void SetMonitorDelay(std::chrono::milliseconds delay);

// Makes the driver read PCI configuration space with this access, whatever it is asked for; 0 for
// what it is asked for.
void SetPciAccess(uint8_t access);

// The whole board as at power-on. The libraries stay open and keep the values they have given.
void PowerOn();

// Makes an operation ("vdapi_AUXDEV_Activate"), a debug command ("TALVERO_DBG_...") or a firmware
// command ("PELLAN_COMMAND_...") answer the code instead of doing its work: always, or the next
// time only. It replaces what was asked for under the same name, here or in "board.ini".
void FailAlways(const std::string& name, ResultCode code);
void FailOnce(const std::string& name, ResultCode code);

// Makes bits read 1 in what such an operation or command gives, as a line does that is stuck;
// beyond a register's width too, as far as the outputs are wide. It replaces what "board.ini" says.
void StickBits(const std::string& name, uint32_t bits);

// Makes such an operation or command begin that much later. Meanwhile the board goes on, and what
// is asked for from other threads is done. It replaces what "board.ini" says.
void SlowDown(const std::string& name, std::chrono::milliseconds delay);

// Takes back everything asked for with FailAlways, FailOnce, StickBits and SlowDown.
void SucceedAgain();

// The calls since the last ForgetCalls, oldest first; only the last 10,000 are kept.
std::vector<Call> Calls();
void ForgetCalls();

}  // namespace board
