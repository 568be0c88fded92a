// "I2C Access" and "VPIC I2C Access".
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board/control.h"
#include "res/resource.h"
#include "tests/app/received_calls.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

using Calls = std::vector<std::string>;

constexpr char kSection[] = "I2CAccess";

class I2cAccess : public testing::Test {
  protected:
    void Open() {
        utility_.Choose(IDM_I2C_ACCESS);
        dialog_ = kit::WaitForDialog("I2C Access");
        board::ForgetCalls();
    }

    std::string Stored(const char* key) const {
        return settings_.Read(kit::kOwnFile, kSection, key);
    }

    Calls ReceivedOnApply() {
        board::ForgetCalls();
        dialog_.Press(IDC_I2C_APPLY);
        return ReceivedCalls();
    }

    kit::SettingsFolder settings_;
    kit::Utility utility_{settings_};
    kit::Dialog dialog_{nullptr};
};

TEST_F(I2cAccess, OpensForTheFirstTimeReadyToRead) {
    Open();
    for (const int field : {IDC_I2C_ADDRESS, IDC_I2C_DATA_1, IDC_I2C_DATA_2})
        EXPECT_EQ(dialog_.Text(field), "0x00");
    EXPECT_TRUE(dialog_.IsChecked(IDC_I2C_READ_REGISTER));
    EXPECT_FALSE(dialog_.IsEnabled(IDC_I2C_DATA_2));
    dialog_.Press(IDOK);
}

TEST_F(I2cAccess, OnlyWritingARegisterTakesTheSecondByte) {
    Open();
    for (const int operation : {IDC_I2C_WRITE_REGISTER, IDC_I2C_READ_REGISTER,
                                IDC_I2C_WRITE_REGISTER, IDC_I2C_WRITE_ADDRESS}) {
        dialog_.Press(operation);
        EXPECT_EQ(dialog_.IsEnabled(IDC_I2C_DATA_2), operation == IDC_I2C_WRITE_REGISTER);
    }
    dialog_.Press(IDOK);
}

TEST_F(I2cAccess, SetsTheReadBitOfTheAddressAsTheOperationWantsIt) {
    Open();
    dialog_.Type(IDC_I2C_ADDRESS, "0xA1");
    dialog_.Type(IDC_I2C_DATA_1, "0x123");
    dialog_.Press(IDC_I2C_WRITE_ADDRESS);
    EXPECT_EQ(ReceivedOnApply(), Calls{"vdapi_I2C_Transfer(address, 2, null) A0002300"});
    dialog_.Press(IDC_I2C_WRITE_REGISTER);
    dialog_.Type(IDC_I2C_DATA_2, "0xFe");
    EXPECT_EQ(ReceivedOnApply(), Calls{"vdapi_I2C_Transfer(address, 3, null) A0002300 FE00"});
    dialog_.Press(IDC_I2C_READ_REGISTER);
    EXPECT_EQ(ReceivedOnApply(), Calls{"vdapi_I2C_Transfer(address, 2, address) A1000001"});
    dialog_.Type(IDC_I2C_ADDRESS, "0x1A0");
    EXPECT_EQ(ReceivedOnApply(), Calls{"vdapi_I2C_Transfer(address, 2, address) A1000001"});
    dialog_.Press(IDOK);
}

TEST_F(I2cAccess, ReadsBackARegisterThatItHasWritten) {
    Open();
    dialog_.Type(IDC_I2C_ADDRESS, "0x48");
    dialog_.Press(IDC_I2C_WRITE_REGISTER);
    dialog_.Type(IDC_I2C_DATA_1, "0x0A");
    dialog_.Type(IDC_I2C_DATA_2, "0x3C");
    dialog_.Press(IDC_I2C_APPLY);
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_1), "0x0A");
    dialog_.Press(IDC_I2C_READ_REGISTER);
    dialog_.Press(IDC_I2C_APPLY);
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_1), "0x3C");
    EXPECT_EQ(Stored("Data1"), "(none)") << "nothing is remembered before the end";
    dialog_.Press(IDOK);
}

TEST_F(I2cAccess, AnAddressWithoutADeviceIsNotReportedAndReadsAsZero) {
    Open();
    dialog_.Type(IDC_I2C_ADDRESS, "0x60");
    dialog_.Type(IDC_I2C_DATA_1, "0x55");
    dialog_.Press(IDC_I2C_APPLY);
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_1), "0x00");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    dialog_.Press(IDOK);
}

TEST_F(I2cAccess, RemembersFieldsAndOperationHoweverItIsClosed) {
    Open();
    dialog_.Press(IDC_I2C_WRITE_REGISTER);
    dialog_.Type(IDC_I2C_ADDRESS, "0x1A1");
    dialog_.Type(IDC_I2C_DATA_1, "0x12345");
    dialog_.Type(IDC_I2C_DATA_2, "0xFFFF");
    dialog_.Key(VK_ESCAPE);
    EXPECT_EQ(Stored("Address"), "417");
    EXPECT_EQ(Stored("Data1"), "9029") << "of 16 bits";
    EXPECT_EQ(Stored("Data2"), "65535");
    EXPECT_EQ(Stored("Operation"), "2");

    Open();
    EXPECT_EQ(dialog_.Text(IDC_I2C_ADDRESS), "0x1A1");
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_1), "0x2345");
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_2), "0xFFFF");
    EXPECT_TRUE(dialog_.IsChecked(IDC_I2C_WRITE_REGISTER));
    EXPECT_TRUE(dialog_.IsEnabled(IDC_I2C_DATA_2));
    dialog_.Press(IDC_I2C_WRITE_ADDRESS);
    dialog_.Type(IDC_I2C_ADDRESS, "7");
    dialog_.Press(IDOK);
    EXPECT_EQ(Stored("Address"), "0");
    EXPECT_EQ(Stored("Operation"), "1");
}

