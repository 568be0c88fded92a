// The About box.
#include <ctime>

#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

using About = CommandTest;

constexpr char kCaption[] = "About  VxD Test  Utility";

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

TEST_F(About, ShowsTheUtilityAndTheDayAndKeepsTheFixedTexts) {
    const std::string before = Today();
    const kit::Dialog about = Ask(IDM_HELP_ABOUT, kCaption);
    const std::string after = Today();
    EXPECT_EQ(Shown(about, {IDC_ABOUT_TITLE, IDC_ABOUT_VERSION, IDC_ABOUT_DATE, IDC_ABOUT_PROCESSOR,
                            IDC_ABOUT_DISK_FREE}),
              (Texts{"VxD\nTest\nUtility", "1.2", "Apr 15 2003", "80486", "240MB"}));
    const std::string updated = about.Text(IDC_ABOUT_UPDATED);
    EXPECT_TRUE(updated == before || updated == after) << updated << " on " << after;
    about.Press(IDOK);
    kit::ExpectNoBox();
}

TEST_F(About, ShowsTheBoardsRevisionsAndZeroesWithoutAReportWhereTheDriverFails) {
    struct Case {
        board::Revisions revisions;
        ResultCode answer;
        Texts shown;
    };
    for (const Case& each :
         {Case{{0x011D, 8, 0x0312, 0x21}, VXD_SUCCESS, {"0x1D", "3.18", "AD", "0x21"}},
          Case{{0x0005, 2, 0x0105, 0x0A}, VXD_SUCCESS, {"0x5", "1.5", "AB", "0x0A"}},
          Case{{0xFFFF, 3, 0xFFFF, 0xFF}, VXD_SUCCESS, {"0xFF", "255.255", "??", "0xFF"}},
          Case{{1, 8, 1, 1}, VXD_HARDWARE_FAILURE, {"0x0", "0.0", "*OldVxD*", "0x00"}},
          Case{{0, 0, 0, 0}, VXD_SUCCESS, {"0x0", "0.0", "*OldVxD*", "0x00"}}}) {
        board::SetRevisions(each.revisions);
        board::FailAlways("vdapi_GetVersion", each.answer);
        const kit::Dialog about = Ask(IDM_HELP_ABOUT, kCaption);
        EXPECT_EQ(Shown(about, {IDC_ABOUT_HARDWARE, IDC_ABOUT_VXD, IDC_ABOUT_VPIC, IDC_ABOUT_JADE}),
                  each.shown);
        about.Press(IDOK);
    }
}

}  // namespace
