// "VCPXi Variable Access".
#include <cstdio>

#include "driver/shared_words.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

constexpr char kGetCaption[] = "GetVcpxiValue";
constexpr char kSetCaption[] = "SetVcpxiValue";
constexpr char kTestCaption[] = "TestVcpxiVariable";
constexpr char kWarning[] = "VxD Test - Warning";

std::string Repeated(const std::string& text, int times) {
    std::string repeated;
    for (int i = 0; i < times; ++i) {
        repeated += text;
    }
    return repeated;
}

class VariableAccess : public DialogTest {
  protected:
    VariableAccess() : DialogTest(IDM_VCPXI_VARIABLE_ACCESS, "VCPXi Variable Access", IDCANCEL) {}

    void Fill(const std::string& name, const char* unit, const std::string& count) const {
        dialog_.Type(IDC_VARIABLE_NAME, name);
        dialog_.Pick(IDC_VARIABLE_UNIT, unit);
        dialog_.Type(IDC_VARIABLE_COUNT, count);
    }

    // Presses a button that sends nothing to the board but says something.
    void ExpectRefused(int button, const char* caption, const char* text) const {
        EXPECT_EQ(ReceivedOn(button), Texts{});
        kit::WaitForDialog(caption);
        EXPECT_FALSE(IsWindowEnabled(dialog_.Handle()));
        kit::MeetBox(caption, text, IDOK, MB_OK);
        EXPECT_TRUE(IsInFront());
    }

    // A line for each row of the list, with its item value.
    Texts Recent() const {
        Texts rows;
        for (int row = 0; row < dialog_.Rows(IDC_VARIABLE_NAME); ++row) {
            const auto item = static_cast<unsigned>(kit::OnUserInterface([&] {
                return SendDlgItemMessageA(dialog_.Handle(), IDC_VARIABLE_NAME, CB_GETITEMDATA,
                                           static_cast<WPARAM>(row), 0);
            }));
            char number[9];
            std::snprintf(number, sizeof number, "%X", item);
            rows.push_back(dialog_.Row(IDC_VARIABLE_NAME, row) + ' ' + number);
        }
        return rows;
    }

    void Store(const char* key, const char* text) const {
        settings_.Write(kit::kOwnFile, "VCP", key, text);
    }
    std::string Stored(const char* key) const { return DialogTest::Stored("VCP", key); }

    static void SetVariable(const char* name, const board::CodecVariable& variable) {
        board::Hardware hardware = board::GetHardware();
        hardware.codecVariables[name] = variable;
        board::SetHardware(hardware);
    }

    const std::vector<int> fields_{IDC_VARIABLE_NAME, IDC_VARIABLE_UNIT, IDC_VARIABLE_COUNT,
                                   IDC_VARIABLE_VALUE, IDC_VARIABLE_REPEAT};
};

TEST_F(VariableAccess, ReadsAVariableChangesItAndShowsItWhenItIsOpenedAgain) {
    EXPECT_EQ(Shown(fields_), (Texts{"", "DWORD", "1", "", "512"}));
    EXPECT_EQ(dialog_.FocusedId(), IDC_VARIABLE_NAME);
    SetVariable("vcx_words", {2, {0x12, 0xABCD, 0}});
    Fill("vcx_words", "WORD", "3");
    board::ForgetCalls();
    dialog_.Key(VK_RETURN);
    EXPECT_EQ(ReceivedCalls(),
              Texts{R"(vdapi_VCPXI_VCPVariable_GetValue("vcx_words", 2, 3, address, 20))"});
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), "0x0012\r\n0xABCD\r\n0x0000\r\n");
    EXPECT_EQ(Recent(), Texts{"vcx_words 10003"});

    dialog_.Type(IDC_VARIABLE_VALUE, "0xF00D\r0x1\r0xBEE");
    EXPECT_EQ(ReceivedOn(IDC_VARIABLE_SET),
              Texts{R"(vdapi_VCPXI_VCPVariable_SetValue("vcx_words", 2, 3, address, 21))"
                    " 0DF00100 EE0B"});
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), "0xF00D\r\n0x1\r\n0xBEE") << "stays as typed";
    dialog_.Key(VK_ESCAPE);
    EXPECT_EQ(Stored("LastVar0") + ' ' + Stored("LastParam0"), "vcx_words 10003");
    EXPECT_EQ(Stored("LastVar1"), "(none)");
    Open();
    EXPECT_EQ(Shown(fields_), (Texts{"vcx_words", "WORD", "3", "", "512"}));
    dialog_.AltKey('g');
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), "0xF00D\r\n0x0001\r\n0x0BEE\r\n");

    SetVariable("vcx_double", {4, {0xFEDCBA98, 0xA}});
    Fill("vcx_double", "DWORD", "2");
    dialog_.Press(IDC_VARIABLE_GET);
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), "0xFEDCBA98\r\n0x0000000A\r\n");
    Fill("vcx_bBondOn", "BYTE", "1");
    dialog_.Press(IDC_VARIABLE_GET);
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), "0x01\r\n");
    EXPECT_EQ(Recent(), (Texts{"vcx_bBondOn 1", "vcx_double 20002", "vcx_words 10003"}));
}

