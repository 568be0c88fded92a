// What Win32 finds in a folder: names there ignore case. May be called from any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vxd {

// The entry of the open folder whose name differs from this one in case only; of several, the first
// in order.
std::optional<std::string> FindIgnoringCase(int folder, std::string_view name);

}  // namespace vxd
