// The bonding dialogs and the phone numbers in them.
#include <random>

#include "codec/bond_variables.h"
#include "codec/phone_numbers.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

constexpr char kLocalParams[] = "Local Bonding Params";
constexpr char kLocalPhones[] = "Local Bonding Phones";
constexpr char kWarning[] = "VxD Test - Warning";

constexpr char kGetOperation[] = "vdapi_VCPXI_VCPVariable_GetValue";
constexpr char kSetOperation[] = "vdapi_VCPXI_VCPVariable_SetValue";

const std::vector<int> kPhoneFields{IDC_BOND_PHONE_1, IDC_BOND_PHONE_2, IDC_BOND_PHONE_3,
                                    IDC_BOND_PHONE_4, IDC_BOND_PHONE_5};
const std::vector<int> kRateFields{IDC_BOND_BCR, IDC_BOND_RMULT, IDC_BOND_RATE};

class Bonding : public CommandTest {
  protected:
    kit::Dialog AskLocalParams() const { return Ask(IDM_BONDING_LOCAL_PARAMS, kLocalParams); }
    kit::Dialog AskLocalPhones() const { return Ask(IDM_BONDING_LOCAL_PHONES, kLocalPhones); }

    static void SetVariable(const char* name, std::vector<uint32_t> elements) {
        board::Hardware hardware = board::GetHardware();
        hardware.codecVariables[name].elements = std::move(elements);
        board::SetHardware(hardware);
    }
    static std::vector<uint32_t> Variable(const char* name) {
        return board::GetHardware().codecVariables[name].elements;
    }

    static std::string Get(const char* name) {
        return std::string(kGetOperation) + "(\"" + name + "\", 1, 1, address, 20)";
    }
    static std::string Set(const char* name, const char* byte) {
        return std::string(kSetOperation) + "(\"" + name + "\", 1, 1, address, 21) " + byte;
    }

    // The reports of one failure, level by level; the window below takes no input meanwhile.
    static void MeetReports(HWND below, std::initializer_list<const char*> names,
                            const char* error) {
        for (const char* name : names) {
            kit::WaitForDialog(kWarning);
            EXPECT_FALSE(IsWindowEnabled(below));
            kit::MeetBox(kWarning, std::string(name) + ": \n" + error);
        }
    }

    static bool IsInFront(const kit::Dialog& dialog) {
        return kit::FrontDialog().Handle() == dialog.Handle();
    }

    static void ExpectEnabled(const kit::Dialog& dialog, const std::vector<int>& controls,
                              bool enabled) {
        for (const int id : controls) {
            EXPECT_EQ(dialog.IsEnabled(id), enabled) << id;
        }
    }
};

TEST_F(Bonding, LocalParametersAreShownChangedAndSet) {
    const kit::Dialog dialog = AskLocalParams();
    EXPECT_EQ(ReceivedCalls(), (Texts{Get("vcx_bBondLocalBCR"), Get("vcx_oBondLocalRMult"),
                                      Get("vcx_bH320Caller"), Get("vcx_bBondOn")}));
    EXPECT_EQ(Shown(dialog, kRateFields), (Texts{"64K", "6", "384000"}));
    EXPECT_TRUE(dialog.IsChecked(IDC_BOND_ON) && dialog.IsChecked(IDC_BOND_CALLER));
    ExpectEnabled(dialog, {IDC_BOND_CALLER, IDC_BOND_BCR, IDC_BOND_RMULT}, true);

    board::ForgetCalls();
    dialog.Pick(IDC_BOND_BCR, "56K");
    EXPECT_EQ(dialog.Text(IDC_BOND_RATE), "336000");
    dialog.Pick(IDC_BOND_RMULT, "0");
    EXPECT_EQ(dialog.Text(IDC_BOND_RATE), "0");
    dialog.Pick(IDC_BOND_RMULT, "5");
    EXPECT_EQ(dialog.Text(IDC_BOND_RATE), "280000");
    dialog.Press(IDC_BOND_CALLER);
    dialog.Press(IDC_BOND_ON);
    ExpectEnabled(dialog, {IDC_BOND_CALLER, IDC_BOND_BCR, IDC_BOND_RMULT}, false);
    EXPECT_EQ(ReceivedCalls(), Texts{}) << "nothing is written yet";
    EXPECT_EQ(ReceivedOn(dialog, IDC_BOND_SET),
              (Texts{Set("vcx_bBondLocalBCR", "00"), Set("vcx_oBondLocalRMult", "05"),
                     Set("vcx_bH320Caller", "00"), Set("vcx_bBondOn", "00")}));
    dialog.Press(IDC_BOND_ON);
    ExpectEnabled(dialog, {IDC_BOND_CALLER, IDC_BOND_BCR, IDC_BOND_RMULT}, true);
    dialog.Press(IDC_BOND_GET);
    EXPECT_FALSE(dialog.IsChecked(IDC_BOND_ON) || dialog.IsChecked(IDC_BOND_CALLER));
    ExpectEnabled(dialog, {IDC_BOND_CALLER, IDC_BOND_BCR, IDC_BOND_RMULT}, false);

    for (const auto& [bcr, rmult, shown] :
         {std::tuple{1, 2, Texts{"64K", "2", "128000"}},
          std::tuple{0, 6, Texts{"56K", "6", "336000"}}, std::tuple{1, 0, Texts{"64K", "0", "0"}},
          std::tuple{5, 200, Texts{"", "", "12800000"}}}) {
        SetVariable("vcx_bBondLocalBCR", {static_cast<uint32_t>(bcr)});
        SetVariable("vcx_oBondLocalRMult", {static_cast<uint32_t>(rmult)});
        dialog.Press(IDC_BOND_GET);
        EXPECT_EQ(Shown(dialog, kRateFields), shown);
    }
    dialog.Press(IDOK);
    kit::ExpectNoBox();
}

