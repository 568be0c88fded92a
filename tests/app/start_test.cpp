// How the utility starts, keeps its window and ends.
#include "app/start.h"
#include "board/control.h"
#include "driver/kora_dll32.h"
#include "driver/shared_words.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

using kit::OnUserInterface;

// The operations called since the last ForgetCalls, in order.
std::string CallNames() {
    std::string names;
    for (const board::Call& call : board::Calls())
        names += (names.empty() ? "" : " ") + call.operation;
    return names;
}

TEST(Start, OpensAndClosesTheLibrariesInOrder) {
    kit::Utility utility;
    EXPECT_EQ(CallNames(),
              "vdapi_Initialize vdapi_GetVersion KORA_DLL_Initialize KORA_DLL_GetSharedTable "
              "KORA_DLL_Attach");
    EXPECT_EQ(board::Calls().front().arguments.front().value, 0u);
    const Slot* table = KORA_DLL_GetSharedTable();
    for (std::size_t slot = 0; slot < 4; ++slot)
        EXPECT_EQ(table[slot], SharedWordSlots()[slot]) << "slot " << slot;
    board::ForgetCalls();
    EXPECT_EQ(utility.Close(), 0);
    EXPECT_EQ(CallNames(), "vdapi_Terminate KORA_DLL_Terminate");
}

TEST(Start, ClosesTheCommandLibraryWhenTheWindowIsDestroyed) {
    kit::Utility utility;
    board::ForgetCalls();
    kit::RunStep([] { DestroyWindow(FindWindowA("VxDTest", nullptr)); });
    EXPECT_EQ(utility.WaitForEnd(), 0);
    EXPECT_EQ(CallNames(), "vdapi_Terminate KORA_DLL_Terminate");
}

TEST(Start, EachCloseBeforeTheEndClosesTheCommandLibrary) {
    kit::Utility utility;
    board::ForgetCalls();
    kit::RunStep([] {
        for (int closed = 0; closed < 2; ++closed)
            PostMessageA(FindWindowA("VxDTest", nullptr), WM_CLOSE, 0, 0);
    });
    EXPECT_EQ(utility.WaitForEnd(), 0);
    EXPECT_EQ(CallNames(), "vdapi_Terminate vdapi_Terminate KORA_DLL_Terminate");
}

TEST(Start, APreviousInstanceEndsItAtOnce) {
    EXPECT_EQ(kit::RunToEnd(reinterpret_cast<HINSTANCE>(1)), 1);
    EXPECT_EQ(CallNames(), "");
}

TEST(Start, AFailingDriverLibraryEndsItQuietly) {
    const kit::SettingsFolder settings;
    board::FailAlways("KORA_DLL_Initialize", VXD_RESOURCE_FAILURE);
    EXPECT_EQ(kit::RunToEnd(nullptr), 0);
    EXPECT_EQ(CallNames(), "vdapi_Initialize vdapi_GetVersion KORA_DLL_Initialize");
}

TEST(Start, WithoutABoardItWarnsAndEachOperationNamesItsFailure) {
    kit::SettingsFolder settings;
    settings.Write(kit::kBoardFile, "Board", "Present", "0");
    const kit::Utility utility(settings);
    kit::MeetBox("GetVersion", "Warning - Tessil Board not found.", IDOK,
                 MB_OK | MB_ICONEXCLAMATION);
    utility.Choose(IDM_FILE_RESET);
    kit::MeetBox("VxD Test - Warning", "vdapi_AUXDEV_Initialize: \nVXD_HARDWARE_FAILURE");
    kit::MeetBox("VxD Test - Warning", "vdapi_AUXDEV_HardwareReset: \nVXD_HARDWARE_FAILURE");
    kit::ExpectNoBox();
}

// How often a message queue was asked for; none is granted.
int asked = 0;
BOOL WINAPI GrantNone(int) {
    ++asked;
    return FALSE;
}

TEST(Start, WithoutAMessageQueueOfAnySizeItSaysSoAndEnds) {
    auto started = kit::StartProgram([] {
        const HINSTANCE instance = GetModuleHandleA(nullptr);
        return InitApplication(instance) && InitInstance(instance, SW_SHOWNORMAL, GrantNone) ? 1
                                                                                             : 0;
    });
    kit::MeetBox("VxDTest - Fatal Error", "InitInstance: Failed setting message Queue!", IDOK,
                 MB_OK | MB_ICONEXCLAMATION);
    EXPECT_EQ(started.get(), 0);
    EXPECT_EQ(asked, 24) << "32 messages down to 9";
    EXPECT_EQ(CallNames(), "") << "no window was made";
}

RECT PlaceOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