TEST_F(I2cAccess, AnUnknownRememberedOperationCountsAsReading) {
    settings_.Write(kit::kOwnFile, kSection, "Operation", "7");
    Open();
    EXPECT_EQ(ReceivedOnApply(), Calls{"vdapi_I2C_Transfer(address, 2, address) 01000001"});
    dialog_.Press(IDOK);
    EXPECT_EQ(Stored("Operation"), "0");
}

class VpicI2cAccess : public testing::Test {
  protected:
    VpicI2cAccess() { Open(); }

    void Open() const { utility_.Command(IDM_VPIC_I2C_PORTS); }

    static kit::Dialog Shown() { return kit::WaitForDialog("VPIC I2C Access"); }

    kit::Utility utility_;
};

TEST_F(VpicI2cAccess, OpensOnTheClockAndReadsTheLineThatIsChosen) {
    const kit::Dialog dialog = Shown();
    EXPECT_TRUE(dialog.IsChecked(IDC_VPIC_I2C_CLOCK));
    ExpectCalls({"vdapi_Debug(32, 8, address) 01000000 *"}, {ReceivedCalls().back()});
    EXPECT_EQ(dialog.Text(IDC_VPIC_I2C_VALUE), "1");
    dialog.Type(IDC_VPIC_I2C_VALUE, "0");
    dialog.Press(IDC_VPIC_I2C_SET);
    dialog.Press(IDC_VPIC_I2C_DATA);
    ExpectCalls({"vdapi_Debug(32, 8, address) 02000000 *"}, {ReceivedCalls().back()});
    EXPECT_EQ(dialog.Text(IDC_VPIC_I2C_VALUE), "1");
    dialog.Press(IDC_VPIC_I2C_CLOCK);
    EXPECT_EQ(dialog.Text(IDC_VPIC_I2C_VALUE), "0");
    dialog.Press(IDOK);
}

TEST_F(VpicI2cAccess, AnyDecimalNumberButZeroRaisesTheLine) {
    const kit::Dialog dialog = Shown();
    dialog.Press(IDC_VPIC_I2C_DATA);
    struct Case {
        const char* typed;
        const char* level;
    };
    for (const Case& each :
         {Case{"1", "01000000"}, Case{"0", "00000000"}, Case{"-5", "01000000"},
          Case{"0x1", "00000000"}, Case{" 65536", "01000000"}, Case{"high", "00000000"},
          Case{"99999999999", "01000000"}, Case{"", "00000000"}}) {
        board::ForgetCalls();
        dialog.Type(IDC_VPIC_I2C_VALUE, each.typed);
        dialog.Press(IDC_VPIC_I2C_SET);
        EXPECT_EQ(ReceivedCalls(),
                  Calls{std::string("vdapi_Debug(31, 8, address) 02000000 ") + each.level})
            << each.typed;
        EXPECT_EQ(dialog.Text(IDC_VPIC_I2C_VALUE), each.typed);
    }
    dialog.Press(IDOK);
}

TEST_F(VpicI2cAccess, FailuresAreReportedAndAFailedReadShowsZero) {
    Shown().Press(IDOK);
    board::FailAlways("TALVERO_DBG_VPIC_TR_I2C_GET", VXD_HARDWARE_FAILURE);
    board::FailAlways("TALVERO_DBG_VPIC_TR_I2C_SET", VXD_BUSY_WITH_PRIOR_REQUEST);
    constexpr char kTitle[] = "VxD Test - Warning";
    constexpr char kReadFailed[] =
        "vdapi_Debug: TALVERO_DBG_VPIC_TR_I2C_GET: \nVXD_HARDWARE_FAILURE";
    Open();
    kit::MeetBox(kTitle, kReadFailed);
    const kit::Dialog dialog = Shown();
    EXPECT_EQ(dialog.Text(IDC_VPIC_I2C_VALUE), "0");
    dialog.Type(IDC_VPIC_I2C_VALUE, "1");
    dialog.Press(IDC_VPIC_I2C_SET);
    kit::MeetBox(kTitle, "vdapi_Debug: TALVERO_DBG_VPIC_TR_I2C_SET: \nVXD_BUSY_WITH_PRIOR_REQUEST");
    dialog.Press(IDC_VPIC_I2C_DATA);
    kit::MeetBox(kTitle, kReadFailed);
    EXPECT_EQ(dialog.Text(IDC_VPIC_I2C_VALUE), "0");
    dialog.Key(VK_ESCAPE);
    kit::ExpectNoBox();
}

TEST_F(VpicI2cAccess, AFailureIsReportedOnceThoughTheRadioButtonIsToldOfAClickMeanwhile) {
    const kit::Dialog dialog = Shown();
    board::FailAlways("TALVERO_DBG_VPIC_TR_I2C_GET", VXD_HARDWARE_FAILURE);
    dialog.Press(IDC_VPIC_I2C_DATA);
    kit::BeginStep([window = dialog.Handle(), button = dialog.Control(IDC_VPIC_I2C_DATA)] {
        SendMessageA(window, WM_COMMAND, MAKEWPARAM(IDC_VPIC_I2C_DATA, BN_CLICKED),
                     reinterpret_cast<LPARAM>(button));
    });
    kit::MeetBox("VxD Test - Warning",
                 "vdapi_Debug: TALVERO_DBG_VPIC_TR_I2C_GET: \nVXD_HARDWARE_FAILURE");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog.Handle());
    dialog.Press(IDOK);
}

}  // namespace
