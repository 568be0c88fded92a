// What compiled resources are made of, and what they are called.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <variant>

namespace vxd {

using Bytes = std::span<const std::byte>;

// The type or the name of a resource: a number, or a text that is compared ignoring case.
using ResourceName = std::variant<std::uint16_t, std::string>;

}  // namespace vxd