TEST(Window, HasItsTitleAndTheSystemsSizeInTheCorner) {
    const kit::Utility utility;
    kit::RunStep([] {
        const HWND window = FindWindowA("VxDTest", nullptr);
        char title[64];
        GetWindowTextA(window, title, sizeof title);
        EXPECT_STREQ(title, "VxD Test Utility");
        // Another window without limits of its own shows what the system chooses.
        kit::RegisterWindowClass("Plain", DefWindowProcA);
        const RECT chosen =
            PlaceOf(CreateWindowExA(0, "Plain", "", WS_OVERLAPPEDWINDOW, 0, 0, CW_USEDEFAULT, 0,
                                    nullptr, nullptr, GetModuleHandleA(nullptr), nullptr));
        const RECT place = PlaceOf(window);
        EXPECT_EQ(place.left, 0);
        EXPECT_EQ(place.top, 0);
        EXPECT_EQ(place.right, std::min<LONG>(chosen.right, 900));
        EXPECT_EQ(place.bottom, std::min<LONG>(chosen.bottom, 180));
    });
}

TEST(Window, TakesThePlaceThatIsSuggestedOnAnotherMonitor) {
    const kit::Utility utility;
    kit::RunStep([&utility] {
        constexpr RECT kSuggested{40, 30, 540, 180};
        SendMessageA(utility.Window(), WM_DPICHANGED, MAKEWPARAM(144, 144),
                     reinterpret_cast<LPARAM>(&kSuggested));
        const RECT place = PlaceOf(utility.Window());
        EXPECT_EQ(place.left, kSuggested.left);
        EXPECT_EQ(place.top, kSuggested.top);
        EXPECT_EQ(place.right, kSuggested.right);
        EXPECT_EQ(place.bottom, kSuggested.bottom);
    });
}

TEST(Window, ShowsTheNewerBoardsMenuAndGrowsNoLargerThanItsLimit) {
    const kit::Utility utility;
    EXPECT_EQ(utility.MenuBar(),
              "&File|&Debug Levels|VCP&Xi|I&2C|Anl&g Camera|&Stream|A&KM|A&EC|&Jade|&AUXDEV|&486|"
              "&USS|Au&dio|&Help");
    const RECT rect = OnUserInterface([&] {
        SetWindowPos(utility.Window(), nullptr, 0, 0, 2000, 2000, SWP_NOMOVE | SWP_NOZORDER);
        return PlaceOf(utility.Window());
    });
    EXPECT_EQ(rect.right - rect.left, 900);
    EXPECT_EQ(rect.bottom - rect.top, 180);
}

COLORREF ColourAt(const kit::Utility& utility, int x, int y) {
    return OnUserInterface([&] {
        const HDC dc = GetDC(utility.Window());
        const COLORREF colour = GetPixel(dc, x, y);
        ReleaseDC(utility.Window(), dc);
        return colour;
    });
}

TEST(Window, PaintsWhatIsDamagedInANewColourAndLeavesTheRest) {
    const kit::Utility utility;
    OnUserInterface([&] { UpdateWindow(utility.Window()); });
    const COLORREF before = ColourAt(utility, 5, 5);
    OnUserInterface([&] {
        const RECT damaged{20, 20, 40, 40};
        InvalidateRect(utility.Window(), &damaged, FALSE);
        UpdateWindow(utility.Window());
    });
    EXPECT_NE(ColourAt(utility, 25, 25), before);
    EXPECT_EQ(ColourAt(utility, 5, 5), before);
    utility.Choose(IDM_HELP_CHANGE_COLOR);
    OnUserInterface([&] { UpdateWindow(utility.Window()); });
    EXPECT_NE(ColourAt(utility, 5, 5), before);
    EXPECT_EQ(ColourAt(utility, 5, 5), ColourAt(utility, 25, 25));
}

bool IsTopmost(const kit::Utility& utility) {
    return OnUserInterface(
        [&] { return (GetWindowLongPtrA(utility.Window(), GWL_EXSTYLE) & WS_EX_TOPMOST) != 0; });
}

TEST(AlwaysOnTop, IsToggledShownAndWrittenToBothFiles) {
    kit::SettingsFolder settings;
    const kit::Utility utility(settings);
    EXPECT_FALSE(IsTopmost(utility) || utility.IsChecked(IDM_HELP_ALWAYS_ON_TOP));
    for (const char* expected : {"1", "0"}) {
        utility.Choose(IDM_HELP_ALWAYS_ON_TOP);
        const bool on = *expected == '1';
        EXPECT_EQ(IsTopmost(utility), on);
        EXPECT_EQ(utility.IsChecked(IDM_HELP_ALWAYS_ON_TOP), on);
        EXPECT_EQ(settings.Read(kit::kOwnFile, "KORA_TST", "AlwaysOnTop"), expected);
        EXPECT_EQ(settings.Read(kit::kSharedFile, "KORA_TST", "AlwaysOnTop"), expected);
    }
}

