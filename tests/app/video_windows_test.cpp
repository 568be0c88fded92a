// The windows that show the local and the remote video.
#include "board/control.h"
#include "board/test_picture.h"
#include "platform/debug_monitor.h"
#include "res/resource.h"
#include "tests/app/received_calls.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

using board::VideoChannel;
using kit::OnUserInterface;
using kit::Utility;
using Calls = std::vector<std::string>;

constexpr char kClass[] = "VtalveroDVideo";
constexpr char kLocal[] = "Local Video";
constexpr char kRemote[] = "Remote Video";
constexpr char kError[] = "Error opening video window";

HWND VideoWindow(const char* title) {
    return OnUserInterface([title] { return FindWindowA(kClass, title); });
}

RECT PlaceOf(HWND window) {
    return OnUserInterface([window] {
        RECT place{};
        GetWindowRect(window, &place);
        return place;
    });
}

Calls TakeCalls() {
    const Calls calls = ReceivedCalls();
    board::ForgetCalls();
    return calls;
}

// Calls of the utility's start are none of these tests'.
class VideoWindows : public testing::Test {
  protected:
    VideoWindows() { board::ForgetCalls(); }

    Utility utility_;
};

TEST_F(VideoWindows, OpenOnceKeepTheirPlaceAndCloseByCommandAlone) {
    const HWND focus = OnUserInterface([] { return GetFocus(); });
    ASSERT_NE(focus, nullptr);
    utility_.Command(IDM_VIDEO_OPEN_LOCAL);
    const HWND local = VideoWindow(kLocal);
    ASSERT_NE(local, nullptr);
    EXPECT_EQ(TakeCalls(), (Calls{"VXDVIDEO_Load()", "VXDVIDEO_ShowLocal(address, 3)"}));
    OnUserInterface([&] {
        EXPECT_EQ(GetFocus(), focus) << "it takes no keyboard by itself";
        EXPECT_TRUE(IsWindowVisible(local));
        EXPECT_EQ(GetWindow(local, GW_OWNER), nullptr);
        const auto style = static_cast<DWORD>(GetWindowLongPtrA(local, GWL_STYLE));
        EXPECT_EQ(style & (WS_THICKFRAME | WS_SYSMENU), static_cast<DWORD>(WS_THICKFRAME));
        RECT client{};
        GetClientRect(local, &client);
        EXPECT_EQ(client.right, board::kPictureWidth);
        EXPECT_EQ(client.bottom, board::kPictureHeight);
        return 0;
    });
    EXPECT_EQ(PlaceOf(local).left, 1);
    EXPECT_EQ(PlaceOf(local).top, 1);

    OnUserInterface(
        [&] { return SetWindowPos(local, nullptr, 30, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER); });
    utility_.Command(IDM_VIDEO_OPEN_LOCAL);
    utility_.Command(IDM_VIDEO_OPEN_ALL);
    kit::ExpectNoBox();
    EXPECT_EQ(VideoWindow(kLocal), local);
    EXPECT_EQ(TakeCalls(), Calls{"VXDVIDEO_ShowRemote(address, 4)"});
    EXPECT_EQ(PlaceOf(local).left, 30);
    const HWND remote = VideoWindow(kRemote);
    ASSERT_NE(remote, nullptr);
    kit::RunStep([&] {
        PostMessageA(remote, WM_SYSCOMMAND, SC_CLOSE, 0);
        PostMessageA(local, WM_CLOSE, 0, 0);
    });
    kit::Settle();
    EXPECT_EQ(VideoWindow(kLocal), local);
    EXPECT_EQ(VideoWindow(kRemote), remote);

    utility_.Command(IDM_VIDEO_CLOSE_REMOTE);
    utility_.Command(IDM_VIDEO_CLOSE_REMOTE);
    EXPECT_EQ(VideoWindow(kRemote), nullptr);
    EXPECT_EQ(VideoWindow(kLocal), local);
    EXPECT_EQ(TakeCalls(), Calls{"VXDVIDEO_StopRemote(4)"});
    utility_.Command(IDM_VIDEO_CLOSE_ALL);
    EXPECT_EQ(VideoWindow(kLocal), nullptr);
    EXPECT_EQ(TakeCalls(), Calls{"VXDVIDEO_StopLocal(3)"});
    utility_.Command(IDM_VIDEO_CLOSE_LOCAL);
    utility_.Command(IDM_VIDEO_FREEZE);
    utility_.Command(IDM_VIDEO_RESTART);
    EXPECT_EQ(TakeCalls(),
              (Calls{"vdapi_VIDINLAY_SetFrameDispMode(F0)", "vdapi_VIDINLAY_SetFrameDispMode(F)"}));
    utility_.Command(IDM_VIDEO_OPEN_REMOTE);
    board::ForgetCalls();
    EXPECT_EQ(utility_.Close(), 0);
    EXPECT_EQ(TakeCalls(), (Calls{"vdapi_Terminate()", "VXDVIDEO_StopRemote(4)", "VXDVIDEO_Free()",
                                  "KORA_DLL_Terminate()"}));
}

