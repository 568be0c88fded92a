// The video encoder's dialogs but for its register browser, which is among the others.
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

constexpr char kWarning[] = "VxD Test - Warning";

class EncoderBasics : public DialogTest {
  protected:
    EncoderBasics() : DialogTest(IDM_BROOKTREE_BASICS, "BrookTree basic operations", IDOK) {}
};

TEST_F(EncoderBasics, SendModeAndPortAsBytesOfTheChosenEncoder) {
    EXPECT_EQ(Shown({IDC_ENCODER_MODE, IDC_ENCODER_PORT}), Texts(2, "0x00"));
    EXPECT_TRUE(dialog_.IsChecked(IDC_ENCODER_BT855));
    Type({{IDC_ENCODER_MODE, "0x15A"}, {IDC_ENCODER_PORT, "0x2C3"}});
    EXPECT_EQ(ReceivedOn(IDC_ENCODER_MODE_SET), Texts{"vdapi_Debug(BA, 4, address) 5A000000"});
    dialog_.Press(IDC_ENCODER_BT858);
    EXPECT_EQ(ReceivedOn(IDC_ENCODER_PORT_SET),
              Texts{"vdapi_Debug(BC, 8, address) 01000000 C3000000"});
    EXPECT_EQ(Shown({IDC_ENCODER_MODE, IDC_ENCODER_PORT}), (Texts{"0x15A", "0x2C3"}));

    board::StickBits("TALVERO_DBG_BT85X_OP_RD_STATE", 0x7700);
    board::StickBits("TALVERO_DBG_BT85X_OP_RD_PORT", 0x7700);
    ExpectCalls({"vdapi_Debug(BB, 4, address) *"}, ReceivedOn(IDC_ENCODER_MODE_GET));
    ExpectCalls({"vdapi_Debug(BD, 8, address) 01000000 *"}, ReceivedOn(IDC_ENCODER_PORT_GET));
    EXPECT_EQ(Shown({IDC_ENCODER_MODE, IDC_ENCODER_PORT}), (Texts{"0x5A", "0xC3"}));
    dialog_.Press(IDC_ENCODER_BT855);
    ExpectCalls({"vdapi_Debug(BD, 8, address) 00000000 *"}, ReceivedOn(IDC_ENCODER_PORT_GET));
    EXPECT_EQ(dialog_.Text(IDC_ENCODER_PORT), "0x00") << "each encoder has a port of its own";
}

TEST_F(EncoderBasics, ReportEachFailureAndShow0WhereNothingWasRead) {
    Type({{IDC_ENCODER_MODE, "0x15A"}, {IDC_ENCODER_PORT, "0x2C3"}});
    for (const auto& [button, name] :
         {std::pair{IDC_ENCODER_MODE_SET, "WR_STATE"}, std::pair{IDC_ENCODER_MODE_GET, "RD_STATE"},
          std::pair{IDC_ENCODER_PORT_SET, "WR_PORT"}, std::pair{IDC_ENCODER_PORT_GET, "RD_PORT"}}) {
        const std::string command = std::string("TALVERO_DBG_BT85X_OP_") + name;
        board::FailOnce(command, VXD_TIMEOUT_FAILURE);
        dialog_.Press(button);
        kit::MeetBox(kWarning, "vdapi_Debug: " + command + ": \nVXD_TIMEOUT_FAILURE");
    }
    EXPECT_EQ(Shown({IDC_ENCODER_MODE, IDC_ENCODER_PORT}), Texts(2, "0x00"));
}

TEST_F(EncoderBasics, AreRememberedHoweverTheyAreClosed) {
    dialog_.Press(IDC_ENCODER_BT858);
    Type({{IDC_ENCODER_MODE, "0x5A"}, {IDC_ENCODER_PORT, "0x1234F"}});
    dialog_.Key(VK_ESCAPE);
    EXPECT_EQ(Stored("BTbasics", "Encoder"), "1");
    EXPECT_EQ(Stored("BTbasics", "Mode"), "90");
    EXPECT_EQ(Stored("BTbasics", "Data"), "9039") << "of 16 bits";
    Open();
    EXPECT_TRUE(dialog_.IsChecked(IDC_ENCODER_BT858));
    EXPECT_EQ(Shown({IDC_ENCODER_MODE, IDC_ENCODER_PORT}), (Texts{"0x5A", "0x234F"}));
    dialog_.Press(IDC_ENCODER_BT855);
    dialog_.Type(IDC_ENCODER_MODE, "zero");
    dialog_.CloseBox();
    EXPECT_EQ(Stored("BTbasics", "Encoder"), "0");
    EXPECT_EQ(Stored("BTbasics", "Mode"), "0");
    Open();
}

