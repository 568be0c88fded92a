#include "board/test_picture.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace board {
namespace {

constexpr int kBandHeight = 3 * kMacroblockSide;  // of the title and of the stripes

// A way there and back along one axis, slow at its ends: `reach` pixels to either side of the
// middle, once in `period` frames. An even period; 0 stands still.
struct Swing {
    int reach = 0;
    int period = 0;
    int phase = 0;  // frames

    int At(uint32_t frame) const {
        if (period == 0) {
            return 0;
        }
        const int at = static_cast<int>((frame + static_cast<uint32_t>(phase)) %
                                        static_cast<uint32_t>(period));
        const int half = period / 2;
        const int into = at % half;
        const int distance = 4 * reach * into * (half - into) / (half * half);
        return at < half ? distance : -distance;
    }
};

// A square that swings around the middle of the picture.
struct Square {
    int side;
    uint32_t light;  // it is chequered in these two colours
    uint32_t dark;
    Swing across;
    Swing down;
};

// Those behind lie in front.
constexpr std::array kSquares = {
    Square{64, 0xE8E4D8, 0x6A6458, {64, 64, 0}, {60, 64, 16}},
    Square{48, 0xF2C14E, 0x8A5A10, {140, 88, 0}, {0, 0, 0}},
    Square{48, 0x7FD1AE, 0x1F6B4F, {0, 0, 0}, {70, 44, 5}},
    Square{32, 0xF08A8A, 0x8E2020, {150, 60, 7}, {76, 30, 0}},
};

// The stripes at the bottom, from above; pixels that each goes to the right in a frame.
constexpr std::array kStripeSpeeds = {3, -7, 14};
constexpr int kStripeLength = 64;  // after which a stripe's pattern comes again

struct Look {
    std::string_view title;
    bool mirrored;  // who looks at a local picture sees it as in a mirror
    uint32_t ground;
    uint32_t band;
};

constexpr Look kLocal{"LOCAL", true, 0x274060, 0x16263C};
constexpr Look kRemote{"REMOTE", false, 0x5A3A2E, 0x38201A};

const Look& LookOf(VideoChannel channel) {
    return channel == VideoChannel::kLocal ? kLocal : kRemote;
}

int Direction(VideoChannel channel) {
    return LookOf(channel).mirrored ? -1 : 1;
}

struct Place {
    int left;
    int top;
};

Place PlaceOf(const Square& square, VideoChannel channel, uint32_t frame) {
    return {(kPictureWidth - square.side) / 2 + Direction(channel) * square.across.At(frame),
            (kPictureHeight - square.side) / 2 + square.down.At(frame)};
}

bool Covers(const Square& square, Place place, int x, int y) {
    return x >= place.left && x < place.left + square.side && y >= place.top &&
           y < place.top + square.side;
}

bool IsTitle(int y) {
    return y < kBandHeight;
}

bool IsStripe(int y) {
    return y >= kPictureHeight - kBandHeight;
}

int StripeSpeed(VideoChannel channel, int y) {
    const int stripe = (y - (kPictureHeight - kBandHeight)) / kMacroblockSide;
    return Direction(channel) * kStripeSpeeds[static_cast<size_t>(stripe)];
}

// A canvas that knows its size.
class Canvas {
  public:
    explicit Canvas(std::vector<uint32_t>& pixels) : pixels_(pixels) {
        pixels_.resize(static_cast<size_t>(kPictureWidth * kPictureHeight));
    }

    // Part of a row; what is outside of the picture is left out.
    void FillRow(int left, int right, int y, uint32_t colour) {
        const auto row = pixels_.begin() + y * kPictureWidth;
        std::fill(row + std::clamp(left, 0, kPictureWidth),
                  row + std::clamp(right, 0, kPictureWidth), colour);
    }

    void Fill(int left, int top, int right, int bottom, uint32_t colour) {
        for (int y = std::max(0, top); y < std::min(bottom, kPictureHeight); ++y) {
            FillRow(left, right, y, colour);
        }
    }

