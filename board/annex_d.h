// The Annex-D service, which transfers still images during a call. What it has to give is an image
// of its own, that of no camera: a wedge of greys, 44 by 36 bytes, from top left to bottom right.
#pragma once

#include <cstdint>

#include "driver/result_code.h"

namespace board {

// Gives the image's bytes, as many as are asked for and as there are, their number, and behind them
// two bytes that are not counted: their sum, low byte first.
ResultCode DownloadAnnexD(uint32_t channel, uint32_t size, uint8_t* buffer, uint32_t* byteCount);

}  // namespace board
