// Bitmaps in memory, which device contexts draw on and copy from.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include "platform/screen.h"
#include "platform/win32.h"

namespace vxd {

struct Bitmap {
    Pixels pixels;       // without transparency
    int selections = 0;  // by device contexts; more than one only for the first bitmap
};

Pixels BlankPixels(int width, int height, std::uint32_t pixel);

// Null for a handle that is not a bitmap's.
Bitmap* FindBitmap(HBITMAP bitmap);
// A black one; null where it would have no pixels or too many.
HBITMAP MakeBitmap(int width, int height);
// The bitmap of one pixel that a memory device context draws on until it is given another. It is
// the same for all and stays.
HBITMAP FirstBitmap();
// False for a handle that is not a bitmap's, and for a bitmap that a device context draws on.
bool EndBitmap(HBITMAP bitmap);

}  // namespace vxd
