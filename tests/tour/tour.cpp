#include "tests/tour/tour.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QWidget>
#include <filesystem>
#include <fstream>

#include "platform/qt/snapshot.h"
#include "res/resource.h"
#include "tests/kit/file_dialog.h"
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

// Opens the first popup of the menu bar as Alt and its letter do.
void OpenFirstMenu() {
    kit::RunStep([] {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* bar = window->findChild<QMenuBar*>(); bar != nullptr && window->isVisible()) {
                bar->setFocus();
                bar->setActiveAction(bar->actions().front());
                return;
            }
        }
    });
    kit::RunStep([] { QApplication::processEvents(); });
}

void CloseMenu() {
    kit::RunStep([] {
        if (QWidget* menu = QApplication::activePopupWidget(); menu != nullptr)
            menu->close();
    });
}

void ShowMainWindow(const kit::Utility& utility) {
    // As large as it can be dragged, so that the menu bar lies in one row.
    kit::RunStep([&utility] {
        SetWindowPos(utility.Window(), nullptr, 0, 0, 900, 180, SWP_NOMOVE | SWP_NOZORDER);
    });
    TakePicture("main-window");
    OpenFirstMenu();
    TakePicture("menu");
    CloseMenu();
}

void SendRawCommand(const kit::Utility& utility) {
    utility.Choose(IDM_FILE_SEND_RAW_COMMAND);
    const kit::Dialog dialog = kit::WaitForDialog("Send Raw Command");
    dialog.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_GET_VER");
    dialog.Press(IDC_RAW_SEND);
    TakePicture("send-raw-command");
    dialog.Press(IDOK);
}

void About(const kit::Utility& utility) {
    utility.Choose(IDM_HELP_ABOUT);
    const kit::Dialog dialog = kit::WaitForDialog("About  VxD Test  Utility");
    TakePicture("about");
    dialog.Press(IDOK);
}

void AccessMemory(const kit::Utility& utility) {
    utility.Choose(IDM_486);
    const kit::Dialog dialog = kit::WaitForDialog("Access Mem/IO Address");
    dialog.Type(IDC_MEMORY_ADDRESS, "0xD0001000");
    dialog.Type(IDC_MEMORY_VALUE, "0xC0FFEE42");
    dialog.Press(IDC_MEMORY_SET);
    dialog.Press(IDC_MEMORY_GET);
    dialog.Type(IDC_PORT_ADDRESS, "0x3F8");
    dialog.Type(IDC_PORT_VALUE, "0x4B");
    dialog.Press(IDC_PORT_SET);
    dialog.Press(IDC_PORT_GET);
    TakePicture("access-memory");
    dialog.Press(IDOK);
}

void AccessI2c(const kit::Utility& utility) {
    utility.Choose(IDM_I2C_ACCESS);
    const kit::Dialog dialog = kit::WaitForDialog("I2C Access");
    dialog.Type(IDC_I2C_ADDRESS, "0x48");
    dialog.Type(IDC_I2C_DATA_1, "0x0A");
    dialog.Press(IDC_I2C_WRITE_REGISTER);
    dialog.Type(IDC_I2C_DATA_2, "0x80");
    dialog.Press(IDC_I2C_APPLY);
    TakePicture("access-i2c");
    dialog.Press(IDOK);
}

void AccessVpicI2c(const kit::Utility& utility) {
    utility.Command(IDM_VPIC_I2C_PORTS);
    const kit::Dialog dialog = kit::WaitForDialog("VPIC I2C Access");
    dialog.Press(IDC_VPIC_I2C_DATA);
    TakePicture("access-vpic-i2c");
    dialog.Press(IDOK);
}