TEST_F(VariableAccess, TakesTheValuesThatATextBeginsWithAndPassesOverTheRest) {
    struct {
        const char* unit;
        const char* count;
        const char* values;
        const char* sent;
    } const cases[] = {
        {"BYTE", "4", "0x1FF, 0x22 word 0x33", "1, 4, address, 21) FF223300"},
        {"BYTE", "5", "0x1,2,0x3 0X4 0x5", "1, 5, address, 21) 01030500 00"},
        {"DWORD", "2", "1 0x22", "4, 2, address, 21) 00000000 00000000"},
        {"DWORD", "+1x", "\r 0xdeadBEEF", "4, 1, address, 21) EFBEADDE"},
        {"WORD", "2", " 0xA11 0x22", "2, 2, address, 21) 110A110A"},
        {"BYTE", "3", "0x1 0xZ 0x3", "1, 3, address, 21) 010000"},
        {"BYTE", "x3", "0x1", "1, 0, address, 21)"},
    };
    int number = 0;
    for (const auto& each : cases) {
        const std::string name = "free_" + std::to_string(number++);
        Fill(name, each.unit, each.count);
        dialog_.Type(IDC_VARIABLE_VALUE, each.values);
        EXPECT_EQ(ReceivedOn(IDC_VARIABLE_SET),
                  Texts{"vdapi_VCPXI_VCPVariable_SetValue(\"" + name + "\", " + each.sent})
            << each.values;
        EXPECT_TRUE(IsInFront());
    }
    EXPECT_EQ(ReceivedOn(IDC_VARIABLE_GET), Texts{"vdapi_VCPXI_VCPVariable_GetValue(\"free_6\", "
                                                  "1, 0, address, 20)"});
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), "");
}

TEST_F(VariableAccess, RefusesWhatCannotBeTransferredBeforeItSendsAnything) {
    for (const auto& [unit, count, most] :
         {std::tuple{"BYTE", "65536", "65535"}, std::tuple{"WORD", "32768", "32767"},
          std::tuple{"DWORD", "16384", "16383"}, std::tuple{"DWORD", "9999999", "1"},
          std::tuple{"BYTE", "-1", "1"}}) {
        Fill("any", unit, count);
        ExpectRefused(IDC_VARIABLE_GET, kGetCaption, "Invalid Count");
        dialog_.Type(IDC_VARIABLE_COUNT, most);
        EXPECT_EQ(ReceivedOn(IDC_VARIABLE_GET).size(), 1u) << most;
        kit::MeetBox(kWarning, "vdapi_VCPXI_VCPVariable_GetValue: \nVXD_INVALID_PARAMETER");
    }
    for (const auto& [unit, count, most] :
         {std::tuple{"BYTE", "32768", "32767"}, std::tuple{"WORD", "16384", "16383"},
          std::tuple{"DWORD", "8192", "8191"}, std::tuple{"WORD", "-5", "0"}}) {
        Fill(std::string("new_") + unit + count, unit, count);
        ExpectRefused(IDC_VARIABLE_SET, kSetCaption, "Invalid Count");
        dialog_.Type(IDC_VARIABLE_COUNT, most);
        EXPECT_EQ(ReceivedOn(IDC_VARIABLE_SET).size(), 1u) << most;
        EXPECT_TRUE(IsInFront());
    }
    Fill("any", "BYTE", "");
    ExpectRefused(IDC_VARIABLE_GET, kGetCaption, "Internal Error");
    Fill("any", "BYTE", "0");
    ExpectRefused(IDC_VARIABLE_TEST, kTestCaption, "Test - Invalid UnitSize");
    Fill("any", "DWORD", "65538");
    ExpectRefused(IDC_VARIABLE_TEST, kTestCaption, "Test Multi fields - Not supported");

    SelectNothing(dialog_, IDC_VARIABLE_UNIT, CB_SETCURSEL);
    for (const int button : {IDC_VARIABLE_GET, IDC_VARIABLE_SET, IDC_VARIABLE_TEST}) {
        dialog_.Press(button);
        EXPECT_TRUE(IsInFront());
        EXPECT_EQ(dialog_.FocusedId(), IDC_VARIABLE_UNIT) << "where something is missing";
    }
}

