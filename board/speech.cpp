#include "board/speech.h"

#include <random>

namespace board {
namespace {

// One breath has room for a short pause, the longest group of syllables and some pause behind it.
// All times in milliseconds.
constexpr uint32_t kBreath = 3200;
constexpr uint32_t kRise = 40;        // of a syllable
constexpr uint32_t kDyingAway = 160;  // of the last one

// The draws of one breath, the same ones each time.
class Draws {
  public:
    Draws(uint32_t voice, uint32_t breath) : engine_(voice * 7919 + breath * 104729 + 1) {
        // The first numbers of two seeds that lie close together do so too.
        constexpr int kAlike = 3;
        engine_.discard(kAlike);
    }

    // Not by a distribution: each library has its own.
    uint32_t Between(uint32_t lowest, uint32_t highest) {
        return lowest + static_cast<uint32_t>(engine_()) % (highest - lowest + 1);
    }

  private:
    std::minstd_rand engine_;
};

// The value on the straight way from `from` to `to` that takes `duration`, after `time` of it.
uint32_t OnTheWay(uint32_t from, uint32_t to, uint32_t time, uint32_t duration) {
    return (from * (duration - time) + to * time) / duration;
}

}  // namespace

uint32_t LoudnessAt(uint32_t voice, uint32_t milliseconds) {
    Draws draws(voice, milliseconds / kBreath);
    uint32_t time = milliseconds % kBreath;
    const uint32_t pause = draws.Between(100, 500);
    if (time < pause) {
        return 0;
    }
    time -= pause;
    uint32_t loudness = 0;
    for (uint32_t syllables = draws.Between(6, 9); syllables > 0; --syllables) {
        const uint32_t duration = draws.Between(140, 300);
        const uint32_t peak = draws.Between(550, kLoudest);
        const uint32_t end = peak / 3;
        if (time < kRise) {
            return OnTheWay(loudness, peak, time, kRise);
        }
        if (time < duration) {
            return OnTheWay(peak, end, time - kRise, duration - kRise);
        }
        time -= duration;
        loudness = end;
    }
    return time < kDyingAway ? OnTheWay(loudness, 0, time, kDyingAway) : 0;
}

}  // namespace board
