// The map of motion vectors: a cell for each macroblock, whose colour says how far it has moved and
// whose arrow says where to; and the scale of the colours. User-interface thread.
#pragma once

#include "driver/vpp.h"
#include "platform/win32.h"

// What of a vector the map shows.
enum class MotionShown { kMagnitude, kX, kY };

class MotionMap {
  public:
    MotionMap() = default;
    ~MotionMap();
    MotionMap(const MotionMap&) = delete;
    MotionMap& operator=(const MotionMap&) = delete;

    // Loads what it is drawn from; without that it draws nothing.
    void Load(HINSTANCE instance, HWND window);

    // Draws the cells in which two records differ into a window, of the first of them. A vector
    // that is longer than the scale has the last colour.
    void Draw(HWND window, const VppStatistics& current, const VppStatistics& previous,
              MotionShown shown) const;
    // Draws the scale into a window.
    void DrawScale(HWND window) const;

  private:
    bool ComposeCells(HDC screen);

    HDC memory_ = nullptr;
    HBITMAP scale_ = nullptr;
    HBITMAP directions_ = nullptr;
    HBITMAP cells_ = nullptr;  // every colour with every arrow
    HGDIOBJ noBitmap_ = nullptr;
};
