// The About box.
#include <gtest/gtest.h>

#include <ctime>

#include "board/control.h"
#include "debug/about.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

kit::Dialog Open(const kit::Utility& utility) {
    utility.Choose(IDM_HELP_ABOUT);
    return kit::WaitForDialog("About  VxD Test  Utility");
}

// "Mar 5 2026" for the fifth of March.
std::string Today() {
    const std::time_t now = std::time(nullptr);
    char day[32];
    std::strftime(day, sizeof day, "%b %d %Y", std::localtime(&now));
    std::string text = day;
    if (text[4] == '0')
        text.erase(4, 1);
    return text;
}

TEST(About, ShowsTheUtilityAndTheDayAndKeepsTheFixedTexts) {
    const kit::Utility utility;
    const std::string before = Today();
    const kit::Dialog about = Open(utility);
    const std::string after = Today();
    EXPECT_EQ(about.Text(IDC_ABOUT_TITLE), "VxD\nTest\nUtility");
    EXPECT_EQ(about.Text(IDC_ABOUT_VERSION), "1.2");
    EXPECT_EQ(about.Text(IDC_ABOUT_DATE), "Apr 15 2003");
    const std::string updated = about.Text(IDC_ABOUT_UPDATED);
    EXPECT_TRUE(updated == before || updated == after) << updated << " on " << after;
    EXPECT_EQ(about.Text(IDC_ABOUT_PROCESSOR), "80486");
    EXPECT_EQ(about.Text(IDC_ABOUT_DISK_FREE), "240MB");
    about.Press(IDOK);
    kit::ExpectNoBox();
}

TEST(About, GivesTheButtonThatClosedIt) {
    const kit::Utility utility;
    INT_PTR given = 0;
    const auto open = [&] {
        kit::BeginStep([&] { given = OpenAbout(GetModuleHandleA(nullptr), utility.Window()); });
        return kit::WaitForDialog("About  VxD Test  Utility");
    };
    const auto result = [&] { return kit::OnUserInterface([&] { return given; }); };
    open().Press(IDOK);
    EXPECT_EQ(result(), 1);
    open().Key(VK_ESCAPE);
    EXPECT_EQ(result(), 2);
    kit::ExpectNoBox();
}

TEST(About, ShowsTheBoardsRevisions) {
    struct Case {
        board::Revisions revisions;
        const char* hardware;
        const char* driver;
        const char* vpic;
        const char* jade;
    };
    const kit::Utility utility;
    for (const Case& each : {Case{{0x011D, 8, 0x0312, 0x21}, "0x1D", "3.18", "AD", "0x21"},
                             Case{{0x0005, 2, 0x0105, 0x0A}, "0x5", "1.5", "AB", "0x0A"},
                             Case{{0xFFFF, 3, 0xFFFF, 0xFF}, "0xFF", "255.255", "??", "0xFF"},
                             Case{{0, 0, 0, 0}, "0x0", "0.0", "*OldVxD*", "0x00"}}) {
        board::SetRevisions(each.revisions);
        const kit::Dialog about = Open(utility);
        EXPECT_EQ(about.Text(IDC_ABOUT_HARDWARE), each.hardware);
        EXPECT_EQ(about.Text(IDC_ABOUT_VXD), each.driver);
        EXPECT_EQ(about.Text(IDC_ABOUT_VPIC), each.vpic);
        EXPECT_EQ(about.Text(IDC_ABOUT_JADE), each.jade);
        about.Press(IDOK);
    }
}

TEST(About, AFailureIsNotReportedAndShowsZeroes) {
    const kit::Utility utility;
    board::FailAlways("vdapi_GetVersion", VXD_HARDWARE_FAILURE);
    const kit::Dialog about = Open(utility);
    EXPECT_EQ(about.Text(IDC_ABOUT_HARDWARE), "0x0");
    EXPECT_EQ(about.Text(IDC_ABOUT_VXD), "0.0");
    EXPECT_EQ(about.Text(IDC_ABOUT_VPIC), "*OldVxD*");
    EXPECT_EQ(about.Text(IDC_ABOUT_JADE), "0x00");
    about.Press(IDOK);
}

}  // namespace
