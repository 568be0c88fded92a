// The utility at work for a long time: both video windows and "VPP Statistics" with a live map.
#pragma once

// Runs the utility on the screen that is installed, on settings of its own, and gives it an
// engineer's commands for so many seconds: opens the windows and the dialog, lets the map follow
// the statistics, changes what it shows, takes single records, closes everything and begins again.
// Prints what share of a core that took, the most that the process had in memory in the second
// fifth of the time and in the last, and how often picture and map had moved when they were looked
// at. Gives an exit code: 1 when the utility did not end well or what should move stood still.
// User-interface thread.
int RunVideoSoak(int seconds);

// The same with the seconds as the program's first argument, a minute without one.
int RunVideoSoak(int argc, char** argv);
