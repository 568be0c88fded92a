// Where the tour leaves its pictures.
#pragma once

#include <string>

namespace tour {

void SetPictureFolder(const std::string& folder);
// Engineer's thread. Takes a picture of all that is to be seen, under a name without extension, and
// expects a dialog that is open to be readable without seeing it.
void TakePicture(const std::string& name);

}  // namespace tour