// How many of some of the pixels of a window are those of a frame, of how many.
struct Likeness {
    int same = 0;
    int all = 0;
};

Likeness Compare(HWND window, VideoChannel channel, uint32_t frame) {
    std::vector<uint32_t> pixels;
    board::DrawPicture(channel, frame, pixels);
    return OnUserInterface([&] {
        Likeness likeness;
        RECT client{};
        GetClientRect(window, &client);
        const HDC shown = GetDC(window);
        const HDC dc = CreateCompatibleDC(shown);
        const HBITMAP copy = CreateCompatibleBitmap(shown, client.right, client.bottom);
        const HGDIOBJ before = SelectObject(dc, copy);
        BitBlt(dc, 0, 0, client.right, client.bottom, shown, 0, 0, SRCCOPY);
        for (int y = 1; y < board::kPictureHeight; y += 3) {
            for (int x = 2; x < board::kPictureWidth; x += 5) {
                // The middle of what a pixel of the picture covers.
                const COLORREF colour =
                    GetPixel(dc, (2 * x + 1) * client.right / (2 * board::kPictureWidth),
                             (2 * y + 1) * client.bottom / (2 * board::kPictureHeight));
                const uint32_t pixel = pixels[static_cast<size_t>(y * board::kPictureWidth + x)];
                const bool same = GetRValue(colour) == (pixel >> 16 & 0xFF) &&
                                  GetGValue(colour) == (pixel >> 8 & 0xFF) &&
                                  GetBValue(colour) == (pixel & 0xFF);
                likeness.same += same ? 1 : 0;
                ++likeness.all;
            }
        }
        SelectObject(dc, before);
        DeleteObject(copy);
        DeleteDC(dc);
        ReleaseDC(window, shown);
        return likeness;
    });
}

// Waits for a window to show a frame, all of it.
void ExpectFrame(HWND window, VideoChannel channel, uint32_t frame) {
    constexpr int kAttempts = 100;
    constexpr std::chrono::milliseconds kPause{20};
    Likeness likeness;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        likeness = Compare(window, channel, frame);
        if (likeness.same == likeness.all) {
            return;
        }
        std::this_thread::sleep_for(kPause);
    }
    ADD_FAILURE() << "frame " << frame << " does not come: " << likeness.same << " of "
                  << likeness.all;
}

void MoveTo(HWND window, int x, int y, int width, int height) {
    kit::RunStep([=] { SetWindowPos(window, nullptr, x, y, width, height, SWP_NOZORDER); });
}

