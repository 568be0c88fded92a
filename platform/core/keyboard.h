// The keys that change what others mean. User-interface thread.
#pragma once

namespace vxd {

// Whether a key is down, as far as the messages retrieved so far have told.
bool IsShiftDown();
bool IsControlDown();
bool IsAltDown();
void SetModifiers(bool shift, bool control, bool alt);

}  // namespace vxd
