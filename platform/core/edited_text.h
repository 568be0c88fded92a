// What a person's edit makes of a text that the program has set meanwhile. Any thread.
#pragma once

#include <string>

namespace vxd {

struct EditedText {
    std::string text;
    int caret = 0;  // in bytes of the text
};

// Puts into `now` what a person put into `before` to make `after`, at the same place as far as
// there is one. The texts are UTF-8; no character is divided.
EditedText Rebased(const std::string& before, const std::string& after, const std::string& now);

}  // namespace vxd
