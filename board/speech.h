// How loud people are who speak: syllables in groups of several, and pauses between the groups.
#pragma once

#include <cstdint>

namespace board {

// From 0, where nobody speaks, to kLoudest. What a voice says is decided by its seed and the time
// in milliseconds alone.
inline constexpr uint32_t kLoudest = 1000;
uint32_t LoudnessAt(uint32_t voice, uint32_t milliseconds);

}  // namespace board
