#include "tests/tour/tour.h"

#include <QApplication>
#include <QMenuBar>
#include <QWidget>

#include "platform/core/resource.h"
#include "platform/qt/snapshot.h"
#include "res/resource.h"
#include "tests/kit/person.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"
#include "tests/tour/tools_view.h"

namespace tour {
namespace {

std::string& Folder() {
    static std::string folder;
    return folder;
}

void TakePicture(const std::string& name) {
    const std::filesystem::path path = std::filesystem::path(Folder()) / (name + ".png");
    std::filesystem::create_directories(Folder());
    EXPECT_TRUE(kit::OnUserInterface([&path] {
        // What waits to be painted belongs in the picture.
        UpdateWindow(FindWindowA("VxDTest", nullptr));
        return vxd::qt::SaveDesktopPicture(path.string());
    })) << path;
}

void ShowMainWindow(const kit::Utility& utility) {
    // As large as it can be dragged, so that the menu bar lies in one row.
    kit::RunStep([&utility] {
        SetWindowPos(utility.Window(), nullptr, 0, 0, 900, 180, SWP_NOMOVE | SWP_NOZORDER);
    });
    TakePicture("main-window");
    // Opens the first popup as Alt and its letter do.
    kit::RunStep([&utility] {
        auto* bar = WidgetOf(utility.Window()).findChild<QMenuBar*>();
        bar->setFocus();
        bar->setActiveAction(bar->actions().front());
    });
    kit::RunStep([] { QApplication::processEvents(); });
    TakePicture("menu");
    kit::RunStep([] { QApplication::activePopupWidget()->close(); });
}

// What is done in a dialog before its picture is taken.
using Act = std::function<void(const kit::Dialog&)>;

Act Press(int button) {
    return [=](const kit::Dialog& dialog) { dialog.Press(button); };
}

Act Type(int field, const char* text) {
    return [=](const kit::Dialog& dialog) { dialog.Type(field, text); };
}

// A row by its text or its number.
template <typename Row>
Act Pick(int list, Row row) {
    return [=](const kit::Dialog& dialog) { dialog.Pick(list, row); };
}

// With all it has to show, it has to fit a small screen.
void DragAndMeasure(const kit::Dialog& dialog) {
    kit::DragThumbToEnd(dialog.Control(IDC_AKM_VOICE_LEFT), 31);
    RECT area{};
    kit::RunStep([&] { GetClientRect(dialog.Handle(), &area); });
    EXPECT_LE(area.right * 3, 1024 * 2) << "at 150 %";
    EXPECT_LE((area.bottom + 30) * 3, 768 * 2) << "with its caption";
}

void ShowLevels(const kit::Dialog& dialog) {
    kit::DoubleClickRight(dialog.Control(IDC_SAEC_LEVELS));
    kit::RunStep([&] { SendMessageA(dialog.Handle(), WM_TIMER, 2, 0); });
}

void WaitForMotion(const kit::Dialog& dialog) {
    for (int tries = 0; dialog.Rows(IDC_MOTION_LIST) == 0 && tries < 500; ++tries)
        Sleep(10);
}

// A command and the dialog that it opens, by the number of its template.
struct Stop {
    UINT command;
    int dialog;
    const char* picture;
    std::vector<Act> acts;
    int leave = 0;  // the button where Escape is no way out
};

// Every dialog has one.
const Stop kStops[] = {
    {IDM_FILE_SEND_RAW_COMMAND,
     IDD_RAW_COMMAND,
     "send-raw-command",
     {Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_GET_VER"), Press(IDC_RAW_SEND)}},
    {IDM_VPIC_PORTS,
     IDD_VPIC_PORTS,
     "vpic-ports",
     {Pick(IDC_BROWSER_LIST, 4), Type(IDC_BROWSER_VALUE, "0x00C0FFEE"), Press(IDC_BROWSER_SET)}},
    {IDM_VPIC_BITS, IDD_VPIC_BITS, "vpic-bits", {Pick(IDC_BROWSER_LIST, 35)}},
    {IDM_ISAC_REGISTERS, IDD_ISAC_REGISTERS, "isac-registers", {Pick(IDC_BROWSER_LIST, 3)}},
    {IDM_ISAC_BITS, IDD_ISAC_BITS, "isac-bits", {Pick(IDC_BROWSER_LIST, 4)}},
    {IDM_ARCOFI_PORTS, IDD_ARCOFI_PORTS, "arcofi-ports", {Pick(IDC_BROWSER_LIST, 13)}},
    {IDM_ARCOFI_COEFFICIENTS,
     IDD_ARCOFI_COEFFICIENTS,
     "arcofi-coefficients",
     {Pick(IDC_COEFFICIENTS_LIST, 10), Type(IDC_COEFFICIENTS_VALUES, "0x32\r0x90\r0x01\r0x12")}},
    {IDM_SAEC_PORTS, IDD_SAEC_PORTS, "saec-ports", {Pick(IDC_BROWSER_LIST, 100)}},
    {IDM_SAEC_PORTS, IDD_SAEC_PORTS, "saec-levels", {ShowLevels}},
    {IDM_CAMERA_ACCESS, IDD_CAMERA_REGISTERS, "digital-camera", {Pick(IDC_BROWSER_DEVICE_LIST, 2)}},
    {IDM_ANALOG_CAMERA_ACCESS, IDD_CAMERA_REGISTERS, "analog-camera", {}},
    {IDM_BOARD_AUXDEV_FIELDS, IDD_AUXDEV_FIELDS, "auxdev-fields", {}},
    {IDM_AUXDEV, IDD_AUXDEV_FEATURES, "auxdev-features", {}},
    {IDM_BROOKTREE_CONTROL_REGS, IDD_ENCODER_FIELDS, "encoder-fields", {}},
    {IDM_486, IDD_MEMORY_ACCESS, "access-memory", {Type(IDC_MEMORY_ADDRESS, "0xD0001000")}, IDOK},
    {IDM_I2C_ACCESS,
     IDD_I2C_ACCESS,
     "access-i2c",
     {Press(IDC_I2C_WRITE_REGISTER), Press(IDC_I2C_APPLY)}},
    {IDM_VPIC_I2C_PORTS, IDD_VPIC_I2C_ACCESS, "access-vpic-i2c", {Press(IDC_VPIC_I2C_DATA)}},
    {IDM_EEPROM_ACCESS, IDD_EPROM, "access-eprom", {Press(IDC_EPROM_READ)}},
    {IDM_JADE_REGISTERS, IDD_JADE_ACCESS, "access-jade", {Press(IDC_JADE_GET)}},
    {IDM_USS_REGISTERS,
     IDD_USS_REGISTERS,
     "uss-registers",
     {Type(IDC_USS_ADDRESS, "0x1C"), Press(IDC_USS_GET)},
     IDOK},
    {IDM_AEC_LATCH, IDD_AEC_LATCH, "aec-latch", {Press(IDC_AEC_LATCH_NOISE_ON)}},
    {IDM_AKM, IDD_AKM_CONTROL, "akm-control", {DragAndMeasure}, IDOK},
    {IDM_AUDIO, IDD_AUDIO_CONFIG, "audio-config", {Press(IDC_AUDIO_HEADSET)}},
    {IDM_HELP_ABOUT, IDD_ABOUT, "about", {}},
    {IDM_SEQ_ATOM_ENTER, IDD_SELECT_DEVICE, "select-device", {Pick(IDC_DEVICE_LIST, 1)}},
    {IDM_SEQ_SIMULATE_INTERRUPT, IDD_SELECT_IRQ, "select-irq", {Press(IDC_IRQ_ISAC)}},
    {IDM_ISAC_INITIALIZE, IDD_INITIALIZE_ISAC, "initialize-isac", {}},
    {IDM_ISAC_RESET, IDD_SELECT_ISAC_DEVICE, "select-isac-device", {}},
    {IDM_MONITOR_INITIALIZE, IDD_INITIALIZE_MONITOR, "initialize-monitor", {}},
    {IDM_MONITOR_RESET, IDD_SELECT_MONITOR_DEVICE, "select-monitor-device", {}},
    {IDM_ANALOG_CAMERA_SELECT, IDD_CAMERA_SELECTION, "camera-selection", {Press(IDC_CAMERA_VCR)}},
    {IDM_ANNEXD_DOWNLOAD, IDD_ANNEXD_LOADER, "annexd-loader", {Press(IDC_ANNEXD_START)}},
    {IDM_VCPXI_DOWNLOAD,
     IDD_DOWNLOAD,
     "vcp-download",
     {Type(IDC_DOWNLOAD_SECTIONS, "[BOOT]\r[VIDEO]")}},
    {IDM_STREAM_OPEN, IDD_STREAM, "open-close-stream", {Press(IDC_STREAM_OPEN)}},
    {IDM_MBE_SEND,
     IDD_MBE_SEND,
     "mbe-send",
     {Type(IDC_MBE_MESSAGE, "Hello over the data channel")},
     IDC_MBE_EXIT},
    {IDM_BAS_SEND_COMMAND, IDD_BAS_COMMANDS, "bas-commands", {Type(IDC_BAS_DATA_1, "0x1F")}},
    {IDM_VCPXI_VARIABLE_ACCESS,
     IDD_VARIABLE_ACCESS,
     "variable-access",
     {Type(IDC_VARIABLE_NAME, "vcx_adwBondLocalPhoneNum"), Type(IDC_VARIABLE_COUNT, "5"),
      Press(IDC_VARIABLE_GET)}},
    {IDM_BONDING_LOCAL_PARAMS, IDD_BOND_LOCAL_PARAMS, "bonding-local-params", {}},
    {IDM_BONDING_REMOTE_PARAMS, IDD_BOND_REMOTE_PARAMS, "bonding-remote-params", {}},
    {IDM_BONDING_COMMON_PARAMS, IDD_BOND_COMMON_PARAMS, "bonding-common-params", {}},
    {IDM_BONDING_LOCAL_PHONES, IDD_BOND_LOCAL_PHONES, "bonding-local-phones", {}},
    {IDM_BONDING_REMOTE_PHONES, IDD_BOND_REMOTE_PHONES, "bonding-remote-phones", {}},
    {IDM_LSD_OPEN, IDD_USER_DATA_RATE, "user-data-rate", {}},
    {IDM_LSD_SEND, IDD_USER_DATA_LENGTH, "user-data-length", {Type(IDC_USER_DATA_LENGTH, "20")}},
    {IDM_DEBUG_DUMP_GDS, IDD_GDS_DUMP, "gds-dump", {Pick(IDC_GDS_MODULE, 1)}},
    {IDM_DEBUG_LEVELS_NEWER,
     IDD_DEBUG_LEVELS,
     "debug-levels",
     {Pick(IDC_DEBUG_MODULES, 3), Press(IDC_USB_RXDATA), Press(IDC_USB_UPDATE)}},
    {IDM_BROOKTREE_BASICS,
     IDD_ENCODER_BASICS,
     "encoder-basics",
     {Press(IDC_ENCODER_BT858), Press(IDC_ENCODER_PORT_GET)}},
    {IDM_BROOKTREE_OVERLAY, IDD_OVERLAY, "overlay", {Pick(IDC_COLOURS_ENTRY, 14)}},
    {IDM_BROOKTREE_PALETTE, IDD_PALETTE, "palette", {Press(IDC_COLOURS_READ_ALL)}},
    {IDM_BROOKTREE_PIXEL_MASK, IDD_PIXEL_MASK, "pixel-mask", {Type(IDC_PIXEL_MASK, "0xF0")}},
    {IDM_VPP_SET_MODE, IDD_VPP_MODE, "vpp-mode", {Press(IDC_VPP_FRAME_BY_FRAME)}},
    {IDM_VPP_STATISTICS,
     IDD_VPP_STATISTICS,
     "vpp-statistics",
     {Press(IDC_VPP_STATISTICS_ENABLE), Press(IDC_MOTION_GET), WaitForMotion}},
};

std::optional<vxd::DialogTemplate> TemplateOf(int number) {
    const auto name = static_cast<std::uint16_t>(number);
    return vxd::ParseDialog(vxd::FindResource(vxd::kResourceDialog, name));
}

void Show(const kit::Utility& utility, const Stop& stop) {
    utility.Command(stop.command);
    const kit::Dialog dialog = kit::WaitForDialog(TemplateOf(stop.dialog)->title);
    for (const Act& act : stop.acts)
        act(dialog);
    TakePicture(stop.picture);
    ExpectReadableByTools(dialog.Handle());
    if (stop.leave != 0) {
        dialog.Press(stop.leave);
    } else {
        dialog.Key(VK_ESCAPE);
    }
    kit::ExpectNoBox();
}

TEST(Tour, WalksThroughTheUtilityAndTakesItsPictures) {
    const kit::Utility utility;
    ShowMainWindow(utility);
    std::set<int> shown;
    for (const Stop& stop : kStops) {
        Show(utility, stop);
        shown.insert(stop.dialog);
    }
    for (int number = 1; number <= 0xFFFF; ++number)
        EXPECT_EQ(TemplateOf(number).has_value(), shown.contains(number)) << number;
}

}  // namespace

void SetPictureFolder(const std::string& folder) {
    Folder() = folder;
}

}  // namespace tour
