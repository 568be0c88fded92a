// The built-in control classes by name.
#include "platform/core/controls/control.h"
#include "platform/core/dialog.h"
#include "platform/core/window_class.h"

namespace vxd {

void RegisterControls() {
    RegisterControl("Button", MakeButton);
    RegisterControl("Edit", MakeEdit);
    RegisterControl("Static", MakeStatic);
    RegisterControl("ListBox", MakeListBox);
    RegisterControl("ScrollBar", MakeScrollBar);
    RegisterControl("ComboBox", MakeComboBox);
}

}  // namespace vxd
