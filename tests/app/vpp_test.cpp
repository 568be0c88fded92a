// "Set VPP Mode" and "VPP Statistics".
#include <cstdio>

#include "board/test_picture.h"
#include "driver/kora_dll32.h"
#include "driver/vpp.h"
#include "platform/debug_monitor.h"
#include "res/resource.h"
#include "services/application.h"
#include "tests/app/dialog_test.h"

using namespace std::chrono_literals;

namespace {

constexpr char kWarning[] = "VxD Test - Warning";
constexpr char kSection[] = "VPP";

class SetVppMode : public DialogTest {
  protected:
    SetVppMode() : DialogTest(IDM_VPP_SET_MODE, "Set VPP Mode", IDCANCEL) {}

    // Which of these is enabled: what every frame by frame has, what an interpolation has.
    std::pair<bool, bool> Enabled() const {
        const auto all = [&](std::initializer_list<int> controls) {
            const auto enabled = std::ranges::count_if(
                controls, [&](int control) { return dialog_.IsEnabled(control); });
            EXPECT_TRUE(enabled == 0 || static_cast<std::size_t>(enabled) == controls.size());
            return enabled != 0;
        };
        return {all({1115, 1300, 1301, 1303}),
                all({1302, 1304, 1305, 1119, 1372, 1371, 1114, 1373, 1375, 1374, 1376})};
    }
    Texts Parameters() const { return Shown({1371, 1374, 1376}); }
    void Reopen() {
        dialog_.Press(IDCANCEL);
        Open();
    }
    void Store(const char* key, const char* text) const {
        settings_.Write(kit::kOwnFile, kSection, key, text);
    }
};

TEST_F(SetVppMode, OffersInterpolationFrameByFrameAndItsParametersWithAMethod) {
    EXPECT_EQ(Parameters(), Texts(3, "20"));
    EXPECT_TRUE(dialog_.IsChecked(1116) && dialog_.IsChecked(1301));
    EXPECT_EQ(Enabled(), std::pair(false, false));
    EXPECT_EQ(ReceivedOn(1117), Texts{"vdapi_VIDINLAY_SetFrameDispMode(1)"});
    EXPECT_EQ(Enabled(), std::pair(true, false));
    EXPECT_EQ(ReceivedOn(1303), Texts{}) << "not before it is applied";
    EXPECT_EQ(Enabled(), std::pair(true, true));
    for (const auto& [button, word] :
         {std::pair{1302, "10001"}, std::pair{1303, "10002"}, std::pair{1304, "10004"},
          std::pair{1305, "10008"}, std::pair{1301, "10000"}}) {
        dialog_.Press(button);
        EXPECT_EQ(ReceivedOn(1115), Texts{std::string("vdapi_VPP_SetMode(") + word +
                                          ", address) 14000000 14000000 14000000 00000000 00000000 "
                                          "00000000"});
    }
    EXPECT_EQ(Enabled(), std::pair(true, false));
    dialog_.Press(1303);
    dialog_.Press(1305);
    Type({{1371, "300"}, {1374, "few"}, {1376, "4294967295"}});
    EXPECT_EQ(ReceivedOn(1115), Texts{"vdapi_VPP_SetMode(10008, address) 2C010000 00000000 "
                                      "FFFFFFFF 00000000 00000000 00000000"});
    board::FailAlways("vdapi_VIDINLAY_SetFrameDispMode", VXD_TIMEOUT_FAILURE);
    board::FailAlways("vdapi_VPP_SetMode", VXD_HARDWARE_FAILURE);
    dialog_.Press(1115);
    kit::MeetBox(kWarning, "vdapi_VPP_SetMode: \nVXD_HARDWARE_FAILURE");
    dialog_.Press(1116);
    kit::MeetBox(kWarning, "vdapi_VIDINLAY_SetFrameDispMode: \nVXD_TIMEOUT_FAILURE");
    EXPECT_EQ(Enabled(), std::pair(false, false)) << "as it was chosen";
    board::SucceedAgain();
    EXPECT_EQ(Stored(kSection, "VPP_Mode"), "(none)");
    dialog_.Key(VK_ESCAPE);
    EXPECT_EQ(Stored(kSection, "VPP_Mode"), "65544");
    EXPECT_EQ(Stored(kSection, "FI_FrameRate"), "300");
    EXPECT_EQ(Stored(kSection, "MVEC_ThresholdMin"), "0");
    EXPECT_EQ(Stored(kSection, "MVEC_ThresholdMax"), "4294967295");
    Open();
    EXPECT_EQ(Parameters(), (Texts{"44", "0", "255"}));
    EXPECT_TRUE(dialog_.IsChecked(1116) && dialog_.IsChecked(1305));
    Store("VPP_Mode", "65537");
    Reopen();
    EXPECT_TRUE(dialog_.IsChecked(1305)) << "this run's own";
}

// The word that stands in the settings before the first opening, and the button checked then.
class StoredVppMode : public testing::TestWithParam<std::pair<std::string, int>> {};

TEST_P(StoredVppMode, IsTakenAtTheFirstOpeningOfARun) {
    kit::SettingsFolder settings;
    settings.Write(kit::kOwnFile, kSection, "VPP_Mode", GetParam().first.c_str());
    const kit::Utility utility(settings);
    utility.Command(IDM_VPP_SET_MODE);
    const kit::Dialog dialog = kit::WaitForDialog("Set VPP Mode");
    EXPECT_TRUE(dialog.IsChecked(GetParam().second)) << GetParam().first;
    dialog.Press(IDCANCEL);
}

INSTANTIATE_TEST_SUITE_P(Words, StoredVppMode,
                         testing::Values(std::pair{"65540", 1304}, std::pair{"65539", 1303},
                                         std::pair{"2", 1303}, std::pair{"linear", 1301},
                                         std::pair{"65540x", 1301}, std::pair{"", 1301}));

// --- Statistics ---

constexpr std::array kControls{1087, 1084, 1085, 1086, 4100, 4110, 5000, 3200,
                               1078, 1082, 3201, 3301, 3202, 3302, 3203, 3303};

class VppStatisticsDialog : public DialogTest {
  protected:
    VppStatisticsDialog() : DialogTest(IDM_VPP_STATISTICS, "VPP Statistics", IDCANCEL) {}

