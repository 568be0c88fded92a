// "I2C Access" and "VPIC I2C Access".
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

constexpr char kSection[] = "I2CAccess";

class I2cAccess : public DialogTest {
  protected:
    I2cAccess() : DialogTest(IDM_I2C_ACCESS, "I2C Access", IDOK) {}

    std::string Stored(const char* key) const { return DialogTest::Stored(kSection, key); }
    Texts Shown() const {
        return DialogTest::Shown({IDC_I2C_ADDRESS, IDC_I2C_DATA_1, IDC_I2C_DATA_2});
    }
};

TEST_F(I2cAccess, OpensReadyToReadAndOnlyWritingARegisterTakesTheSecondByte) {
    EXPECT_EQ(Shown(), Texts(3, "0x00"));
    EXPECT_TRUE(dialog_.IsChecked(IDC_I2C_READ_REGISTER));
    EXPECT_FALSE(dialog_.IsEnabled(IDC_I2C_DATA_2));
    for (const int operation : {IDC_I2C_WRITE_REGISTER, IDC_I2C_READ_REGISTER,
                                IDC_I2C_WRITE_REGISTER, IDC_I2C_WRITE_ADDRESS}) {
        dialog_.Press(operation);
        EXPECT_EQ(dialog_.IsEnabled(IDC_I2C_DATA_2), operation == IDC_I2C_WRITE_REGISTER);
    }
}

TEST_F(I2cAccess, SetsTheReadBitOfTheAddressAsTheOperationWantsIt) {
    Type({{IDC_I2C_ADDRESS, "0xA1"}, {IDC_I2C_DATA_1, "0x123"}});
    dialog_.Press(IDC_I2C_WRITE_ADDRESS);
    EXPECT_EQ(ReceivedOn(IDC_I2C_APPLY), Texts{"vdapi_I2C_Transfer(address, 2, null) A0002300"});
    dialog_.Press(IDC_I2C_WRITE_REGISTER);
    dialog_.Type(IDC_I2C_DATA_2, "0xFe");
    EXPECT_EQ(ReceivedOn(IDC_I2C_APPLY),
              Texts{"vdapi_I2C_Transfer(address, 3, null) A0002300 FE00"});
    dialog_.Press(IDC_I2C_READ_REGISTER);
    for (const char* address : {"0xA1", "0x1A0"}) {
        dialog_.Type(IDC_I2C_ADDRESS, address);
        EXPECT_EQ(ReceivedOn(IDC_I2C_APPLY),
                  Texts{"vdapi_I2C_Transfer(address, 2, address) A1000001"});
    }
}

TEST_F(I2cAccess, ReadsBackARegisterThatItHasWrittenAndZeroWithoutAReportWhereNothingAnswers) {
    Type({{IDC_I2C_ADDRESS, "0x48"}, {IDC_I2C_DATA_1, "0x0A"}});
    dialog_.Press(IDC_I2C_WRITE_REGISTER);
    dialog_.Type(IDC_I2C_DATA_2, "0x3C");
    dialog_.Press(IDC_I2C_APPLY);
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_1), "0x0A");
    dialog_.Press(IDC_I2C_READ_REGISTER);
    dialog_.Press(IDC_I2C_APPLY);
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_1), "0x3C");
    board::StickBits("vdapi_I2C_Transfer", 0xABCDEF00);
    Type({{IDC_I2C_DATA_1, "0x0A"}});
    dialog_.Press(IDC_I2C_APPLY);
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_1), "0x3C");
    board::SucceedAgain();
    dialog_.Type(IDC_I2C_ADDRESS, "0x60");
    dialog_.Press(IDC_I2C_APPLY);
    EXPECT_EQ(dialog_.Text(IDC_I2C_DATA_1), "0x00");
    EXPECT_TRUE(IsInFront());
    EXPECT_EQ(Stored("Data1"), "(none)") << "nothing is remembered before the end";
}

TEST_F(I2cAccess, RemembersFieldsAndOperationHoweverItIsClosed) {
    dialog_.Press(IDC_I2C_WRITE_REGISTER);
    Type({{IDC_I2C_ADDRESS, "0x1A1"}, {IDC_I2C_DATA_1, "0x12345"}, {IDC_I2C_DATA_2, "0xFFFF"}});
    dialog_.Key(VK_ESCAPE);
    EXPECT_EQ(Stored("Address"), "417");
    EXPECT_EQ(Stored("Data1"), "9029") << "of 16 bits";
    EXPECT_EQ(Stored("Data2"), "65535");
    EXPECT_EQ(Stored("Operation"), "2");

    Open();
    EXPECT_EQ(Shown(), (Texts{"0x1A1", "0x2345", "0xFFFF"}));
    EXPECT_TRUE(dialog_.IsChecked(IDC_I2C_WRITE_REGISTER));
    EXPECT_TRUE(dialog_.IsEnabled(IDC_I2C_DATA_2));
    dialog_.Press(IDC_I2C_WRITE_ADDRESS);
    dialog_.Type(IDC_I2C_ADDRESS, "7");
    dialog_.Press(IDOK);
    EXPECT_EQ(Stored("Address"), "0");
    EXPECT_EQ(Stored("Operation"), "1");
    Open();
}

