// The moving test picture, and what freezes it on the screen.
#include "board/test_picture.h"
#include "tests/board/board_test.h"

using board::DrawPicture;
using board::Motion;
using board::MotionOf;
using board::VideoChannel;

namespace {

constexpr int kSide = board::kMacroblockSide;

class Frame {
  public:
    Frame(VideoChannel channel, uint32_t number) { DrawPicture(channel, number, pixels_); }

    // How many of a macroblock's pixels were in `before`, as far away as `moved` says.
    int CountMoved(const Frame& before, int column, int row, Motion moved) const {
        int count = 0;
        for (int y = row * kSide; y < (row + 1) * kSide; ++y) {
            for (int x = column * kSide; x < (column + 1) * kSide; ++x) {
                count += before.At(x - moved.x, y - moved.y) == At(x, y) ? 1 : 0;
            }
        }
        return count;
    }

    // Those out of the picture are of no colour.
    uint32_t At(int x, int y) const {
        if (x < 0 || y < 0 || x >= board::kPictureWidth || y >= board::kPictureHeight) {
            return 0xFFFFFFFF;
        }
        return pixels_[static_cast<size_t>(y * board::kPictureWidth + x)];
    }

  private:
    std::vector<uint32_t> pixels_;
};

}  // namespace

// Looks at every macroblock of many frames: its motion tells where its pixels were in the frame
// before, but for edges and for what was behind something then.
TEST(TestPicture, MovesAsItIsSaidTo) {
    for (const VideoChannel channel : {VideoChannel::kLocal, VideoChannel::kRemote}) {
        int whole = 0;
        int moving = 0;
        Motion most;
        constexpr uint32_t kFirst = 1'000'000;
        constexpr uint32_t kLast = kFirst + 60;
        Frame before(channel, kFirst);
        for (uint32_t number = kFirst + 1; number <= kLast; ++number) {
            const Frame now(channel, number);
            for (int row = 0; row < board::kMacroblockRows; ++row) {
                for (int column = 0; column < board::kMacroblockColumns; ++column) {
                    const Motion motion = MotionOf(channel, number - 1, number, column, row);
                    if (motion == Motion{}) {
                        continue;
                    }
                    EXPECT_GE(row, 3) << "the title stands";
                    ++moving;
                    most.x = std::max(most.x, std::abs(motion.x));
                    most.y = std::max(most.y, std::abs(motion.y));
                    const int moved = now.CountMoved(before, column, row, motion);
                    whole += moved == kSide * kSide ? 1 : 0;
                }
            }
            before = now;
        }
        EXPECT_GT(moving, 60 * 66);
        EXPECT_GT(whole, moving * 6 / 10);
        EXPECT_GE(most.x, 14);
        EXPECT_GE(most.y, 14);
        EXPECT_LE(std::max(most.x, most.y), 23);
    }
}

TEST(TestPicture, AddsUpMotionOverSeveralFramesAndTellsItsChannelsApart) {
    // The middle stripe of the three at the bottom.
    EXPECT_EQ(MotionOf(VideoChannel::kRemote, 100, 103, 5, 16), (Motion{-21, 0}));
    EXPECT_EQ(MotionOf(VideoChannel::kLocal, 100, 101, 5, 16), (Motion{7, 0}));
    const Frame local(VideoChannel::kLocal, 7);
    const Frame remote(VideoChannel::kRemote, 7);
    EXPECT_NE(local.At(2, 2), remote.At(2, 2));
    // The counter at the upper right shows the frame's number in its last digit.
    const Frame next(VideoChannel::kLocal, 8);
    EXPECT_LT(next.CountMoved(local, 20, 1, {}), kSide * kSide);
}

using VideoInlay = BoardTest;

TEST_F(VideoInlay, FreezesAndRunsWhateverTheDisplayModeIs) {
    board::SetTime(40 * 500 + 39);
    const auto inlay = [] { return board::GetServices().videoInlay; };
    EXPECT_EQ(vdapi_VIDINLAY_SetFrameDispMode(1), VXD_SUCCESS);
    EXPECT_EQ(vdapi_VIDINLAY_SetFrameDispMode(0xF0), VXD_SUCCESS);
    EXPECT_EQ(inlay().frozenFrame, 500u);
    EXPECT_EQ(inlay().displayMode, 1u);
    board::SetTime(40 * 600);
    EXPECT_EQ(vdapi_VIDINLAY_SetFrameDispMode(0xF0), VXD_SUCCESS);
    EXPECT_EQ(inlay().frozenFrame, 500u) << "it stands already";
    EXPECT_EQ(vdapi_VIDINLAY_SetFrameDispMode(0x0F), VXD_SUCCESS);
    EXPECT_FALSE(inlay().frozenFrame);
    EXPECT_EQ(inlay().displayMode, 1u);
}