TEST_F(VideoWindows, ShowThePicturesOfTheCamerasUntilTheyFreeze) {
    constexpr uint32_t kFrame = 4000;
    board::SetTime(40 * kFrame + 5);
    utility_.Command(IDM_VIDEO_OPEN_ALL);
    const HWND local = VideoWindow(kLocal);
    const HWND remote = VideoWindow(kRemote);
    const RECT size = PlaceOf(local);
    const int width = size.right - size.left;
    const int height = size.bottom - size.top;
    MoveTo(local, 20, 320, width, height);
    MoveTo(remote, 420, 320, width, height);
    ExpectFrame(local, VideoChannel::kLocal, kFrame);
    ExpectFrame(remote, VideoChannel::kRemote, kFrame);

    // They go on beside a modal dialog.
    utility_.Command(IDM_HELP_ABOUT);
    const kit::Dialog about = kit::WaitForDialog("About  VxD Test  Utility");
    board::SetTime(40 * (kFrame + 1));
    ExpectFrame(local, VideoChannel::kLocal, kFrame + 1);
    ExpectFrame(remote, VideoChannel::kRemote, kFrame + 1);
    about.Press(IDOK);

    utility_.Command(IDM_VIDEO_FREEZE);
    board::SetTime(40 * (kFrame + 9));
    // A window that gets another size shows the whole picture all the same.
    MoveTo(remote, 420, 320, width + board::kPictureWidth, height + board::kPictureHeight);
    ExpectFrame(remote, VideoChannel::kRemote, kFrame + 1);
    ExpectFrame(local, VideoChannel::kLocal, kFrame + 1);
    utility_.Command(IDM_VIDEO_RESTART);
    ExpectFrame(remote, VideoChannel::kRemote, kFrame + 9);
    ExpectFrame(local, VideoChannel::kLocal, kFrame + 9);
}

// The module's next line of debug output. The board tells of its failures between them.
std::string NextLine(DebugMonitor& monitor) {
    constexpr std::chrono::milliseconds kLineIsComing{5000};
    while (const auto line = monitor.Next(kLineIsComing)) {
        if (line->text.starts_with("kora_vid: ")) {
            return line->text;
        }
    }
    return "no line comes";
}

TEST(VideoWindowRefusals, LeaveNoWindowBehindAndSayWhy) {
    kit::SettingsFolder settings;
    DebugMonitor monitor;
    Utility utility(settings);
    // The driver can't be opened, as where its library is missing; it is tried again each time.
    board::FailAlways("VXDVIDEO_Load", VXD_RESOURCE_FAILURE);
    utility.Command(IDM_VIDEO_OPEN_ALL);
    kit::MeetBox("Open all", kError, IDOK, MB_ICONEXCLAMATION);
    for (int window = 0; window < 2; ++window) {
        EXPECT_EQ(NextLine(monitor), "kora_vid: Error in SendDriverMessage\n");
    }
    EXPECT_EQ(VideoWindow(kLocal), nullptr);
    EXPECT_EQ(VideoWindow(kRemote), nullptr);
    board::SucceedAgain();
    board::FailAlways("VXDVIDEO_ShowRemote", VXD_HARDWARE_FAILURE);
    utility.Command(IDM_VIDEO_OPEN_ALL);
    kit::MeetBox("Open all", kError, IDOK, MB_ICONEXCLAMATION);
    EXPECT_EQ(NextLine(monitor), "kora_vid: Error in SendDriverMessage\n");
    EXPECT_NE(VideoWindow(kLocal), nullptr);
    EXPECT_EQ(VideoWindow(kRemote), nullptr);
    utility.Command(IDM_VIDEO_OPEN_REMOTE);
    kit::MeetBox("Open remote", kError);
    board::SucceedAgain();
    utility.Command(IDM_VIDEO_OPEN_REMOTE);
    kit::ExpectNoBox();
    EXPECT_NE(VideoWindow(kRemote), nullptr);
    utility.Command(IDM_VIDEO_CLOSE_ALL);
    // The first one fails, and the second is opened all the same.
    board::FailAlways("VXDVIDEO_ShowLocal", VXD_HARDWARE_FAILURE);
    utility.Command(IDM_VIDEO_OPEN_ALL);
    kit::MeetBox("Open all", kError);
    EXPECT_EQ(VideoWindow(kLocal), nullptr);
    EXPECT_NE(VideoWindow(kRemote), nullptr);
    board::SetPresent(false);
    board::SucceedAgain();
    utility.Command(IDM_VIDEO_OPEN_LOCAL);
    kit::MeetBox("Open local", kError);
}

}  // namespace