TEST_F(I2cAccess, AnUnknownRememberedOperationCountsAsReading) {
    dialog_.Press(IDOK);
    settings_.Write(kit::kOwnFile, kSection, "Operation", "7");
    Open();
    EXPECT_EQ(ReceivedOn(IDC_I2C_APPLY), Texts{"vdapi_I2C_Transfer(address, 2, address) 01000001"});
    dialog_.Press(IDOK);
    EXPECT_EQ(Stored("Operation"), "0");
    Open();
}

class VpicI2cAccess : public DialogTest {
  protected:
    VpicI2cAccess() : DialogTest(IDM_VPIC_I2C_PORTS, "VPIC I2C Access", IDOK) {}
};

TEST_F(VpicI2cAccess, OpensOnTheClockAndReadsTheLineThatIsChosen) {
    EXPECT_TRUE(dialog_.IsChecked(IDC_VPIC_I2C_CLOCK));
    EXPECT_EQ(dialog_.Text(IDC_VPIC_I2C_VALUE), "1");
    dialog_.Type(IDC_VPIC_I2C_VALUE, "0");
    EXPECT_EQ(ReceivedOn(IDC_VPIC_I2C_SET), Texts{"vdapi_Debug(31, 8, address) 01000000 00000000"});
    ExpectCalls({"vdapi_Debug(32, 8, address) 02000000 *"}, ReceivedOn(IDC_VPIC_I2C_DATA));
    EXPECT_EQ(dialog_.Text(IDC_VPIC_I2C_VALUE), "1");
    ExpectCalls({"vdapi_Debug(32, 8, address) 01000000 *"}, ReceivedOn(IDC_VPIC_I2C_CLOCK));
    EXPECT_EQ(dialog_.Text(IDC_VPIC_I2C_VALUE), "0");
}

TEST_F(VpicI2cAccess, AnyDecimalNumberButZeroRaisesTheLine) {
    dialog_.Press(IDC_VPIC_I2C_DATA);
    for (const auto& [typed, level] :
         {std::pair{"0", 0}, std::pair{"-5", 1}, std::pair{"0x1", 0}, std::pair{" 65536", 1}}) {
        dialog_.Type(IDC_VPIC_I2C_VALUE, typed);
        EXPECT_EQ(ReceivedOn(IDC_VPIC_I2C_SET),
                  Texts{"vdapi_Debug(31, 8, address) 02000000 " + WordText(level)})
            << typed;
        EXPECT_EQ(dialog_.Text(IDC_VPIC_I2C_VALUE), typed);
    }
}

TEST_F(VpicI2cAccess, FailuresAreReportedOnceAndAFailedReadShowsZero) {
    board::FailAlways("TALVERO_DBG_VPIC_TR_I2C_GET", VXD_HARDWARE_FAILURE);
    board::FailAlways("TALVERO_DBG_VPIC_TR_I2C_SET", VXD_BUSY_WITH_PRIOR_REQUEST);
    constexpr char kTitle[] = "VxD Test - Warning";
    constexpr char kReadFailed[] =
        "vdapi_Debug: TALVERO_DBG_VPIC_TR_I2C_GET: \nVXD_HARDWARE_FAILURE";
    dialog_.Press(IDOK);
    utility_.Command(IDM_VPIC_I2C_PORTS);
    kit::MeetBox(kTitle, kReadFailed);
    dialog_ = kit::WaitForDialog("VPIC I2C Access");
    EXPECT_EQ(dialog_.Text(IDC_VPIC_I2C_VALUE), "0");
    dialog_.Type(IDC_VPIC_I2C_VALUE, "1");
    dialog_.Press(IDC_VPIC_I2C_SET);
    kit::MeetBox(kTitle, "vdapi_Debug: TALVERO_DBG_VPIC_TR_I2C_SET: \nVXD_BUSY_WITH_PRIOR_REQUEST");
    dialog_.Press(IDC_VPIC_I2C_DATA);
    // While the box is open, the radio button may be told of a click again.
    kit::BeginStep([window = dialog_.Handle(), button = dialog_.Control(IDC_VPIC_I2C_DATA)] {
        SendMessageA(window, WM_COMMAND, MAKEWPARAM(IDC_VPIC_I2C_DATA, BN_CLICKED),
                     reinterpret_cast<LPARAM>(button));
    });
    kit::MeetBox(kTitle, kReadFailed);
    EXPECT_EQ(dialog_.Text(IDC_VPIC_I2C_VALUE), "0");
    EXPECT_TRUE(IsInFront());
    board::SucceedAgain();
    dialog_.Key(VK_ESCAPE);
    kit::ExpectNoBox();
    Open();
}

}  // namespace