  private:
    std::vector<uint32_t>& pixels_;
};

struct Glyph {
    char letter;
    std::array<uint8_t, 7> rows;  // five pixels each, the left one highest
};

constexpr int kGlyphWidth = 5;

constexpr auto kGlyphs = std::to_array<Glyph>({
    {'0', {0b01110, 0b10001, 0b10011, 0b10101, 0b11001, 0b10001, 0b01110}},
    {'1', {0b00100, 0b01100, 0b00100, 0b00100, 0b00100, 0b00100, 0b01110}},
    {'2', {0b01110, 0b10001, 0b00001, 0b00110, 0b01000, 0b10000, 0b11111}},
    {'3', {0b11110, 0b00001, 0b00001, 0b01110, 0b00001, 0b00001, 0b11110}},
    {'4', {0b00010, 0b00110, 0b01010, 0b10010, 0b11111, 0b00010, 0b00010}},
    {'5', {0b11111, 0b10000, 0b11110, 0b00001, 0b00001, 0b10001, 0b01110}},
    {'6', {0b00110, 0b01000, 0b10000, 0b11110, 0b10001, 0b10001, 0b01110}},
    {'7', {0b11111, 0b00001, 0b00010, 0b00010, 0b00100, 0b00100, 0b00100}},
    {'8', {0b01110, 0b10001, 0b10001, 0b01110, 0b10001, 0b10001, 0b01110}},
    {'9', {0b01110, 0b10001, 0b10001, 0b01111, 0b00001, 0b00010, 0b01100}},
    {'A', {0b01110, 0b10001, 0b10001, 0b11111, 0b10001, 0b10001, 0b10001}},
    {'C', {0b01110, 0b10001, 0b10000, 0b10000, 0b10000, 0b10001, 0b01110}},
    {'E', {0b11111, 0b10000, 0b10000, 0b11110, 0b10000, 0b10000, 0b11111}},
    {'L', {0b10000, 0b10000, 0b10000, 0b10000, 0b10000, 0b10000, 0b11111}},
    {'M', {0b10001, 0b11011, 0b10101, 0b10101, 0b10001, 0b10001, 0b10001}},
    {'O', {0b01110, 0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b01110}},
    {'R', {0b11110, 0b10001, 0b10001, 0b11110, 0b10100, 0b10010, 0b10001}},
    {'T', {0b11111, 0b00100, 0b00100, 0b00100, 0b00100, 0b00100, 0b00100}},
});

constexpr int kTextScale = 4;
constexpr int kLetterStep = (kGlyphWidth + 1) * kTextScale;
constexpr uint32_t kTextColour = 0xFFFFFF;

int TextWidth(std::string_view text) {
    return static_cast<int>(text.size()) * kLetterStep - kTextScale;
}

void DrawText(Canvas& canvas, int left, int top, std::string_view text) {
    for (const char letter : text) {
        const auto glyph = std::find_if(kGlyphs.begin(), kGlyphs.end(),
                                        [letter](const Glyph& g) { return g.letter == letter; });
        int y = top;
        for (const int row : glyph->rows) {
            for (int column = 0; column < kGlyphWidth; ++column) {
                const int x = left + column * kTextScale;
                if ((row >> (kGlyphWidth - 1 - column) & 1) != 0) {
                    canvas.Fill(x, y, x + kTextScale, y + kTextScale, kTextColour);
                }
            }
            y += kTextScale;
        }
        left += kLetterStep;
    }
}

// The last six digits of a frame's number.
std::string FrameText(uint32_t frame) {
    constexpr size_t kDigits = 6;
    const std::string digits = std::string(kDigits, '0') + std::to_string(frame);
    return digits.substr(digits.size() - kDigits);
}

void DrawTitle(Canvas& canvas, const Look& look, uint32_t frame) {
    constexpr int kMargin = 16;
    constexpr int kTop = 10;
    canvas.Fill(0, 0, kPictureWidth, kBandHeight, look.band);
    DrawText(canvas, kMargin, kTop, look.title);
    const std::string number = FrameText(frame);
    DrawText(canvas, kPictureWidth - kMargin - TextWidth(number), kTop, number);
}

// The ground bears the lines between the macroblocks.
void DrawGround(Canvas& canvas, const Look& look) {
    const uint32_t line = look.ground + 0x101010;
    canvas.Fill(0, kBandHeight, kPictureWidth, kPictureHeight - kBandHeight, look.ground);
    for (int x = 0; x < kPictureWidth; x += kMacroblockSide) {
        canvas.Fill(x, kBandHeight, x + 1, kPictureHeight - kBandHeight, line);
    }
    for (int y = kBandHeight; y < kPictureHeight - kBandHeight; y += kMacroblockSide) {
        canvas.FillRow(0, kPictureWidth, y, line);
    }
}

void DrawSquare(Canvas& canvas, const Square& square, Place place) {
    constexpr int kChecks = 4;  // a side
    const int check = square.side / kChecks;
    for (int row = 0; row < kChecks; ++row) {
        for (int column = 0; column < kChecks; ++column) {
            const int left = place.left + column * check;
            const int top = place.top + row * check;
            canvas.Fill(left, top, left + check, top + check,
                        (row + column) % 2 == 0 ? square.light : square.dark);
        }
    }
}

// A long and a short bar in each length of the pattern, so that its motion can be seen whichever
// way it goes.
void DrawStripes(Canvas& canvas, VideoChannel channel, uint32_t frame) {
    const Look& look = LookOf(channel);
    for (int top = kPictureHeight - kBandHeight; top < kPictureHeight; top += kMacroblockSide) {
        // The speed times the frame within whole patterns: they are powers of two.
        const uint32_t gone = static_cast<uint32_t>(StripeSpeed(channel, top)) * frame;
        const int start = static_cast<int>(gone % kStripeLength) - kStripeLength;
        canvas.Fill(0, top, kPictureWidth, top + kMacroblockSide, look.band);
        for (int left = start; left < kPictureWidth; left += kStripeLength) {
            canvas.Fill(left, top + 3, left + 28, top + 13, 0xD8D8D8);
            canvas.Fill(left + 40, top + 3, left + 50, top + 13, 0x9098A0);
        }
    }
}

}  // namespace

Motion MotionOf(VideoChannel channel, uint32_t from, uint32_t to, int column, int row) {
    const int x = column * kMacroblockSide + kMacroblockSide / 2;
    const int y = row * kMacroblockSide + kMacroblockSide / 2;
    if (IsTitle(y)) {
        return {};
    }
    if (IsStripe(y)) {
        return {StripeSpeed(channel, y) * static_cast<int>(to - from), 0};
    }
    for (auto square = kSquares.rbegin(); square != kSquares.rend(); ++square) {
        const Place now = PlaceOf(*square, channel, to);
        if (Covers(*square, now, x, y)) {
            const Place before = PlaceOf(*square, channel, from);
            return {now.left - before.left, now.top - before.top};
        }
    }
    return {};
}

void DrawPicture(VideoChannel channel, uint32_t frame, std::vector<uint32_t>& pixels) {
    Canvas canvas(pixels);
    const Look& look = LookOf(channel);
    DrawGround(canvas, look);
    for (const Square& square : kSquares) {
        DrawSquare(canvas, square, PlaceOf(square, channel, frame));
    }
    DrawTitle(canvas, look, frame);
    DrawStripes(canvas, channel, frame);
}

}  // namespace board