// Both colour tables; the rows' colours are those at power-on.
class ColourTables : public CommandTest {
  protected:
    kit::Dialog OpenOverlay() const { return Ask(IDM_BROOKTREE_OVERLAY, "Overlay Dialog"); }
    kit::Dialog OpenPalette() const { return Ask(IDM_BROOKTREE_PALETTE, "Palette Dialog"); }

    static std::string Colour(const kit::Dialog& dialog) { return dialog.Text(IDC_COLOURS_VALUE); }
    static std::string Entry(const kit::Dialog& dialog) {
        const int row = dialog.SelectedRow(IDC_COLOURS_ENTRY);
        return row < 0 ? "none" : dialog.Row(IDC_COLOURS_ENTRY, row);
    }
    static Texts ReceivedOnEntry(const kit::Dialog& dialog, const char* entry) {
        board::ForgetCalls();
        dialog.Pick(IDC_COLOURS_ENTRY, std::string(entry));
        return ReceivedCalls();
    }

    // A colour as it stands in a settings file: "red green blue".
    std::string Stored(const char* section, const std::string& entry) const {
        std::string colour;
        for (const char* part : {"Red_", "Green_", "Blue_"}) {
            const std::string key = part + entry;
            colour +=
                (colour.empty() ? "" : " ") + settings_.Read(kit::kOwnFile, section, key.c_str());
        }
        return colour;
    }
    std::string StoredEntry(const char* section) const {
        return settings_.Read(kit::kOwnFile, section, "InitialEntry");
    }
    void StoreEntry(const char* section, const char* entry) const {
        settings_.Write(kit::kOwnFile, section, "InitialEntry", entry);
    }
};

TEST_F(ColourTables, TheOverlayIsReadAtTheOpeningAndItsEntriesOneByOne) {
    const kit::Dialog dialog = OpenOverlay();
    EXPECT_EQ(ReceivedCalls(), (Texts{"vdapi_BT85X_RetrieveOverlay(1, address)",
                                      "vdapi_BT85X_ReadFromOverlay(1, 1, address)"}));
    EXPECT_EQ(dialog.Rows(IDC_COLOURS_ENTRY), 15);
    EXPECT_EQ(Entry(dialog), "1");
    EXPECT_EQ(Colour(dialog), "0x00AA0000");
    EXPECT_EQ(ReceivedOnEntry(dialog, "14"), Texts{"vdapi_BT85X_ReadFromOverlay(1, E, address)"});
    EXPECT_EQ(Colour(dialog), "0x0055FFFF");

    dialog.Type(IDC_COLOURS_VALUE, "0x123008040");
    EXPECT_EQ(ReceivedOn(dialog, IDC_COLOURS_UPDATE),
              Texts{"vdapi_BT85X_WriteToOverlay(1, E, 23008040)"});
    dialog.Type(IDC_COLOURS_VALUE, "0x8040");
    dialog.Press(IDC_COLOURS_UPDATE);
    std::string all;
    for (const uint32_t colour :
         {0x000000, 0xAA0000, 0x00AA00, 0xAAAA00, 0x0000AA, 0xAA00AA, 0x0055AA, 0xAAAAAA, 0x555555,
          0xFF5555, 0x55FF55, 0xFFFF55, 0x5555FF, 0xFF55FF, 0x008040, 0xFFFFFF}) {
        all += " " + WordText(colour);
    }
    EXPECT_EQ(ReceivedOn(dialog, IDC_COLOURS_WRITE_ALL),
              Texts{"vdapi_BT85X_DownloadOverlay(1, address)" + all});

    auto hardware = board::GetHardware();
    hardware.videoEncoder.overlay[14] = 0x030201;
    hardware.videoEncoder.overlay[15] = 0x0A0B0C;
    board::SetHardware(hardware);
    EXPECT_EQ(ReceivedOn(dialog, IDC_COLOURS_READ_ALL),
              Texts{"vdapi_BT85X_RetrieveOverlay(1, address)"});
    EXPECT_EQ(Colour(dialog), "0x00030201");
    EXPECT_EQ(StoredEntry("BTOverlay"), "(none)");
    dialog.Press(IDOK);
    EXPECT_EQ(Stored("BTOverlay", "0"), "(none) (none) (none)");
    EXPECT_EQ(Stored("BTOverlay", "1"), "0 0 170");
    EXPECT_EQ(Stored("BTOverlay", "14"), "1 2 3");
    EXPECT_EQ(Stored("BTOverlay", "15"), "12 11 10");
    EXPECT_EQ(StoredEntry("BTOverlay"), "14");
    const kit::Dialog again = OpenOverlay();
    EXPECT_EQ(Entry(again), "14");
    again.Pick(IDC_COLOURS_ENTRY, 0);
    again.Key(VK_ESCAPE);
    EXPECT_EQ(StoredEntry("BTOverlay"), "14") << "cancelled";
}

