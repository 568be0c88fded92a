// How a line is written: as text, or as a JSON object.
#pragma once

#include <optional>
#include <string>

#include "dbwin/trace_line.h"
#include "platform/debug_monitor.h"

namespace dbwin {

enum class Form { kText, kColouredText, kJson };

// Appends a line, or the word on lines that were lost, with its line end.
//
// Text: the time of day at which it came, the milliseconds of its own prefix, the process, the
// severity, the source, the text. A line break within gives one more such line. Control characters
// and bytes that are no UTF-8 are written as \x1B, so that nothing a program writes acts on the
// terminal.
//
// JSON: {"time", "process", "severity", "level", "source", "milliseconds", "prefixProcess",
// "text"}, "severity" being the number and "level" its name; what only a prefix has is absent
// without one. A text that is no UTF-8 has U+FFFD for each byte that isn't, and all bytes in
// hexadecimal as "bytes". Lost lines: {"time", "process", "lost"}; process 0 where the viewer lost
// them itself.
void AppendLine(std::string& output, Form form, const DebugLine& line,
                const std::optional<TracePrefix>& prefix);

}  // namespace dbwin