void AccessEprom(const kit::Utility& utility) {
    utility.Command(IDM_EEPROM_ACCESS);
    const kit::Dialog dialog = kit::WaitForDialog("EPROM DLG");
    dialog.Type(IDC_EPROM_ADDRESS, "0x20");
    dialog.Type(IDC_EPROM_LENGTH, "0x03");
    dialog.Type(IDC_EPROM_DATA_1, "0x4B");
    dialog.Type(IDC_EPROM_DATA_2, "0x4F");
    dialog.Type(IDC_EPROM_DATA_3, "0x52");
    dialog.Press(IDC_EPROM_WRITE);
    dialog.Press(IDC_EPROM_APPLY);
    dialog.Press(IDC_EPROM_READ);
    dialog.Press(IDC_EPROM_APPLY);
    TakePicture("access-eprom");
    dialog.Press(IDC_EPROM_CLOSE);
}

void AccessJade(const kit::Utility& utility) {
    utility.Choose(IDM_JADE_REGISTERS);
    const kit::Dialog dialog = kit::WaitForDialog("Jade access dialog");
    dialog.Type(IDC_JADE_REGISTER, "0xF0");
    dialog.Press(IDC_JADE_INCREMENT);
    dialog.Press(IDC_JADE_GET);
    TakePicture("access-jade");
    dialog.Press(IDCANCEL);
}

void AccessUssRegisters(const kit::Utility& utility) {
    utility.Choose(IDM_USS_REGISTERS);
    const kit::Dialog dialog = kit::WaitForDialog("USS Reg");
    dialog.Type(IDC_USS_ADDRESS, "0x1C");
    dialog.Type(IDC_USS_VALUE, "0xA5");
    dialog.Press(IDC_USS_SET);
    dialog.Press(IDC_USS_GET);
    TakePicture("uss-registers");
    dialog.Press(IDOK);
}

// A browser on a row; where a value is given, it is written and shown again.
struct BrowserStop {
    UINT command;
    const char* caption;
    int list, value, set;
    int row;
    const char* typed;
    const char* picture;
};

constexpr BrowserStop kBrowserStops[] = {
    {IDM_VPIC_PORTS, "VPIC Port", IDC_BROWSER_LIST, IDC_BROWSER_VALUE, IDC_BROWSER_SET, 4,
     "0x00C0FFEE", "vpic-ports"},
    {IDM_VPIC_BITS, "VPIC Bits", IDC_BROWSER_LIST, IDC_BROWSER_VALUE, IDC_BROWSER_SET, 35, "1",
     "vpic-bits"},
    {IDM_ISAC_REGISTERS, "ISAC Registers", IDC_BROWSER_LIST, IDC_BROWSER_VALUE, IDC_BROWSER_SET, 3,
     "0x2A", "isac-registers"},
    {IDM_ISAC_BITS, "ISAC Bits", IDC_BROWSER_LIST, IDC_BROWSER_VALUE, IDC_BROWSER_SET, 4, "1",
     "isac-bits"},
    {IDM_ARCOFI_PORTS, "ARCOFI Ports", IDC_BROWSER_LIST, IDC_BROWSER_VALUE, IDC_BROWSER_SET, 13,
     "0x01", "arcofi-ports"},
    {IDM_ARCOFI_COEFFICIENTS, "ARCOFI Coefficiets", IDC_COEFFICIENTS_LIST, IDC_COEFFICIENTS_VALUES,
     IDC_COEFFICIENTS_SET, 10, "0x32\r0x90\r0x01\r0x12", "arcofi-coefficients"},
    {IDM_SAEC_PORTS, "Siemens AEC Ports", IDC_BROWSER_LIST, IDC_BROWSER_VALUE, IDC_BROWSER_SET, 100,
     "0x1A2B", "saec-ports"},
    {IDM_CAMERA_ACCESS, "Camera Registers", IDC_BROWSER_DEVICE_LIST, IDC_BROWSER_DEVICE_VALUE,
     IDC_BROWSER_SET, 2, "0x90", "digital-camera"},
    {IDM_ANALOG_CAMERA_ACCESS, "Camera Registers", IDC_BROWSER_DEVICE_LIST,
     IDC_BROWSER_DEVICE_VALUE, IDC_BROWSER_SET, 5, nullptr, "analog-camera"},
    {IDM_BOARD_AUXDEV_FIELDS, "AUXDEV Fields", IDC_BROWSER_DEVICE_LIST, IDC_BROWSER_DEVICE_VALUE,
     IDC_BROWSER_SET, 11, "0x20", "auxdev-fields"},
    {IDM_AUXDEV, "AUXDEV Features", IDC_BROWSER_DEVICE_LIST, IDC_BROWSER_DEVICE_VALUE,
     IDC_BROWSER_SET, 20, "0x01", "auxdev-features"},
    {IDM_BROOKTREE_CONTROL_REGS, "BrookTree Registers & Fields", IDC_BROWSER_DEVICE_LIST,
     IDC_BROWSER_DEVICE_VALUE, IDC_BROWSER_SET, 15, "0x0C", "encoder-fields"},
};

