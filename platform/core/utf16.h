// UTF-16, which Win32 uses wherever it speaks of wide characters, and the UTF-8 of everything else.
#pragma once

#include <string>
#include <string_view>

namespace vxd {

// Half a surrogate pair becomes three bytes of its own, so that Utf16FromUtf8 gives it back.
std::string Utf8FromUtf16(std::u16string_view text);

// Of a text in the compiler's own wide characters, which are whole code points here.
std::string Utf8FromWide(std::wstring_view text);

// A byte that is not UTF-8 becomes U+FFFD.
std::u16string Utf16FromUtf8(std::string_view text);

}  // namespace vxd
