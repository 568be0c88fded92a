// What a program of the start-up comparison says of itself when its window is first seen.
#pragma once

// Writes one line, "<milliseconds since the given start> <resident KiB>", and ends the process.
// `start` is the time just before the process was started, in seconds since 1970 as text.
[[noreturn]] void ReportFirstPaint(const char* start);