void BrowseRegisters(const kit::Utility& utility) {
    for (const BrowserStop& stop : kBrowserStops) {
        utility.Command(stop.command);
        const kit::Dialog dialog = kit::WaitForDialog(stop.caption);
        dialog.Pick(stop.list, stop.row);
        if (stop.typed != nullptr) {
            dialog.Type(stop.value, stop.typed);
            dialog.Press(stop.set);
            dialog.Pick(stop.list, stop.row);
        }
        TakePicture(stop.picture);
        dialog.Press(IDOK);
    }
}

// Opens a dialog, does in it what it is for, and leaves it by a button.
void ShowDialog(const kit::Utility& utility, UINT command, const char* caption, const char* picture,
                void (*act)(const kit::Dialog& dialog), int leave = IDCANCEL) {
    utility.Command(command);
    const kit::Dialog dialog = kit::WaitForDialog(caption);
    act(dialog);
    TakePicture(picture);
    dialog.Press(leave);
}

void SetEchoCanceller(const kit::Utility& utility) {
    ShowDialog(
        utility, IDM_AEC_LATCH, "Dialog", "aec-latch",
        [](const kit::Dialog& dialog) {
            dialog.Press(IDC_AEC_LATCH_AUTO_NEUTRAL);
            dialog.Press(IDC_AEC_LATCH_NOISE_ON);
            dialog.Type(IDC_AEC_LATCH_VALUE, "0x1F");
            dialog.Press(IDC_AEC_LATCH_WRITE);
        },
        IDC_AEC_LATCH_OK);
}

void ShowLevels(const kit::Utility& utility) {
    ShowDialog(
        utility, IDM_SAEC_PORTS, "Siemens AEC Ports", "saec-levels",
        [](const kit::Dialog& dialog) {
            kit::DoubleClickRight(dialog.Control(IDC_SAEC_LEVELS));
            kit::RunStep([&] { SendMessageA(dialog.Handle(), WM_TIMER, 2, 0); });
        },
        IDOK);
}

// With all it has to show, it has to fit a small screen.
void ControlAudioCodec(const kit::Utility& utility) {
    utility.Choose(IDM_AKM);
    const kit::Dialog dialog = kit::WaitForDialog("AKM Control");
    dialog.Type(IDC_AKM_REGISTER, "0x11");
    dialog.Press(IDC_AKM_GET);
    kit::DragThumbToEnd(dialog.Control(IDC_AKM_VOICE_LEFT), 31);
    RECT area{};
    kit::RunStep([&] { GetClientRect(dialog.Handle(), &area); });
    EXPECT_LE(area.right * 3, 1024 * 2) << "at 150 %";
    EXPECT_LE((area.bottom + 30) * 3, 768 * 2) << "with its caption";
    TakePicture("akm-control");
    dialog.Press(IDOK);
}

void ConfigureAudio(const kit::Utility& utility) {
    ShowDialog(
        utility, IDM_AUDIO, "Audio - Config I/O", "audio-config",
        [](const kit::Dialog& dialog) { dialog.Press(IDC_AUDIO_HEADSET); }, IDOK);
}

void SelectDevice(const kit::Utility& utility) {
    ShowDialog(utility, IDM_SEQ_ATOM_ENTER, "Select Device", "select-device",
               [](const kit::Dialog& dialog) { dialog.Pick(IDC_DEVICE_LIST, "ARCOFI       "); });
}

