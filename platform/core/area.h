// Areas of pixels: what they have in common, what covers both, and Win32's way to name them.
#pragma once

#include <algorithm>

#include "platform/screen.h"
#include "platform/win32.h"

namespace vxd {

inline Rect Intersection(const Rect& a, const Rect& b) {
    const int left = std::max(a.x, b.x);
    const int top = std::max(a.y, b.y);
    const int right = std::min(a.x + a.width, b.x + b.width);
    const int bottom = std::min(a.y + a.height, b.y + b.height);
    return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

// The smallest area that covers both.
inline Rect Union(const Rect& a, const Rect& b) {
    if (a.Empty()) {
        return b;
    }
    if (b.Empty()) {
        return a;
    }
    const int left = std::min(a.x, b.x);
    const int top = std::min(a.y, b.y);
    return {left, top, std::max(a.x + a.width, b.x + b.width) - left,
            std::max(a.y + a.height, b.y + b.height) - top};
}

inline Rect FromRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

inline RECT ToRect(const Rect& rect) {
    return {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
}

}  // namespace vxd
