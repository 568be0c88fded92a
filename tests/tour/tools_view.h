// What assistive tools read of a dialog that is open.
#pragma once

#include <QWidget>

#include "platform/win32.h"

namespace tour {

// User-interface thread: the native widget that shows a window.
QWidget& WidgetOf(HWND window);

// Engineer's thread. In the dialog every field, list and button has a name without marks of keys,
// no two buttons the same one, and the dialog says that it is one, and modal.
void ExpectReadableByTools(HWND dialog);

}  // namespace tour