TEST_F(VariableAccess, NamesFailuresAndRemembersNothingOfThem) {
    GetSharedWords().VcpGetFlag = 0;
    GetSharedWords().VcpSetFlag = 0;
    Fill("vcx_bBondOn", "BYTE", "1");
    for (const auto& [button, operation, code, name] :
         {std::tuple{IDC_VARIABLE_GET, "vdapi_VCPXI_VCPVariable_GetValue", VXD_DMA_BUSY,
                     "VXD_DMA_BUSY"},
          std::tuple{IDC_VARIABLE_SET, "vdapi_VCPXI_VCPVariable_SetValue", ResultCode{33},
                     "Unknown Error"}}) {
        dialog_.Type(IDC_VARIABLE_VALUE, "0x00");
        board::FailOnce(operation, code);
        dialog_.Press(button);
        kit::MeetBox(kWarning, std::string(operation) + ": \n" + name);
        EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), "Failure");
        EXPECT_EQ(GetSharedWords().VcpGetFlag, 1u);
        EXPECT_EQ(GetSharedWords().VcpSetFlag, button == IDC_VARIABLE_SET ? 1u : 0u);
    }
    EXPECT_EQ(Recent(), Texts{});
    Fill("vcx_bBondOn", "WORD", "1");
    dialog_.Press(IDC_VARIABLE_GET);
    kit::MeetBox(kWarning, "vdapi_VCPXI_VCPVariable_GetValue: \nVXD_INVALID_PARAMETER");
    dialog_.Key(VK_ESCAPE);
    EXPECT_EQ(Stored("LastVar0"), "(none)");
    Open();
}

TEST_F(VariableAccess, ListsNamesByTheirLastUseAndKeepsThemBetweenRuns) {
    dialog_.Press(IDCANCEL);
    for (const auto& [key, text] : {std::pair{"LastVar0", "vcx_bBondOnLonger"},
                                    {"LastParam0", "1000a"},
                                    {"LastVar1", "vcx_other"},
                                    {"LastVar2", "VCX_OTHER"},
                                    {"LastParam2", "7"},
                                    {"LastVar3", "vcx_bBondOn"},
                                    {"LastParam3", "00000001 and more"},
                                    {"LastVar5", "behind the gap"},
                                    {"TestLoops", "7 times"}}) {
        Store(key, text);
    }
    Open();
    EXPECT_EQ(Recent(), (Texts{"vcx_bBondOnLonger 1000A", "vcx_other 20001", "vcx_bBondOn 1"}));
    EXPECT_EQ(Shown(fields_), (Texts{"vcx_bBondOnLonger", "WORD", "10", "", "7"}));
    dialog_.Pick(IDC_VARIABLE_NAME, "vcx_other");
    EXPECT_EQ(Shown(fields_), (Texts{"vcx_other", "DWORD", "1", "", "7"}));

    Fill("VCX_BBONDON", "BYTE", "1");
    dialog_.Press(IDC_VARIABLE_SET);
    EXPECT_EQ(Recent(), (Texts{"VCX_BBONDON 1", "vcx_other 20001", "vcx_bBondOn 1"}))
        << "the first that begins with it made place";
    EXPECT_EQ(dialog_.SelectedRow(IDC_VARIABLE_NAME), 0);
    dialog_.CloseBox();
    EXPECT_EQ(Stored("LastVar0") + ' ' + Stored("LastParam0"), "VCX_BBONDON 1");
    EXPECT_EQ(Stored("LastVar1") + ' ' + Stored("LastParam1"), "vcx_other 20001");
    EXPECT_EQ(Stored("LastVar2") + ' ' + Stored("LastParam2"), "vcx_bBondOn 1");
    EXPECT_EQ(Stored("LastVar3") + ' ' + Stored("LastVar5"), "vcx_bBondOn behind the gap");

    Store("LastParam0", "30001");
    Open();
    EXPECT_EQ(dialog_.SelectedRow(IDC_VARIABLE_UNIT), -1) << "a unit that is none";
}