    static VppStatistics Record(std::initializer_list<std::pair<int, MotionVector>> vectors) {
        VppStatistics record{};
        for (const auto& [block, vector] : vectors)
            record.vectors[static_cast<std::size_t>(block)] = vector;
        return record;
    }

    // The dialog is on, with no other driver than the test.
    void EnableWithoutFeed() const {
        dialog_.Press(1401);
        kit::RunStep([] { KORA_DLL_StopVppStatistics(); });
        kit::Settle();
        Tell(WM_VPP_STATIST_INIT);
    }
    void Tell(UINT message) const {
        kit::RunStep([&] { SendMessageA(dialog_.Handle(), message, 0, 0); });
    }
    void Give(const VppStatistics& record) const {
        kit::RunStep([&] {
            SendMessageA(dialog_.Handle(), WM_VPP_STATIST_DATA, 0,
                         reinterpret_cast<LPARAM>(&record));
        });
    }

    using Pixels = std::vector<COLORREF>;
    static Pixels Take(HDC dc, RECT area) {
        Pixels pixels;
        for (LONG y = area.top; y < area.bottom; ++y) {
            for (LONG x = area.left; x < area.right; ++x)
                pixels.push_back(GetPixel(dc, x, y));
        }
        return pixels;
    }
    // Of what a control shows, and of a bitmap.
    Pixels Shown(int control, RECT area) const {
        return kit::OnUserInterface([&] {
            const HDC dc = GetDC(dialog_.Control(control));
            Pixels pixels = Take(dc, area);
            ReleaseDC(dialog_.Control(control), dc);
            return pixels;
        });
    }
    static Pixels OfBitmap(int id, RECT area) {
        return kit::OnUserInterface([&] {
            const HDC memory = CreateCompatibleDC(nullptr);
            const HBITMAP bitmap = LoadBitmapA(AppInstance, MAKEINTRESOURCEA(id));
            const HGDIOBJ before = SelectObject(memory, bitmap);
            Pixels pixels = Take(memory, area);
            SelectObject(memory, before);
            DeleteObject(bitmap);
            DeleteDC(memory);
            return pixels;
        });
    }
    static RECT Cell(int column, int row) {
        return {16 * column, 16 * row, 16 * column + 16, 16 * row + 16};
    }

