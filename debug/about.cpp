// The About box: the utility's version and date, today's date, and the revisions that the driver
// reports, asked for each time the box opens.
#include "debug/about.h"

#include <array>
#include <ctime>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

constexpr char kVersion[] = "1.2";
constexpr char kBuildDate[] = "Apr 15 2003";

constexpr std::array kMonths = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};

void ShowToday(HWND dialog) {
    const std::time_t now = std::time(nullptr);
    const std::tm& today = *std::localtime(&now);
    ShowField(dialog, IDC_ABOUT_UPDATED, "%s %d %d",
              kMonths[static_cast<std::size_t>(today.tm_mon)], today.tm_mday, today.tm_year + 1900);
}

const char* VpicName(uint8_t revision) {
    switch (revision) {
        case 0:
            return "*OldVxD*";
        case 2:
            return "AB";
        case 8:
            return "AD";
        default:
            return "??";
    }
}

// A failing driver leaves the cells as they are, so the fields then show zeros.
void ShowRevisions(HWND dialog) {
    uint16_t board = 0;
    uint8_t vpic = 0;
    uint16_t driver = 0;
    uint8_t jade = 0;
    vdapi_GetVersion(&board, &vpic, &driver, &jade);
    ShowField(dialog, IDC_ABOUT_HARDWARE, "0x%01X", board & 0xFFu);
    ShowField(dialog, IDC_ABOUT_VXD, "%d.%d", driver >> 8, driver & 0xFF);
    ShowField(dialog, IDC_ABOUT_JADE, "0x%02X", static_cast<unsigned>(jade));
    ShowField(dialog, IDC_ABOUT_VPIC, "%s", VpicName(vpic));
}

void Open(HWND dialog) {
    ShowField(dialog, IDC_ABOUT_VERSION, "%s", kVersion);
    ShowField(dialog, IDC_ABOUT_DATE, "%s", kBuildDate);
    ShowToday(dialog);
    ShowRevisions(dialog);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDOK, EndWith<IDOK>},
    {IDCANCEL, EndWith<IDCANCEL>},
});

}  // namespace

INT_PTR OpenAbout(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_ABOUT, owner, {Open, kActions});
}
