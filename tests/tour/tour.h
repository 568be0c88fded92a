// Where the tour leaves its pictures.
#pragma once

#include <string>

namespace tour {

void SetPictureFolder(const std::string& folder);

}  // namespace tour