void SelectIrq(const kit::Utility& utility) {
    ShowDialog(utility, IDM_SEQ_SIMULATE_INTERRUPT, "Select IRQ", "select-irq",
               [](const kit::Dialog& dialog) {
                   dialog.Press(IDC_IRQ_ICC);
                   dialog.Press(IDC_IRQ_ISAC);
               });
}

void InitializeIsac(const kit::Utility& utility) {
    ShowDialog(utility, IDM_ISAC_INITIALIZE, "Initialize ISAC  ", "initialize-isac",
               [](const kit::Dialog& dialog) { dialog.Press(IDC_ISAC_DEVICE_INITIALIZE_CHIP); });
}

void SelectIsacDevice(const kit::Utility& utility) {
    ShowDialog(utility, IDM_ISAC_RESET, "Select ISAC  Device", "select-isac-device",
               [](const kit::Dialog& dialog) { dialog.Press(IDC_ISAC_DEVICE_ISDN); });
}

void InitializeMonitor(const kit::Utility& utility) {
    ShowDialog(utility, IDM_MONITOR_INITIALIZE, "Initialize IOM2 Monitor", "initialize-monitor",
               [](const kit::Dialog& dialog) { dialog.Press(IDC_MONITOR_DEVICE_INITIALIZE_CHIP); });
}

void SelectMonitorDevice(const kit::Utility& utility) {
    ShowDialog(utility, IDM_MONITOR_RESET, "Select Monitor Device", "select-monitor-device",
               [](const kit::Dialog& dialog) { dialog.Press(IDC_MONITOR_DEVICE_SBCX); });
}

void SelectCamera(const kit::Utility& utility) {
    ShowDialog(utility, IDM_ANALOG_CAMERA_SELECT, "Camera Selection", "camera-selection",
               [](const kit::Dialog& dialog) { dialog.Press(IDC_CAMERA_VCR); });
}

void LoadAnnexd(const kit::Utility& utility) {
    ShowDialog(utility, IDM_ANNEXD_DOWNLOAD, "Dialog", "annexd-loader",
               [](const kit::Dialog& dialog) { dialog.Press(IDC_ANNEXD_START); });
}

void SendMbe(const kit::Utility& utility) {
    utility.Command(IDM_MBE_SEND);
    const kit::Dialog dialog = kit::WaitForDialog("MBE SEND DEMO");
    dialog.Type(IDC_MBE_MESSAGE, "Hello over the data channel");
    dialog.Press(IDC_MBE_SEND);
    TakePicture("mbe-send");
    dialog.Press(IDC_MBE_EXIT);
}

void SendBasCommands(const kit::Utility& utility) {
    ShowDialog(utility, IDM_BAS_SEND_COMMAND, "SEND BAS COMMANDS:", "bas-commands",
               [](const kit::Dialog& dialog) {
                   dialog.Type(IDC_BAS_DATA_1, "0x1F");
                   dialog.Type(IDC_BAS_DATA_2, "0xFF");
                   dialog.Type(IDC_BAS_LENGTH, "02");
                   dialog.Press(IDC_BAS_UPDATE);
               });
}

void AccessVariables(const kit::Utility& utility) {
    ShowDialog(utility, IDM_VCPXI_VARIABLE_ACCESS, "VCPXi Variable Access", "variable-access",
               [](const kit::Dialog& dialog) {
                   dialog.Type(IDC_VARIABLE_NAME, "vcx_adwBondLocalPhoneNum");
                   dialog.Type(IDC_VARIABLE_COUNT, "5");
                   dialog.Press(IDC_VARIABLE_GET);
               });
}

