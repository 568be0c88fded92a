// The text of a profile file: sections, keys and values, found and changed as Win32 does.
//
// Names are compared ignoring case and without blanks around them. Only the first of equal sections
// and the first of equal keys count. A change keeps every other line byte for byte. All functions
// are pure and may be called from any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vxd {

// The value as a reader gets it: no blanks around it, one pair of quotes stripped. Nothing when the
// section or the key is missing. The view lies in the text.
std::optional<std::string_view> FindProfileValue(std::string_view text, std::string_view section,
                                                 std::string_view key);

// Each of these gives the new text, or nothing when the text needs no change.

// Gives the key the value. A new key stands after its section's last one, a new section at the end.
// A value ends at its first line break: what follows would be a line of its own.
std::optional<std::string> SetProfileValue(std::string_view text, std::string_view section,
                                           std::string_view key, std::string_view value);

std::optional<std::string> DeleteProfileKey(std::string_view text, std::string_view section,
                                            std::string_view key);

// Takes out everything from the section's header up to the next header.
std::optional<std::string> DeleteProfileSection(std::string_view text, std::string_view section);

// A file that begins with the UTF-16 LE mark holds UTF-16; these turn it into text and back. Half a
// character at the end of such a file is dropped.
bool IsUtf16Profile(std::string_view bytes);
std::string TextOfUtf16Profile(std::string_view bytes);
std::string Utf16ProfileOf(std::string_view text);

}  // namespace vxd