TEST_F(ColourTables, ThePaletteIsReadWhenItIsAskedFor) {
    kit::Dialog dialog = OpenPalette();
    EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_BT85X_ReadFromPalette(1, address)"});
    EXPECT_EQ(dialog.Rows(IDC_COLOURS_ENTRY), 256);
    EXPECT_EQ(Entry(dialog), "1");
    EXPECT_EQ(Colour(dialog), "0x00010101");
    EXPECT_EQ(ReceivedOnEntry(dialog, "171"), Texts{"vdapi_BT85X_ReadFromPalette(AB, address)"});
    dialog.Type(IDC_COLOURS_VALUE, "0x00123456");
    EXPECT_EQ(ReceivedOn(dialog, IDC_COLOURS_UPDATE),
              Texts{"vdapi_BT85X_WriteToPalette(AB, 123456)"});
    const Texts written = ReceivedOn(dialog, IDC_COLOURS_WRITE_ALL);
    ASSERT_EQ(written.size(), 1u);
    EXPECT_TRUE(written[0].starts_with(
        "vdapi_BT85X_DownloadPalette(address) 00000000 01010100 00000000 00000000"))
        << "what was not read is black";
    dialog.Press(IDOK);
    EXPECT_EQ(Stored("BTPalette", "171"), "86 52 18");
    EXPECT_EQ(Stored("BTPalette", "255"), "0 0 0");
    EXPECT_EQ(StoredEntry("BTPalette"), "171");

    dialog = OpenPalette();
    EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_BT85X_ReadFromPalette(AB, address)"});
    auto hardware = board::GetHardware();
    hardware.videoEncoder.palette[171] = 0xC0FFEE;
    hardware.videoEncoder.palette[255] = 0x7F8090;
    board::SetHardware(hardware);
    EXPECT_EQ(ReceivedOn(dialog, IDC_COLOURS_READ_ALL),
              Texts{"vdapi_BT85X_RetrievePalette(address)"});
    EXPECT_EQ(Colour(dialog), "0x00C0FFEE");
    dialog.Press(IDOK);
    // What is written and then cancelled is the board's and the run's, but not remembered.
    dialog = OpenPalette();
    dialog.Pick(IDC_COLOURS_ENTRY, std::string("255"));
    dialog.Type(IDC_COLOURS_VALUE, "0x00010203");
    dialog.Press(IDC_COLOURS_UPDATE);
    dialog.Key(VK_ESCAPE);
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(Stored("BTPalette", "255"), "144 128 127");
    EXPECT_EQ(StoredEntry("BTPalette"), "171");
}

TEST_F(ColourTables, AnEntryThatTheListDoesNotHaveIsNeitherChosenNorRead) {
    for (const char* entry : {"0", "16"}) {
        StoreEntry("BTOverlay", entry);
        const kit::Dialog dialog = OpenOverlay();
        EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_BT85X_RetrieveOverlay(1, address)"}) << entry;
        EXPECT_EQ(Entry(dialog), "none");
        EXPECT_EQ(Colour(dialog), "0x00AA0000") << "the first one's";
        EXPECT_EQ(ReceivedOn(dialog, IDC_COLOURS_UPDATE), Texts{});
        dialog.Press(IDOK);
        EXPECT_EQ(StoredEntry("BTOverlay"), "1");
    }
}

