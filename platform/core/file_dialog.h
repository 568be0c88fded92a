// The dialog for opening a file, which is the screen's own.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include <string>

#include "platform/screen.h"

namespace vxd {

// What a person is asked just now; null while no file is asked for.
const FileQuestion* OpenFileQuestion();
// The person's answer: a whole path, or nothing when none was chosen.
void FileAnswered(const std::string& path);

}  // namespace vxd
