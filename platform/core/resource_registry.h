// Where a program's compiled resources are handed to the layer.
#pragma once

#include <cstddef>

namespace vxd {

// Adds the contents of a .res file to what FindResource searches. The bytes are not copied and
// must stay for the whole run. Called while the program starts, before its first window.
void AttachResources(const void* data, std::size_t size);

}  // namespace vxd