TEST(AlwaysOnTop, IsRememberedFromTheUtilitysOwnFile) {
    kit::SettingsFolder settings;
    settings.Write(kit::kOwnFile, "KORA_TST", "AlwaysOnTop", "1");
    const kit::Utility utility(settings);
    EXPECT_TRUE(IsTopmost(utility));
    EXPECT_TRUE(utility.IsChecked(IDM_HELP_ALWAYS_ON_TOP));
}

TEST(Led, BlinksOnceASecondUntilItIsSwitchedOff) {
    kit::SettingsFolder settings;
    settings.Write(kit::kOwnFile, "KORA_TST", "Menu", "3");
    const kit::Utility utility(settings);
    board::ForgetCalls();
    const auto start = std::chrono::steady_clock::now();
    utility.Choose(IDM_DEBUG_LED);
    EXPECT_TRUE(utility.IsChecked(IDM_DEBUG_LED));
    EXPECT_EQ(CallNames(), "vdapi_AUXDEV_Initialize");
    while (!board::IsLedLit() && std::chrono::steady_clock::now() - start < std::chrono::seconds(5))
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const auto lit = std::chrono::steady_clock::now() - start;
    EXPECT_GE(lit, std::chrono::milliseconds(950));
    EXPECT_LE(lit, std::chrono::milliseconds(1500));
    PostMessageA(utility.Window(), WM_TIMER, 1, 0);
    kit::RunStep([] {});
    EXPECT_FALSE(board::IsLedLit());
    utility.Choose(IDM_DEBUG_LED);
    EXPECT_FALSE(utility.IsChecked(IDM_DEBUG_LED));
    EXPECT_EQ(board::Calls().back().operation, "vdapi_AUXDEV_Terminate");
}

TEST(Led, AFailureIsShownOnceAndTheMarkStays) {
    const kit::Utility utility;
    board::FailAlways("vdapi_AUXDEV_Initialize", VXD_HARDWARE_FAILURE);
    board::FailAlways("vdapi_AUXDEV_Activate", VXD_CONFIGURATION_NOT_SET);
    utility.Command(IDM_DEBUG_LED);
    kit::MeetBox("VxD Test - Warning", "vdapi_AUXDEV_Initialize: \nVXD_HARDWARE_FAILURE");
    // The timer runs all the same; its first step is reported and stops it.
    kit::MeetBox("VxD Test - Warning",
                 "vdapi_AUXDEV_Activate: AUXDEV_FEATURE_LED: \nVXD_CONFIGURATION_NOT_SET");
    board::ForgetCalls();
    std::this_thread::sleep_for(std::chrono::milliseconds(1200));
    EXPECT_EQ(CallNames(), "");
    // Switching it off stops what had never started.
    utility.Command(IDM_DEBUG_LED);
    kit::MeetBox("VxD Test - Warning", "vdapi_AUXDEV_Terminate: \nVXD_CONFIGURATION_NOT_SET");
    EXPECT_EQ(CallNames(), "vdapi_AUXDEV_Terminate");
}

TEST(Menus, TheContextMenuSwitchesBoardsAndTheChoiceIsRemembered) {
    kit::SettingsFolder settings;
    const kit::Utility utility(settings);
    utility.Choose(IDM_HELP_ALWAYS_ON_TOP);
    PostMessageA(utility.Window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(utility.Window()), -1);
    kit::RunStep([] {});
    for (const WPARAM key : {VK_DOWN, VK_RETURN})
        PostMessageA(utility.Window(), WM_KEYDOWN, key, 0);
    kit::RunStep([] {});
    kit::RunStep([] {});
    EXPECT_EQ(utility.MenuBar().substr(0, 24), "&File|&Debug|&PCI/Core|V");
    EXPECT_TRUE(utility.IsChecked(IDM_HELP_ALWAYS_ON_TOP)) << "marks follow to the new bar";
    EXPECT_EQ(settings.Read(kit::kOwnFile, "KORA_TST", "Menu"), "3");
    utility.Command(IDM_MENU_NEWER);
    EXPECT_EQ(utility.MenuBar().substr(0, 20), "&File|&Debug Levels|");
    EXPECT_EQ(settings.Read(kit::kOwnFile, "KORA_TST", "Menu"), "4");
}

TEST(Menus, AnUnknownRememberedNumberShowsTheNewerOne) {
    kit::SettingsFolder settings;
    settings.Write(kit::kOwnFile, "KORA_TST", "Menu", "7");
    const kit::Utility utility(settings);
    EXPECT_EQ(utility.MenuBar().substr(0, 20), "&File|&Debug Levels|");
}

}  // namespace
