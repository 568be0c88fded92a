// What the simulated board's cameras see: a picture that moves in a way that is known. Whatever
// shows it, or measures its motion, asks here, so that all tell the same story.
//
// Both pictures have CIF's size. The upper three rows of macroblocks stand still and say whose
// picture it is and which frame; below, squares swing over a still ground; the lower three rows run
// sideways, each at a speed of its own. A picture depends on its channel and the frame's number
// alone.
//
// Threads: nothing is kept, so all may be called from any thread.
#pragma once

#include <cstdint>
#include <vector>

namespace board {

// The pictures by the numbers of their video channels.
enum class VideoChannel : uint32_t { kLocal = 3, kRemote = 4 };

inline constexpr int kPictureWidth = 352;
inline constexpr int kPictureHeight = 288;
inline constexpr int kMacroblockSide = 16;
inline constexpr int kMacroblockColumns = kPictureWidth / kMacroblockSide;
inline constexpr int kMacroblockRows = kPictureHeight / kMacroblockSide;
inline constexpr uint32_t kFramesPerSecond = 25;

// In pixels, to the right and down.
struct Motion {
    int x = 0;
    int y = 0;

    friend bool operator==(const Motion&, const Motion&) = default;
};

// How far what the middle of a macroblock shows in frame `to` has come since frame `from`. Column
// and row are counted from the upper left corner.
Motion MotionOf(VideoChannel channel, uint32_t from, uint32_t to, int column, int row);

// All pixels of a frame as 0x00RRGGBB, the upper row first. The same vector can be given again.
void DrawPicture(VideoChannel channel, uint32_t frame, std::vector<uint32_t>& pixels);

}  // namespace board