TEST_F(Bonding, AListWithoutASelectionIsReportedOnceAndStopsTheSetting) {
    SetVariable("vcx_bBondLocalBCR", {2});
    const kit::Dialog dialog = AskLocalParams();
    EXPECT_EQ(dialog.Text(IDC_BOND_RATE), "384000");
    SelectNothing(dialog, IDC_BOND_RMULT, CB_SETCURSEL);
    EXPECT_EQ(ReceivedOn(dialog, IDC_BOND_SET), Texts{});
    for (const bool byKey : {false, true}) {
        MeetReports(dialog.Handle(), {"BondProc: Getting BCR", "BondProc: Getting RMult"},
                    "VXD_OPERATION_FAILED");
        EXPECT_TRUE(IsInFront(dialog));
        if (!byKey) {
            kit::BeginStep([&] { SetFocus(GetDlgItem(dialog.Handle(), IDC_BOND_BCR)); });
        }
    }
    EXPECT_EQ(ReceivedCalls(), Texts{});
    EXPECT_EQ(dialog.Text(IDC_BOND_RATE), "0");
    kit::RunStep([&] {
        SendDlgItemMessageA(dialog.Handle(), IDC_BOND_BCR, CB_SHOWDROPDOWN, TRUE, 0);
        SendDlgItemMessageA(dialog.Handle(), IDC_BOND_RMULT, CB_SETCURSEL, 1, 0);
        SendDlgItemMessageA(dialog.Handle(), IDC_BOND_BCR, CB_SETCURSEL, 1, 0);
    });
    EXPECT_TRUE(IsInFront(dialog)) << "a list that is opened can be chosen from";
    dialog.Pick(IDC_BOND_BCR, "64K");
    EXPECT_EQ(dialog.Text(IDC_BOND_RATE), "64000");
    dialog.Press(IDOK);
}

TEST_F(Bonding, RemoteAndCommonParametersAreOnlyShown) {
    for (const auto& [command, caption, bcr, rmult] :
         {std::tuple{IDM_BONDING_REMOTE_PARAMS, "Remote Bonding Parameters", "vcx_bBondRemoteBCR",
                     "vcx_oBondRemoteRMult"},
          std::tuple{IDM_BONDING_COMMON_PARAMS, "Common Bonding Parameters", "vcx_bBondCommonBCR",
                     "vcx_oBondCommonRMult"}}) {
        SetVariable(rmult, {3});
        const kit::Dialog dialog = Ask(command, caption);
        EXPECT_EQ(ReceivedCalls(), (Texts{Get(bcr), Get(rmult)}));
        EXPECT_EQ(Shown(dialog, kRateFields), (Texts{"56K", "3", "168000"}));
        ExpectEnabled(dialog, {IDC_BOND_BCR, IDC_BOND_RMULT}, false);
        SetVariable(bcr, {1});
        EXPECT_EQ(ReceivedOn(dialog, IDC_BOND_GET).size(), 2u);
        EXPECT_EQ(dialog.Text(IDC_BOND_RATE), "192000");
        board::ForgetCalls();
        kit::RunStep([&] { SendMessageA(dialog.Handle(), WM_COMMAND, IDC_BOND_SET, 0); });
        EXPECT_EQ(ReceivedCalls(), Texts{});
        dialog.Key(VK_ESCAPE);
        kit::ExpectNoBox();
    }
    const kit::Dialog dialog = AskLocalPhones();
    ExpectEnabled(dialog, kPhoneFields, false);
    dialog.Press(IDOK);
}

