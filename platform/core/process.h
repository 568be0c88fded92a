// The environment, as the layer itself reads it.
#pragma once

#include <optional>
#include <string>

namespace vxd {

// The value of an environment variable; nothing when it isn't set. Any thread, also while another
// one calls SetEnvironmentVariableA.
std::optional<std::string> Environment(const char* name);

}  // namespace vxd
