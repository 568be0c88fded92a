// What the utility says: the trace on the system debug output, and its message boxes.
// User-interface thread.
#pragma once

#include <cstdint>

#include "driver/result_code.h"
#include "platform/win32.h"

// Fills the table of error names. To be called before the first failure is reported.
void BuildErrorNames();

// Writes one trace line when `severity` is at most the debug level. The format is wvsprintfA's; the
// text ends with its own "\n". A line longer than 511 characters is cut, after a line that says so.
void DbgMsg(uint16_t severity, const char* format, ...);

// Sets the debug level if a debug viewer is there to see the trace, else 0. The viewer is looked
// for in this call only.
void SetDebugOutputLevel(uint16_t level);
// Sets the debug level without looking for a viewer.
void ForceDebugOutputLevel(uint16_t level);

// Names a failed driver operation and its error in a warning box, and waits until it is closed.
// Silent for 0. Without an owner the box keeps input from all windows of the program.
void ReportFailure(HWND owner, ResultCode code, const char* operation);

enum class MessageKind {
    kInformation = 0,
    kWarning = 1,
    kFatalError = 2,
    kQuestion = 3,  // answered Yes or No
};

// Shows a message box and waits until it is closed; gives the button that was pressed. Dialogs call
// this and not the system's function: they need to know whether a box is open. A dialog answers no
// command meanwhile, so a box that it shows without an owner is MB_TASKMODAL: nothing else takes
// input then, instead of being silent.
int ShowBox(HWND owner, const char* text, const char* caption, UINT style);
// Whether one is open now; how many there have been in this run.
bool BoxIsOpen();
unsigned BoxesShown();

// Shows text and detail, each of which may be null, in a message box: at most 255 characters in
// all. Without an owner it keeps input from all windows of the program. Gives the button that was
// pressed; 0 for a kind that does not exist, which shows nothing.
int ShowMessage(HWND owner, MessageKind kind, const char* text, const char* detail);
