#include "platform/core/sign.h"

#include <cstdlib>

namespace vxd {
namespace {

constexpr int kPixels = 32;
constexpr UINT kHand = 32513;
constexpr UINT kExclamation = 32515;
constexpr UINT kAsterisk = 32516;

constexpr std::uint32_t kWhite = 0xFFFFFFFFu;
constexpr std::uint32_t kBlack = 0xFF202020u;
constexpr std::uint32_t kYellow = 0xFFF5B800u;
constexpr std::uint32_t kRed = 0xFFC8252Cu;
constexpr std::uint32_t kBlue = 0xFF1E6FC8u;

}  // namespace

// A coloured disc or triangle with a bar and a dot, or a cross.
Pixels DrawSign(UINT number) {
    Pixels sign{kPixels, kPixels, {}};
    sign.data.resize(kPixels * kPixels);
    const bool warning = number == kExclamation;
    const bool information = number == kAsterisk;
    const std::uint32_t ground = warning ? kYellow : number == kHand ? kRed : kBlue;
    const std::uint32_t mark = warning ? kBlack : kWhite;
    for (int y = 0; y < kPixels; ++y) {
        for (int x = 0; x < kPixels; ++x) {
            // Twice the distances from the middle, to stay with whole numbers.
            const int dx = 2 * x - (kPixels - 1);
            const int dy = 2 * y - (kPixels - 1);
            const bool inside =
                warning ? y >= 2 && y < 30 && std::abs(dx) <= y + 1 : dx * dx + dy * dy <= 29 * 29;
            if (!inside)
                continue;
            const bool cross = std::abs(std::abs(dx) - std::abs(dy)) <= 4 && std::abs(dx) <= 13;
            const bool bar =
                std::abs(dx) <= 3 && (information ? y >= 13 && y < 25 : y >= 10 && y < 21);
            const bool dot =
                std::abs(dx) <= 3 && (information ? y >= 7 && y < 11 : y >= 23 && y < 27);
            const bool marked = number == kHand ? cross : bar || dot;
            sign.data[static_cast<std::size_t>(y * kPixels + x)] = marked ? mark : ground;
        }
    }
    return sign;
}

}  // namespace vxd
