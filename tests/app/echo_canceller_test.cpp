// The echo cancellers: their commands, the latch, the level display.
#include <cstdio>

#include "commands/echo_canceller.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"
#include "tests/app/traced_utility.h"
#include "tests/kit/person.h"

namespace {

using kit::OnUserInterface;

std::string SetMode(const char* code) {
    return std::string("vdapi_AEC_SetMode(") + code + ")";
}

// --- Commands ---

TEST(EchoCancellerCommands, AreTracedWithWhatFailsAndShowNoBox) {
    struct Case {
        UINT command;
        const char* traced;
        std::string call;
        const char* operation;
    };
    TracedUtility utility;
    for (const Case& each : {
             Case{IDM_AEC_INITIALIZE, "9d2a", "vdapi_AEC_Initialize()", "vdapi_AEC_Initialize"},
             Case{IDM_AEC_ON, "9d2e", SetMode("81"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_OFF, "9d2f", SetMode("82"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_LOOPBACK, "9d30", SetMode("83"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_MUTE_ON, "9d31", SetMode("84"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_MUTE_OFF, "9d32", SetMode("88"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_SW_RESET, "9d33", SetMode("8C"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_HW_RESET, "9d34", SetMode("0"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_MODE_1, "9d35", SetMode("90"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_MODE_2, "9d36", SetMode("A0"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_MODE_3, "9d37", SetMode("B0"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_ANS_ON, "9d4a", SetMode("C0"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_ANS_OFF, "9d4b", SetMode("48"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_AGC_ON, "9d4c", SetMode("40"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_AGC_OFF, "9d4d", SetMode("C8"), "vdapi_AEC_SetMode"},
             Case{IDM_AEC_TERMINATE, "9d2b", "vdapi_AEC_Terminate()", "vdapi_AEC_Terminate"},
         }) {
        const std::string announced =
            std::string("HandleAECMode() : vdapi_AEC_SetMode wParam = 0x") + each.traced +
            "; hMenu = 0.\n";
        board::ForgetCalls();
        utility->Command(each.command);
        EXPECT_EQ(ReceivedCalls(), Texts{each.call});
        EXPECT_EQ(utility.NextTrace(), announced);
        board::FailOnce(each.operation, VXD_RESOURCE_FAILURE);
        utility->Command(each.command);
        EXPECT_EQ(utility.NextTrace(), announced) << "a success was traced as well";
        EXPECT_EQ(utility.NextTrace(),
                  std::string("HandleAECMode() : ") + each.operation + " returned error = 0xc.\n");
        kit::ExpectNoBox();
    }
    board::ForgetCalls();
    OnUserInterface([] { HandleAECMode(reinterpret_cast<HMENU>(17), 0x3'9D2C); });
    EXPECT_EQ(utility.NextTrace(),
              "HandleAECMode() : vdapi_AEC_SetMode wParam = 0x9d2c; hMenu = 17.\n");
    EXPECT_EQ(utility.NextTrace(), "HandleAECMode() : Invalid Parameter.\n");
    EXPECT_EQ(ReceivedCalls(), Texts{});
}

// --- The latch ---

class AecLatch : public DialogTest {
  protected:
    AecLatch() : DialogTest(IDM_AEC_LATCH, "Dialog", IDC_AEC_LATCH_OK) {}
};

TEST_F(AecLatch, EachButtonWritesItsCodeAndNeutralBehindItWhereThatIsWanted) {
    EXPECT_EQ(ReceivedCalls(), Texts{});
    board::FailAlways("vdapi_AEC_SetMode", VXD_TIMEOUT_FAILURE);
    for (const bool neutral : {false, true}) {
        if (neutral) {
            EXPECT_EQ(ReceivedOn(IDC_AEC_LATCH_AUTO_NEUTRAL), Texts{});
        }
        for (const auto& [button, code] :
             {std::pair{IDC_AEC_LATCH_NEUTRAL, "0"}, std::pair{IDC_AEC_LATCH_AEC_ON, "1"},
              std::pair{IDC_AEC_LATCH_AEC_OFF, "2"}, std::pair{IDC_AEC_LATCH_LOOPBACK, "3"},
              std::pair{IDC_AEC_LATCH_MUTE_ON, "4"}, std::pair{IDC_AEC_LATCH_MUTE_OFF, "8"},
              std::pair{IDC_AEC_LATCH_SW_RESET, "C"}, std::pair{IDC_AEC_LATCH_MODE_1, "10"},
              std::pair{IDC_AEC_LATCH_MODE_2, "20"}, std::pair{IDC_AEC_LATCH_MODE_3, "30"},
              std::pair{IDC_AEC_LATCH_AGC_ON, "41"}, std::pair{IDC_AEC_LATCH_AGC_OFF, "42"},
              std::pair{IDC_AEC_LATCH_NOISE_ON, "48"}, std::pair{IDC_AEC_LATCH_NOISE_OFF, "44"}}) {
            const Texts expected =
                neutral ? Texts{SetMode(code), SetMode("80")} : Texts{SetMode(code)};
            EXPECT_EQ(ReceivedOn(button), expected);
        }
    }
    EXPECT_FALSE(dialog_.IsEnabled(IDC_AEC_LATCH_NO_EXT_AGC)) << "it has no code";
    Type({{IDC_AEC_LATCH_VALUE, "0x1F"}});
    EXPECT_EQ(ReceivedOn(IDC_AEC_LATCH_WRITE), Texts{SetMode("1F")}) << "no neutral behind a value";
    EXPECT_TRUE(IsInFront());
}

TEST_F(AecLatch, AValueHasThreeFormsAndWhatIsNoneOfThemIsNotWritten) {
    for (const auto& [typed, written] :
         {std::pair{"0x1F", "1F"}, std::pair{"17", "11"}, std::pair{"017", "F"},
          std::pair{"0x12345", "12"}, std::pair{"123456", "4D2"}, std::pair{"-1", "FFFF"}}) {
        Type({{IDC_AEC_LATCH_VALUE, typed}});
        EXPECT_EQ(ReceivedOn(IDC_AEC_LATCH_WRITE), Texts{SetMode(written)}) << typed;
    }
    for (const char* typed : {"", "mode", "0x"}) {
        Type({{IDC_AEC_LATCH_VALUE, typed}});
        EXPECT_EQ(ReceivedOn(IDC_AEC_LATCH_WRITE), Texts{}) << typed;
        EXPECT_EQ(dialog_.FocusedId(), IDC_AEC_LATCH_VALUE);
        EXPECT_EQ(dialog_.Text(IDC_AEC_LATCH_VALUE), typed);
    }
    dialog_.Key(VK_ESCAPE);
    EXPECT_FALSE(dialog_.IsOpen());
    Open();
}

// --- The level display ---

class SaecLevels : public DialogTest {
  protected:
    SaecLevels() : DialogTest(IDM_SAEC_PORTS, "Siemens AEC Ports", IDOK) {}

    // From here on the test keeps the display's clock.
    void TakeTheClock() const {
        EXPECT_TRUE(OnUserInterface([this] { return KillTimer(dialog_.Handle(), 2); }));
    }
    Texts TickAt(uint32_t milliseconds) const {
        board::SetTime(milliseconds);
        board::ForgetCalls();
        PostMessageA(dialog_.Handle(), WM_TIMER, 2, 0);
        kit::Settle();
        return ReceivedCalls();
    }
    Texts Shown() const { return DialogTest::Shown({IDC_SAEC_LEVELS, IDC_SAEC_DECIBELS}); }

    // Until the board has done so many calls.
    static bool WaitForCalls(std::size_t count) {
        const auto start = std::chrono::steady_clock::now();
        while (board::Calls().size() < count) {
            if (std::chrono::steady_clock::now() - start > std::chrono::seconds(10)) {
                return false;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return true;
    }

    static inline const Texts kTick = {
        "vdapi_SAEC_Write(2008B, address) DAFF0000", "vdapi_SAEC_Read(2008C, address)",
        "vdapi_SAEC_Read(20078, address)",           "vdapi_SAEC_Read(2007D, address)",
        "vdapi_SAEC_Write(2008B, address) C0FF0000", "vdapi_SAEC_Read(2008C, address)",
        "vdapi_SAEC_Write(2008B, address) C1FF0000", "vdapi_SAEC_Read(2008C, address)",
    };
};

TEST_F(SaecLevels, ShowWhatIsMeasuredOnceSomebodyAsksForIt) {
    TakeTheClock();
    EXPECT_EQ(TickAt(0), Texts{});
    EXPECT_EQ(Shown(), (Texts{"", ""}));
    kit::DoubleClickRight(dialog_.Control(IDC_SAEC_LEVELS));
    EXPECT_EQ(Shown(), (Texts{"", ""})) << "it waits for the tick";
    PostMessageA(dialog_.Handle(), WM_TIMER, 3, 0);
    EXPECT_EQ(TickAt(0), kTick) << "the other timer is none of it";

    std::set<Texts> shown;
    for (uint32_t second = 1; second <= 60; ++second) {
        EXPECT_EQ(TickAt(1000 * second), kTick);
        shown.insert(Shown());
    }
    EXPECT_GT(shown.size(), 20u) << "levels that hardly move";

    // The gains are those of their own words.
    const auto gainAt = [](uint32_t word) {
        vdapi_SAEC_Write(0x2008B, &word);
        uint32_t value = 0;
        vdapi_SAEC_Read(0x2008C, &value);
        char text[16];
        std::snprintf(text, sizeof text, "0x%04X", static_cast<unsigned>(value));
        return std::string(text);
    };
    EXPECT_NE(gainAt(0xFFC0), gainAt(0xFFC1));
    EXPECT_TRUE(Shown()[0].ends_with(" GX: " + gainAt(0xFFC0) + ",\n GR: " + gainAt(0xFFC1)));

    const uint32_t gain = 0x0A;
    vdapi_SAEC_Write(0x20078, &gain);
    board::StickBits("vdapi_SAEC_Read", 0xFFFF'0000);
    TickAt(60000);
    EXPECT_NE(Shown()[0].find(",\n AGCX: 0x000A,\n AGCR: 0x0600,\n GX: 0x"), std::string::npos);
    board::StickBits("vdapi_SAEC_Read", 0xFFFF'7FFF);
    TickAt(60000);
    EXPECT_EQ(Shown(), (Texts{"LU: 0x7FFF,\n AGCX: 0x7FFF,\n AGCR: 0x7FFF,\n GX: 0x7FFF,\n GR: "
                              "0x7FFF",
                              "LU:  96.3 db,\n GX:  96.3 db,\n GR:  96.3 db"}));
    board::StickBits("vdapi_SAEC_Read", 0xFFFF'FFFF);
    TickAt(60000);
    EXPECT_EQ(Shown()[1], "LU: 192.7 db,\n GX: 192.7 db,\n GR: 192.7 db");
    board::FailAlways("vdapi_SAEC_Read", VXD_TIMEOUT_FAILURE);
    EXPECT_EQ(TickAt(61000), kTick) << "reads may fail";
    EXPECT_EQ(Shown(), (Texts{"LU: 0x0000,\n AGCX: 0x0000,\n AGCR: 0x0000,\n GX: 0x0000,\n GR: "
                              "0x0000",
                              "LU:   0.0 db,\n GX:   0.0 db,\n GR:   0.0 db"}));
    EXPECT_TRUE(IsInFront());
}

TEST_F(SaecLevels, StopWhereNothingCanBeMeasuredUntilTheDialogOpensAgain) {
    kit::DoubleClickRight(dialog_.Control(IDC_SAEC_DECIBELS));
    TakeTheClock();
    TickAt(2000);
    Texts before = Shown();
    // Of "LU", "GX" or "GR": "0x001F".
    const auto level = [&](const char* name) {
        return before[0].substr(before[0].find(name) + 4, 6);
    };
    EXPECT_NE(level("GX"), level("LU"));
    OnUserInterface([this] { SetTimer(dialog_.Handle(), 2, 60000, nullptr); });
    // The writes of the other two addresses may fail: what is read is then the first one's.
    board::SlowDown("vdapi_SAEC_Read", std::chrono::milliseconds(100));
    board::ForgetCalls();
    PostMessageA(dialog_.Handle(), WM_TIMER, 2, 0);
    ASSERT_TRUE(WaitForCalls(2));
    board::FailAlways("vdapi_SAEC_Write", VXD_HARDWARE_FAILURE);
    kit::Settle();
    EXPECT_EQ(ReceivedCalls(), kTick);
    before = Shown();
    EXPECT_EQ(level("GX"), level("LU"));
    EXPECT_EQ(level("GR"), level("LU"));
    board::SucceedAgain();
    board::FailOnce("vdapi_SAEC_Write", VXD_HARDWARE_FAILURE);
    EXPECT_EQ(TickAt(3500), Texts{kTick.front()});
    EXPECT_EQ(Shown(), before);
    EXPECT_FALSE(OnUserInterface([this] { return KillTimer(dialog_.Handle(), 2); })) << "runs on";

    // The display has stayed on, and its own clock ticks once a second.
    dialog_.Press(IDOK);
    const auto start = std::chrono::steady_clock::now();
    Open();
    board::ForgetCalls();
    ASSERT_TRUE(WaitForCalls(2 * kTick.size()));
    const auto twoTicks = std::chrono::steady_clock::now() - start;
    EXPECT_GE(twoTicks, std::chrono::milliseconds(1900));
    EXPECT_LT(twoTicks, std::chrono::milliseconds(8000));
}

TEST_F(SaecLevels, EndWithADialogThatIsClosedInTheMiddleOfASlowTick) {
    OnUserInterface(
        [this] { SendMessageA(dialog_.Handle(), WM_CONTEXTMENU, 0, MAKELPARAM(1, 1)); });
    TakeTheClock();
    EXPECT_EQ(TickAt(0), Texts{}) << "a click asks for a menu, not for levels";
    OnUserInterface([this] { SendMessageA(dialog_.Handle(), WM_CONTEXTMENU, 0, -1); });
    OnUserInterface([this] { SetTimer(dialog_.Handle(), 2, 1000, nullptr); });

    board::ForgetCalls();
    board::SlowDown("vdapi_SAEC_Read", std::chrono::milliseconds(1100));
    PostMessageA(dialog_.Handle(), WM_TIMER, 2, 0);
    ASSERT_TRUE(WaitForCalls(1));
    PostMessageA(dialog_.Handle(), WM_COMMAND, IDCANCEL, 0);
    ASSERT_TRUE(WaitForCalls(2));
    board::SucceedAgain();
    kit::Settle();
    EXPECT_FALSE(dialog_.IsOpen());
    EXPECT_EQ(ReceivedCalls(), kTick) << "the tick is done to its end, and no further one comes";
    Open();
}

}  // namespace