TEST_F(Bonding, FailuresAreReportedAtEachLevelAndLeaveTheFieldsAlone) {
    SetVariable("vcx_bBondOn", {1, 1});
    kit::Dialog dialog = kit::Dialog(nullptr);
    board::ForgetCalls();
    utility_.Command(IDM_BONDING_LOCAL_PARAMS);
    MeetReports(utility_.Window(), {"BondGetVcpValue", "BondGetParams", "BondProc: BondGetParams"},
                "VXD_INVALID_PARAMETER");
    dialog = kit::WaitForDialog(kLocalParams);
    EXPECT_EQ(ReceivedCalls().size(), 4u);
    EXPECT_EQ(Shown(dialog, kRateFields), (Texts{"", "", "0"}));
    ExpectEnabled(dialog, {IDC_BOND_CALLER, IDC_BOND_BCR, IDC_BOND_RMULT}, false);
    SetVariable("vcx_bBondOn", {1});
    dialog.Press(IDC_BOND_GET);
    dialog.Pick(IDC_BOND_RMULT, "2");
    SetVariable("vcx_bH320Caller", {0, 0});
    EXPECT_EQ(ReceivedOn(dialog, IDC_BOND_SET),
              (Texts{Set("vcx_bBondLocalBCR", "01"), Set("vcx_oBondLocalRMult", "02"),
                     Set("vcx_bH320Caller", "01")}));
    MeetReports(dialog.Handle(), {"BondSetVcpValue", "BondSetParams", "BondProc: BondSetParams"},
                "VXD_INVALID_PARAMETER");
    EXPECT_EQ(Variable("vcx_oBondLocalRMult"), std::vector<uint32_t>{2});
    EXPECT_TRUE(IsInFront(dialog));
    EXPECT_TRUE(IsWindowEnabled(dialog.Handle()));
    dialog.Press(IDC_BOND_ON);
    dialog.Press(IDOK);
    dialog = AskLocalPhones();
    ExpectEnabled(dialog, kPhoneFields, false);
    dialog.Press(IDOK);
    SetVariable("vcx_bH320Caller", {1});
    AskLocalParams().Key(VK_ESCAPE);

    dialog = AskLocalPhones();
    dialog.Type(IDC_BOND_PHONE_3, "77");
    board::FailOnce(kGetOperation, VXD_TIMEOUT_FAILURE);
    dialog.Press(IDC_BOND_GET);
    MeetReports(dialog.Handle(), {"BondGetVcpValue", "BondGetPhones", "BondProc: BondGetPhones"},
                "VXD_TIMEOUT_FAILURE");
    board::FailOnce(kSetOperation, ResultCode{34});
    dialog.Press(IDC_BOND_SET);
    MeetReports(dialog.Handle(), {"BondSetVcpValue", "BondSetPhones", "BondProc: BondSetPhones"},
                "Unknown Error");
    EXPECT_EQ(Shown(dialog, kPhoneFields), (Texts{"5551234", "5551235", "77", "Prev", "Prev"}));
    dialog.Press(IDOK);
    kit::ExpectNoBox();
}