    // Whether a cell of the map is that of a colour with an arrow, in each pixel.
    bool Shows(int block, int colour, int arrow) const {
        Pixels expected = OfBitmap(107, Cell(colour, 0));
        std::ranges::transform(expected, OfBitmap(108, Cell(arrow, 0)), expected.begin(),
                               std::bit_and());
        return Shown(1003, Cell(block % 22, block / 22)) == expected;
    }
    // Paints over a cell, to see whether it is drawn again.
    void Spoil(int block) const {
        kit::RunStep([&] {
            const HWND map = dialog_.Control(1003);
            const HDC dc = GetDC(map);
            const HBRUSH brush = CreateSolidBrush(RGB(1, 2, 3));
            const RECT cell = Cell(block % 22, block / 22);
            FillRect(dc, &cell, brush);
            DeleteObject(brush);
            ReleaseDC(map, dc);
        });
    }
    bool IsSpoilt(int block) const {
        return Shown(1003, Cell(block % 22, block / 22)) == Pixels(256, RGB(1, 2, 3));
    }
    // The dialog as it opens, whatever it was left with.
    void ExpectFresh() const {
        EXPECT_TRUE(dialog_.IsChecked(1400) && dialog_.IsChecked(1084) && dialog_.IsChecked(4110));
        EXPECT_EQ(Enabled(), 0);
        EXPECT_EQ(DialogTest::Shown({1082, 3301, 3302, 3303}), Texts(4, "--"));
        EXPECT_EQ(dialog_.Rows(3100), 0);
    }
    long Enabled() const {
        return std::ranges::count_if(kControls, [&](int id) { return dialog_.IsEnabled(id); });
    }
};

TEST_F(VppStatisticsDialog, EnablesItsControlsWithTheFeedAndStopsIt) {
    ExpectFresh();
    kit::RunStep([&] { UpdateWindow(dialog_.Handle()); });
    EXPECT_EQ(Shown(1089, {8, 16, 8 + 384, 16 + 28}), OfBitmap(107, {0, 0, 384, 28}));
    board::FailOnce("KORA_DLL_StartVppStatistics", VXD_HARDWARE_FAILURE);
    const Texts failed = ReceivedOn(1401);
    ASSERT_EQ(failed.size(), 2u);
    EXPECT_EQ(failed[1], "KORA_DLL_StopVppStatistics()");
    EXPECT_TRUE(IsInFront());
    EXPECT_EQ(Enabled(), 0);
    dialog_.Press(1401);
    EXPECT_EQ(Enabled(), 16);
    dialog_.Press(4100);
    EXPECT_FALSE(dialog_.IsEnabled(5000));
    dialog_.Press(4110);
    EXPECT_TRUE(dialog_.IsEnabled(5000));
    EXPECT_EQ(ReceivedOn(1400), Texts{"KORA_DLL_StopVppStatistics()"});
    EXPECT_EQ(Enabled(), 0);
    dialog_.Press(1401);
    const HWND closed = dialog_.Handle();
    EXPECT_EQ(ReceivedOn(IDCANCEL), Texts{"KORA_DLL_StopVppStatistics()"});
    EXPECT_EQ(board::GetServices().vpp.window, nullptr);
    EXPECT_FALSE(IsWindow(closed));
    Open();
}

TEST_F(VppStatisticsDialog, ASingleRecordFillsListTimingsAndMapWhenItIsAskedFor) {
    DebugMonitor monitor;
    EnableWithoutFeed();
    VppStatistics record = Record({{7, {3, -2}}, {395, {-128, 127}}});
    record.frame = -3;
    record.extrapolateTime = 60000;
    record.frameProcessTime = 7;
    record.macroblockProcessTime = 65535;
    Give(record);
    EXPECT_EQ(dialog_.Rows(3100), 0);
    dialog_.Press(5000);
    Give(record);
    Give(Record({{7, {1, 1}}}));  // was not asked for
    ASSERT_EQ(dialog_.Rows(3100), 396);
    EXPECT_EQ(dialog_.Row(3100, 0), "000: (  0,  0)");
    EXPECT_EQ(dialog_.Row(3100, 7), "007: (  3, -2)");
    EXPECT_EQ(dialog_.Row(3100, 395), "395: (-128,127)");
    EXPECT_EQ(DialogTest::Shown({1082, 3301, 3302, 3303}), (Texts{"-3", "60000", "7", "65535"}));
    EXPECT_TRUE(Shows(7, 4, 6));
    // One that is asked for is the next that comes, which the continuous map takes.
    dialog_.Press(5000);
    dialog_.Press(4100);
    Give(Record({{7, {2, 0}}}));
    dialog_.Press(4110);
    Give(Record({{7, {4, 0}}}));
    EXPECT_EQ(dialog_.Row(3100, 7), "007: (  3, -2)");
    EXPECT_TRUE(Shows(7, 2, 2));
    Tell(WM_VPP_STATIST_TERM);
    std::string lines;
    while (const auto line = monitor.Next(100ms)) {
        lines += line->text.starts_with("KORA_TST: ") ? line->text : "";
    }
    // Those of the feed's own beginning and end, and of the test's.
    EXPECT_EQ(lines,
              "KORA_TST: WM_VPP_STATIST_INIT\nKORA_TST: WM_VPP_STATIST_TERM\n"
              "KORA_TST: WM_VPP_STATIST_INIT\nKORA_TST: WM_VPP_STATIST_TERM\n");

    dialog_.Press(1085);
    dialog_.Press(IDCANCEL);
    Open();
    ExpectFresh();
    EnableWithoutFeed();
    Give(record);
    EXPECT_EQ(dialog_.Rows(3100), 0) << "asked for before";
    dialog_.Press(5000);
    Give(record);
    EXPECT_TRUE(Shows(7, 4, 6)) << "by magnitude";
}

TEST_F(VppStatisticsDialog, TheMapHasAColourForEachLengthAndAnArrowForEachDirection) {
    EnableWithoutFeed();
    dialog_.Press(4100);
    struct Case {
        int block;
        MotionVector vector;
        std::array<std::pair<int, int>, 3> cells;  // by magnitude, x and y: colour, arrow
    };
    const auto cases = std::to_array<Case>({
        {0, {3, -4}, {{{5, 6}, {3, 2}, {4, 3}}}},
        {21, {-3, 4}, {{{5, 8}, {3, 1}, {4, 4}}}},
        {22, {-1, -1}, {{{1, 5}, {1, 1}, {1, 3}}}},
        {200, {16, 16}, {{{23, 7}, {16, 2}, {16, 4}}}},
        {374, {-24, 0}, {{{23, 1}, {23, 1}, {0, 0}}}},
        {395, {20, -128}, {{{23, 6}, {20, 2}, {23, 3}}}},
    });
    VppStatistics record{};
    for (const Case& tried : cases)
        record.vectors[static_cast<std::size_t>(tried.block)] = tried.vector;
    Give(record);
    constexpr std::array kButtons{1084, 1085, 1086};
    for (std::size_t shown = 0; shown < kButtons.size(); ++shown) {
        dialog_.Press(kButtons[shown]);
        for (const Case& tried : cases) {
            EXPECT_TRUE(Shows(tried.block, tried.cells[shown].first, tried.cells[shown].second))
                << tried.block << " by " << kButtons[shown];
        }
    }
}

TEST_F(VppStatisticsDialog, OnlyWhatChangesIsDrawnAndOfManyRecordsTheNewest) {
    // Inside the map: at its edge Windows draws the frame again.
    EnableWithoutFeed();
    dialog_.Press(4100);
    Give(Record({{27, {5, 0}}, {28, {6, 0}}}));
    Give(Record({{27, {5, 0}}, {28, {6, 0}}}));
    Spoil(27);
    Spoil(28);
    kit::RunStep([&] {
        InvalidateRect(dialog_.Handle(), nullptr, FALSE);
        UpdateWindow(dialog_.Handle());
    });
    EXPECT_TRUE(IsSpoilt(27) && IsSpoilt(28));
    Give(Record({{27, {5, 0}}, {28, {7, 0}}}));
    EXPECT_TRUE(IsSpoilt(27));
    EXPECT_TRUE(Shows(28, 7, 2));

    // All in one go, as when the map is slower than its records; one of them differs in between.
    std::array<VppStatistics, 1000> many{};
    for (std::size_t i = 0; i < many.size(); ++i) {
        many[i] = Record({{27, {static_cast<int8_t>(i == 500 ? 9 : 5), 0}},
                          {28, {0, static_cast<int8_t>(i % 20)}}});
    }
    kit::RunStep([&] {
        for (const VppStatistics& record : many) {
            PostMessageA(dialog_.Handle(), WM_VPP_STATIST_DATA, 0,
                         reinterpret_cast<LPARAM>(&record));
        }
    });
    kit::Settle();
    EXPECT_TRUE(Shows(28, 19, 4));
    EXPECT_TRUE(IsSpoilt(27));
    // Those behind the end are not shown any more.
    kit::RunStep([&] {
        PostMessageA(dialog_.Handle(), WM_VPP_STATIST_DATA, 0, reinterpret_cast<LPARAM>(&many[3]));
        PostMessageA(dialog_.Handle(), WM_VPP_STATIST_TERM, 0, 0);
        PostMessageA(dialog_.Handle(), WM_VPP_STATIST_DATA, 0, reinterpret_cast<LPARAM>(&many[8]));
    });
    kit::Settle();
    EXPECT_TRUE(Shows(28, 3, 4));
}

// What the test picture does is what the list tells: of 50 milliseconds, in which two frames have
// come.
TEST_F(VppStatisticsDialog, TellsOfTheTestPicturesMotion) {
    constexpr uint32_t kFrame = 1'000'003;
    board::SetTime(kFrame * 40 + 9);
    dialog_.Press(1401);
    dialog_.Press(5000);
    for (int tries = 0; dialog_.Rows(3100) == 0 && tries < 500; ++tries)
        std::this_thread::sleep_for(10ms);
    ASSERT_EQ(dialog_.Rows(3100), 396);
    EXPECT_EQ(dialog_.Text(1082), std::to_string(static_cast<int8_t>(kFrame)));
    int moving = 0;
    for (int block = 0; block < 396; ++block) {
        const board::Motion motion = board::MotionOf(board::VideoChannel::kRemote, kFrame - 2,
                                                     kFrame, block % 22, block / 22);
        char line[32];
        std::snprintf(line, sizeof line, "%03d: (%3d,%3d)", block, motion.x, motion.y);
        EXPECT_EQ(dialog_.Row(3100, block), line);
        moving += motion != board::Motion{};
    }
    EXPECT_GT(moving, 66) << "the stripes and more";
}

}  // namespace