TEST_F(VariableAccess, TestsADoubleWordAsOftenAsItIsTold) {
    const auto sent = [](const char* rest) {
        return "vdapi_Debug(6C, C, address) * " + std::string(rest);
    };
    struct {
        const char* count;
        const char* value;
        const char* repeats;
        const char* block;
        const char* stored;
    } const cases[] = {
        {"1", "0x00001234", "3", "34120000 03000000", "3"},
        {"0", "1234", "65538 times", "34000000 02000000", "2"},
        {"65537", "0", "0", "00000000 00000000", "0"},
        {"x", "  FEDCBA987", "", "87A9CBED 00000000", "0"},
    };
    for (const auto& each : cases) {
        Fill("vcx_bH263Enc", "DWORD", each.count);
        Type({{IDC_VARIABLE_VALUE, each.value}, {IDC_VARIABLE_REPEAT, each.repeats}});
        ExpectCalls({sent(each.block)}, ReceivedOn(IDC_VARIABLE_TEST));
        EXPECT_TRUE(IsInFront());
        EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), each.value);
        EXPECT_EQ(Stored("TestLoops"), each.stored);
    }
    EXPECT_EQ(board::GetHardware().codecVariables["vcx_bH263Enc"].elements[0], 0x34u);
    EXPECT_EQ(Stored("LastVar"), "vcx_bH263Enc");
    EXPECT_EQ(Recent(), Texts{"vcx_bH263Enc 0"});

    Fill("vcx_b", "DWORD", "1");
    dialog_.Press(IDC_VARIABLE_TEST);
    kit::MeetBox(kWarning, "vdapi_Debug: TALVERO_DBG_VCPXI_MULTIACCESS: \nVXD_INVALID_PARAMETER");
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE), "Failure");
    Fill("", "DWORD", "1");
    dialog_.Press(IDC_VARIABLE_TEST);
    kit::MeetBox(kWarning, "vdapi_Debug: TALVERO_DBG_VCPXI_MULTIACCESS: \nVXD_INVALID_PARAMETER");
    EXPECT_EQ(Recent(), Texts{"vcx_bH263Enc 0"}) << "one there begins with it";
    EXPECT_EQ(Stored("LastVar"), "vcx_bH263Enc");
    dialog_.CloseBox();
    Open();
    EXPECT_EQ(Shown(fields_), (Texts{"vcx_bH263Enc", "BYTE", "0", "", "0"}));
}

TEST_F(VariableAccess, TakesLongNamesManyValuesAndManyNames) {
    const std::string name(127, 'n');
    Fill(name + "beyond", "BYTE", "12345678");
    EXPECT_EQ(Shown({IDC_VARIABLE_NAME, IDC_VARIABLE_COUNT}), (Texts{name, "1234567"}));
    dialog_.Type(IDC_VARIABLE_COUNT, "1000");
    dialog_.Type(IDC_VARIABLE_VALUE, Repeated("0xA5,", 819) + "0xFF");
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE).size(), 4099u);
    dialog_.Press(IDC_VARIABLE_SET);
    std::vector<uint32_t> elements(1000, 0);
    std::fill_n(elements.begin(), 819, 0xA5);
    EXPECT_EQ(board::GetHardware().codecVariables[name].elements, elements)
        << "4,095 characters count";
    elements[999] = 0x5A;
    SetVariable(name.c_str(), {1, elements});
    dialog_.Press(IDC_VARIABLE_GET);
    EXPECT_EQ(dialog_.Text(IDC_VARIABLE_VALUE),
              Repeated("0xA5\r\n", 819) + Repeated("0x00\r\n", 180) + "0x5A\r\n");
    EXPECT_EQ(Recent(), Texts{name + " 3E8"});

    dialog_.Press(IDCANCEL);
    for (int i = 1; i < 200; ++i) {
        Store(("LastVar" + std::to_string(i)).c_str(), ("name" + std::to_string(i)).c_str());
    }
    Open();
    EXPECT_EQ(dialog_.Rows(IDC_VARIABLE_NAME), 200);
    EXPECT_EQ(dialog_.Row(IDC_VARIABLE_NAME, 0), name);
    dialog_.Press(IDCANCEL);
    EXPECT_EQ(Stored("LastParam0") + ' ' + Stored("LastParam199"), "3e8 20001");
    Open();
}

}  // namespace
