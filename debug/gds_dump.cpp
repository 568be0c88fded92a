// "GDS Dump Dialog": has the driver write what one of its modules holds, or all of them, to its
// debug output.
#include "debug/gds_dump.h"

#include <array>

#include "driver/debug_command.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"

namespace {

constexpr auto kModules = std::to_array<NamedNumber>({
    {"All modules", 0xFFFFFFFF}, {"Validity   ", 0},  {"Core       ", 1},  {"Debug      ", 2},
    {"Pmapi      ", 3},          {"Vpic       ", 4},  {"Seq        ", 5},  {"Isac       ", 6},
    {"Iom2       ", 7},          {"Arcofi     ", 8},  {"Jade       ", 9},  {"Auxdev     ", 10},
    {"Vcpxi      ", 11},         {"I2c        ", 12}, {"Camera     ", 13}, {"Eprom      ", 14},
    {"Acif       ", 15},         {"Vidinlay   ", 16}, {"Stream     ", 17}, {"LSD        ", 18},
    {"HSD        ", 19},         {"MLP        ", 20}, {"Bt85x      ", 21}, {"vcpregs    ", 22},
    {"VPP        ", 23},         {"AnnexD     ", 24}, {"MBE        ", 25},
});

void ShowModules(HWND dialog) {
    SendDlgItemMessageA(dialog, IDC_GDS_MODULE, CB_RESETCONTENT, 0, 0);
    AddComboRows(dialog, IDC_GDS_MODULE, kModules);
    SendDlgItemMessageA(dialog, IDC_GDS_MODULE, CB_SETCURSEL, 0, 0);
}

void DumpSelectedModule(HWND dialog) {
    if (!SelectedRow(dialog, IDC_GDS_MODULE))
        return;
    GdsDumpBlock block{SelectedNumber(dialog, IDC_GDS_MODULE)};
    ReportFailure(dialog, CodeOf(vdapi_Debug(TALVERO_DBG_CORE_TR_DUMP_GDS, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_CORE_TR_DUMP_GDS");
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDOK, Accept<DumpSelectedModule>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenGdsDump(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_GDS_DUMP, owner, {ShowModules, kActions});
}