TEST_F(Bonding, LocalPhonesAreEditedOnceBondingIsSeenOn) {
    kit::Dialog dialog = AskLocalPhones();
    EXPECT_EQ(ReceivedCalls(), Texts{std::string(kGetOperation) +
                                     R"(("vcx_adwBondLocalPhoneNum", 4, 5, address, 20))"});
    ExpectEnabled(dialog, kPhoneFields, false);
    dialog.Press(IDOK);
    AskLocalParams().CloseBox();
    dialog = AskLocalPhones();
    ExpectEnabled(dialog, kPhoneFields, true);
    EXPECT_EQ(Shown(dialog, kPhoneFields), (Texts{"5551234", "5551235", "Prev", "Prev", "Prev"}));

    for (const auto& [field, text] : {std::pair{IDC_BOND_PHONE_1, ""},
                                      {IDC_BOND_PHONE_2, "0a9-1x2"},
                                      {IDC_BOND_PHONE_3, "123456789"},
                                      {IDC_BOND_PHONE_5, "8"}}) {
        dialog.Type(field, text);
    }
    EXPECT_EQ(Shown(dialog, kPhoneFields), (Texts{"", "0912", "1234567", "Prev", "8"}));
    const Texts sent{std::string(kSetOperation) +
                     R"(("vcx_adwBondLocalPhoneNum", 4, 5, address, 21))"
                     " CCCCCC0C CC2C9100 67452301 CCCCCC0C CCCCCC08"};
    board::ForgetCalls();
    dialog.Key(VK_RETURN);
    EXPECT_EQ(ReceivedCalls(), sent);
    EXPECT_EQ(Variable("vcx_adwBondLocalPhoneNum")[1], 0x00912CCCu);
    dialog.Press(IDC_BOND_GET);
    EXPECT_EQ(Shown(dialog, kPhoneFields), (Texts{"Prev", "0912", "1234567", "Prev", "8"}));

    for (const char* wrong : {"Prev5", "prev", "12 34", "-1"}) {
        kit::RunStep([&] { SetDlgItemTextA(dialog.Handle(), IDC_BOND_PHONE_4, wrong); });
        EXPECT_EQ(ReceivedOn(dialog, IDC_BOND_SET), Texts{});
        kit::MeetBox(kWarning, std::string("Phone #4: \n\"") + wrong +
                                   "\" is not a phone number: digits only");
        EXPECT_EQ(dialog.FocusedId(), IDC_BOND_PHONE_4);
        EXPECT_EQ(dialog.Text(IDC_BOND_PHONE_4), wrong);
    }
    dialog.Press(IDOK);
}

TEST_F(Bonding, RemotePhonesAreOnlyShown) {
    SetVariable("vcx_adwBondRemotePhoneNum",
                {0x05551234, 0x0912CCCC, 0x0CCCCCCC, 0xF0CCCCCC, 0x01A2CCCC});
    AskLocalParams().Key(VK_ESCAPE);
    const kit::Dialog dialog = Ask(IDM_BONDING_REMOTE_PHONES, "Remote Bonding Phones");
    EXPECT_EQ(ReceivedCalls(), Texts{std::string(kGetOperation) +
                                     R"(("vcx_adwBondRemotePhoneNum", 4, 5, address, 20))"});
    EXPECT_EQ(Shown(dialog, kPhoneFields), (Texts{"5551234", "912", "Prev", "0", "1:2"}));
    ExpectEnabled(dialog, kPhoneFields, false);
    dialog.Press(IDOK);
}

TEST(PhoneNumbers, ComeBackAsTheyWerePacked) {
    EXPECT_EQ(BondTranslateStringsToPhones({"", "1234", "1234567", "0", "90"}),
              (PhoneWords{0x0CCCCCCC, 0x01234CCC, 0x01234567, 0x00CCCCCC, 0x090CCCCC}));
    constexpr unsigned kSeed = 4711;
    std::mt19937 random(kSeed);
    std::uniform_int_distribution<int> digit('0', '9');
    std::uniform_int_distribution<std::size_t> length(0, kPhoneDigits);
    for (int round = 0; round < 2000; ++round) {
        PhoneTexts texts;
        for (std::string& text : texts) {
            text.resize(length(random));
            std::ranges::generate(text, [&] { return static_cast<char>(digit(random)); });
        }
        const PhoneWords words = BondTranslateStringsToPhones(texts);
        EXPECT_TRUE(std::ranges::all_of(words, [](uint32_t word) { return word >> 28 == 0; }));
        std::ranges::replace(texts, std::string(), std::string("Prev"));
        ASSERT_EQ(BondTranslatePhonesToStrings(words), texts);
    }
}

}  // namespace
