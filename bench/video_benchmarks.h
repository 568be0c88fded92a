// What the video windows cost.
#pragma once

// Registers the benchmark that shows both pictures for a second, to be run on the screen's thread:
// its CPU time is what that took.
void RegisterVideoBenchmarks();
