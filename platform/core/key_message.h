// What the layer keeps in a key message's lParam. Its low 32 bits are zero; above them stands the
// character that the key makes under the person's keyboard layout, so that TranslateMessage needs
// no layout of its own. A key message posted by a program has none there.
#pragma once

#include <cstdint>

#include "platform/win32.h"

namespace vxd {

inline LPARAM KeyDetails(std::uint32_t character) {
    return static_cast<LPARAM>(static_cast<std::uint64_t>(character) << 32);
}

inline WPARAM CharacterIn(LPARAM keyDetails) {
    return static_cast<WPARAM>(static_cast<std::uint64_t>(keyDetails) >> 32);
}

}  // namespace vxd
