#include "board/annex_d.h"

#include <algorithm>
#include <array>

namespace board {
namespace {

constexpr uint32_t kImageChannel = 1;
constexpr uint32_t kWidth = 44;
constexpr uint32_t kHeight = 36;

constexpr std::array<uint8_t, kWidth * kHeight> DrawWedge() {
    constexpr uint32_t kSteps = kWidth + kHeight - 2;
    std::array<uint8_t, kWidth * kHeight> image{};
    for (uint32_t i = 0; i < image.size(); ++i) {
        image[i] = static_cast<uint8_t>((i % kWidth + i / kWidth) * 0xFF / kSteps);
    }
    return image;
}

constexpr auto kImage = DrawWedge();

}  // namespace

ResultCode DownloadAnnexD(uint32_t channel, uint32_t size, uint8_t* buffer, uint32_t* byteCount) {
    if (channel != kImageChannel || !buffer || !byteCount) {
        return VXD_INVALID_PARAMETER;
    }
    *byteCount = std::min<uint32_t>(size, kImage.size());
    uint8_t* end = std::copy_n(kImage.begin(), *byteCount, buffer);
    uint32_t sum = 0;
    for (const uint8_t* byte = buffer; byte != end; ++byte) {
        sum += *byte;
    }
    *end++ = static_cast<uint8_t>(sum);
    *end = static_cast<uint8_t>(sum >> 8);
    return VXD_SUCCESS;
}

}  // namespace board
