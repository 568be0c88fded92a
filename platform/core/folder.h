// What Win32 finds in a folder: names there ignore case. May be called from any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vxd {

// The entries of the open folder whose names differ from this one in case at most, in order.
std::vector<std::string> NamesIgnoringCase(int folder, std::string_view name);
// The entry of the open folder whose name differs from this one in case at most; of several, the
// first in order.
std::optional<std::string> FindIgnoringCase(int folder, std::string_view name);

}  // namespace vxd