TEST_F(ColourTables, FailuresAreReportedAndAColourThatIsNotReadCountsAsBlack) {
    constexpr char kEnd[] = ": \nVXD_HARDWARE_FAILURE";
    const auto fail = [](const char* name) { board::FailOnce(name, VXD_HARDWARE_FAILURE); };
    fail("vdapi_BT85X_RetrieveOverlay");
    fail("vdapi_BT85X_ReadFromOverlay");
    utility_.Command(IDM_BROOKTREE_OVERLAY);
    kit::MeetBox(kWarning, std::string("vdapi_BT85X_RetrieveOverlay") + kEnd);
    kit::MeetBox(kWarning, std::string("vdapi_BT85X_ReadFromOverlay") + kEnd);
    kit::Dialog dialog = kit::WaitForDialog("Overlay Dialog");
    EXPECT_EQ(Colour(dialog), "0x00000000");
    const auto press = [&](int button, const char* name) {
        fail(name);
        dialog.Press(button);
        kit::MeetBox(kWarning, std::string(name) + kEnd);
    };
    press(IDC_COLOURS_UPDATE, "vdapi_BT85X_WriteToOverlay");
    press(IDC_COLOURS_WRITE_ALL, "vdapi_BT85X_DownloadOverlay");
    press(IDC_COLOURS_READ_ALL, "vdapi_BT85X_RetrieveOverlay");
    dialog.Press(IDOK);

    dialog = OpenPalette();
    press(IDC_COLOURS_UPDATE, "vdapi_BT85X_WriteToPalette");
    press(IDC_COLOURS_WRITE_ALL, "vdapi_BT85X_DownloadPalette");
    press(IDC_COLOURS_READ_ALL, "vdapi_BT85X_RetrievePalette");
    fail("vdapi_BT85X_ReadFromPalette");
    dialog.Pick(IDC_COLOURS_ENTRY, 200);
    kit::MeetBox(kWarning, std::string("vdapi_BT85X_ReadFromPalette") + kEnd);
    EXPECT_EQ(Colour(dialog), "0x00000000");
    dialog.Press(IDOK);
}

using PixelMask = CommandTest;

TEST_F(PixelMask, IsReadAtTheOpeningAndWrittenByOkAlone) {
    const auto open = [&] { return Ask(IDM_BROOKTREE_PIXEL_MASK, "Pixel Mask Dialog"); };
    board::StickBits("vdapi_BT85X_ReadPixelMask", 0x100);
    kit::Dialog dialog = open();
    EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_BT85X_ReadPixelMask(1, address)"});
    EXPECT_EQ(dialog.Text(IDC_PIXEL_MASK), "0xFF");
    dialog.Type(IDC_PIXEL_MASK, "0x10A");
    EXPECT_EQ(ReceivedOn(dialog, IDOK), Texts{"vdapi_BT85X_WritePixelMask(1, A)"});
    dialog = open();
    EXPECT_EQ(dialog.Text(IDC_PIXEL_MASK), "0x0A");
    dialog.Type(IDC_PIXEL_MASK, "0xF0");
    EXPECT_EQ(ReceivedOn(dialog, IDCANCEL), Texts{});

    board::FailAlways("vdapi_BT85X_ReadPixelMask", VXD_BUSY_WITH_PRIOR_REQUEST);
    board::FailAlways("vdapi_BT85X_WritePixelMask", VXD_TIMEOUT_FAILURE);
    utility_.Command(IDM_BROOKTREE_PIXEL_MASK);
    kit::MeetBox(kWarning, "vdapi_BT85X_ReadPixelMask: \nVXD_BUSY_WITH_PRIOR_REQUEST");
    dialog = kit::WaitForDialog("Pixel Mask Dialog");
    EXPECT_EQ(dialog.Text(IDC_PIXEL_MASK), "0x00");
    dialog.Press(IDOK);
    kit::MeetBox(kWarning, "vdapi_BT85X_WritePixelMask: \nVXD_TIMEOUT_FAILURE");
    kit::ExpectNoBox();
}

}  // namespace
