// How long dialogs take, on whichever screen the program has installed.
#pragma once

// Registers the benchmarks that open a dialog and close it again, to be run on the screen's thread.
void RegisterDialogBenchmarks();

// The screen shows the dialog that is open: it is to be closed now. Same thread.
void DialogIsSeen();