void BondChannels(const kit::Utility& utility) {
    const auto look = [](const kit::Dialog&) {};
    ShowDialog(
        utility, IDM_BONDING_LOCAL_PARAMS, "Local Bonding Params", "bonding-local-params",
        [](const kit::Dialog& dialog) { dialog.Pick(IDC_BOND_RMULT, "2"); }, IDOK);
    ShowDialog(utility, IDM_BONDING_REMOTE_PARAMS, "Remote Bonding Parameters",
               "bonding-remote-params", look, IDOK);
    ShowDialog(utility, IDM_BONDING_COMMON_PARAMS, "Common Bonding Parameters",
               "bonding-common-params", look, IDOK);
    ShowDialog(
        utility, IDM_BONDING_LOCAL_PHONES, "Local Bonding Phones", "bonding-local-phones",
        [](const kit::Dialog& dialog) { dialog.Type(IDC_BOND_PHONE_3, "5551236"); }, IDOK);
    ShowDialog(utility, IDM_BONDING_REMOTE_PHONES, "Remote Bonding Phones", "bonding-remote-phones",
               look, IDOK);
}

void ChooseUserDataRate(const kit::Utility& utility) {
    ShowDialog(utility, IDM_LSD_OPEN, "Select UserData Bandwidth", "user-data-rate",
               [](const kit::Dialog& dialog) { dialog.Pick(IDC_USER_DATA_RATE, "064"); });
}

void ChooseUserDataLength(const kit::Utility& utility) {
    ShowDialog(utility, IDM_LSD_SEND, "Send User Data", "user-data-length",
               [](const kit::Dialog& dialog) { dialog.Type(IDC_USER_DATA_LENGTH, "20"); });
}

// A file of the codec processor's, in a folder of the tour's own.
std::string MakeCodecFile(const char* name, const char* contents) {
    const auto folder = std::filesystem::absolute(Folder()) / "codec files";
    std::filesystem::create_directories(folder);
    std::ofstream(folder / name) << contents;
    return (folder / name).string();
}

void DownloadCodec(const kit::Utility& utility) {
    const std::string codec = MakeCodecFile("code.bin", "codec");
    const std::string ini = MakeCodecFile("vcp.ini", "[BOOT]\n[VIDEO]\n");
    utility.Command(IDM_VCPXI_DOWNLOAD);
    const kit::Dialog dialog = kit::WaitForDialog("VCP Download");
    dialog.Press(IDC_DOWNLOAD_BROWSE_CODEC);
    kit::FileDialog("Select Codec File").Open(codec);
    dialog.Press(IDC_DOWNLOAD_BROWSE_VCP_INI);
    const kit::FileDialog files("Select VCP.INI File");
    TakePicture("vcp-download-browse");
    files.Open(ini);
    dialog.Type(IDC_DOWNLOAD_SECTIONS, "[BOOT]\r[VIDEO]");
    dialog.Press(IDOK);
    TakePicture("vcp-download");
    dialog.Press(IDCANCEL);
}

void OpenStreams(const kit::Utility& utility) {
    ShowDialog(utility, IDM_STREAM_OPEN, "Open/Close Stream", "open-close-stream",
               [](const kit::Dialog& dialog) {
                   dialog.Pick(IDC_STREAM_VIDEO_CODEC, "H263");
                   dialog.Pick(IDC_STREAM_FORMAT, "CIF");
                   dialog.Press(IDC_STREAM_OPEN);
                   dialog.Press(IDC_STREAM_CLOSE);
               });
}

void DumpGds(const kit::Utility& utility) {
    ShowDialog(utility, IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog", "gds-dump",
               [](const kit::Dialog& dialog) { dialog.Pick(IDC_GDS_MODULE, "Seq        "); });
}

void SetDebugLevels(const kit::Utility& utility) {
    ShowDialog(utility, IDM_DEBUG_LEVELS_NEWER, "Set Debug Levels", "debug-levels",
               [](const kit::Dialog& dialog) {
                   dialog.Pick(IDC_DEBUG_MODULES, "JADE");
                   dialog.Pick(IDC_DEBUG_LEVEL, "TRACE3");
                   dialog.Press(IDC_USB_RXDATA);
                   dialog.Press(IDC_USB_UPDATE);
               });
}

void EncoderBasics(const kit::Utility& utility) {
    ShowDialog(
        utility, IDM_BROOKTREE_BASICS, "BrookTree basic operations", "encoder-basics",
        [](const kit::Dialog& dialog) {
            dialog.Press(IDC_ENCODER_BT858);
            dialog.Type(IDC_ENCODER_MODE, "0x5A");
            dialog.Press(IDC_ENCODER_MODE_SET);
            dialog.Press(IDC_ENCODER_PORT_GET);
        },
        IDOK);
}

