// Where the tour leaves its pictures.
#pragma once

#include "tests/kit/test.h"

namespace tour {

void SetPictureFolder(const std::string& folder);

}  // namespace tour
