// What assistive tools read of the dialogs that are open.
#pragma once

namespace tour {

// Engineer's thread. In the front dialog every field, list and button has a name without marks of
// keys, no two buttons the same one, and the dialog says that it is one, and modal.
void ExpectReadableByTools();

// All dialogs that the program has, by their templates, have been read so.
void ExpectAllDialogsRead();

}  // namespace tour