void ChangeOverlay(const kit::Utility& utility) {
    ShowDialog(
        utility, IDM_BROOKTREE_OVERLAY, "Overlay Dialog", "overlay",
        [](const kit::Dialog& dialog) { dialog.Pick(IDC_COLOURS_ENTRY, "14"); }, IDOK);
}

void ChangePalette(const kit::Utility& utility) {
    ShowDialog(
        utility, IDM_BROOKTREE_PALETTE, "Palette Dialog", "palette",
        [](const kit::Dialog& dialog) {
            dialog.Pick(IDC_COLOURS_ENTRY, "171");
            dialog.Press(IDC_COLOURS_READ_ALL);
        },
        IDOK);
}

void ChangePixelMask(const kit::Utility& utility) {
    ShowDialog(utility, IDM_BROOKTREE_PIXEL_MASK, "Pixel Mask Dialog", "pixel-mask",
               [](const kit::Dialog& dialog) { dialog.Type(IDC_PIXEL_MASK, "0xF0"); });
}

void SetVppMode(const kit::Utility& utility) {
    ShowDialog(utility, IDM_VPP_SET_MODE, "Set VPP Mode", "vpp-mode",
               [](const kit::Dialog& dialog) {
                   dialog.Press(IDC_VPP_FRAME_BY_FRAME);
                   dialog.Press(IDC_VPP_LINEAR);
                   dialog.Press(IDC_VPP_APPLY);
               });
}

void ShowVppStatistics(const kit::Utility& utility) {
    ShowDialog(utility, IDM_VPP_STATISTICS, "VPP Statistics", "vpp-statistics",
               [](const kit::Dialog& dialog) {
                   dialog.Press(IDC_VPP_STATISTICS_ENABLE);
                   dialog.Press(IDC_MOTION_GET);
                   for (int tries = 0; dialog.Rows(IDC_MOTION_LIST) == 0 && tries < 500; ++tries) {
                       Sleep(10);
                   }
               });
}

// The stops, in order. Every dialog has one.
constexpr void (*kStops[])(const kit::Utility&) = {
    ShowMainWindow,
    SendRawCommand,
    BrowseRegisters,
    AccessMemory,
    AccessI2c,
    AccessVpicI2c,
    AccessEprom,
    AccessJade,
    AccessUssRegisters,
    SetEchoCanceller,
    ShowLevels,
    ControlAudioCodec,
    ConfigureAudio,
    About,
    SelectDevice,
    SelectIrq,
    InitializeIsac,
    SelectIsacDevice,
    InitializeMonitor,
    SelectMonitorDevice,
    SelectCamera,
    LoadAnnexd,
    DownloadCodec,
    OpenStreams,
    SendMbe,
    SendBasCommands,
    AccessVariables,
    BondChannels,
    ChooseUserDataRate,
    ChooseUserDataLength,
    DumpGds,
    SetDebugLevels,
    EncoderBasics,
    ChangeOverlay,
    ChangePalette,
    ChangePixelMask,
    SetVppMode,
    ShowVppStatistics,
};

TEST(Tour, WalksThroughTheUtilityAndTakesItsPictures) {
    const kit::Utility utility;
    for (const auto stop : kStops) {
        stop(utility);
        kit::ExpectNoBox();
    }
    ExpectAllDialogsRead();
}

}  // namespace

void SetPictureFolder(const std::string& folder) {
    Folder() = folder;
}

void TakePicture(const std::string& name) {
    const std::filesystem::path path = std::filesystem::path(Folder()) / (name + ".png");
    std::filesystem::create_directories(Folder());
    EXPECT_TRUE(kit::OnUserInterface([&path] {
        // What waits to be painted belongs in the picture.
        UpdateWindow(FindWindowA("VxDTest", nullptr));
        return vxd::qt::SaveDesktopPicture(path.string());
    })) << path;
    ExpectReadableByTools();
}

}  // namespace tour
