// The dialogs that reach a place by its plain address: "Access Mem/IO Address", "USS Reg" and
// "Jade access dialog".
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

class MemoryAccess : public DialogTest {
  protected:
    MemoryAccess() : DialogTest(IDM_486, "Access Mem/IO Address", IDOK) {}
};

// Meets the box about a field without its prefix.
void MeetNoPrefix() {
    kit::MeetBox("Mem/IO Access", "Invalid Param #1.\nPlease enter number of the form: 0xXXXXXXXX.",
                 IDOK, MB_ICONEXCLAMATION);
}

TEST_F(MemoryAccess, WritesAndReadsAUnitOfMemoryAndReportsNoFailure) {
    EXPECT_EQ(Shown({IDC_MEMORY_ADDRESS, IDC_MEMORY_VALUE, IDC_MEMORY_UNIT}),
              (Texts{"", "", "DWORD"}));
    Type({{IDC_MEMORY_ADDRESS, "0xD0001000"}, {IDC_MEMORY_VALUE, "0x0ABCDEF2"}});
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_SET), Texts{"vdapi_MEM_Write(D0001000, 4, ABCDEF2)"});
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_GET), Texts{"vdapi_MEM_Read(D0001000, 4, address)"});
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "0xabcdef2");
    dialog_.Pick(IDC_MEMORY_UNIT, "WORD");
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_GET), Texts{"vdapi_MEM_Read(D0001000, 2, address)"});
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "0xdef2");
    dialog_.Pick(IDC_MEMORY_UNIT, "BYTE");
    dialog_.Type(IDC_MEMORY_VALUE, "0x7");
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_SET), Texts{"vdapi_MEM_Write(D0001000, 1, 7)"});
    EXPECT_EQ(dialog_.Text(IDC_PORT_VALUE), "");
    board::FailAlways("vdapi_MEM_Read", VXD_HARDWARE_FAILURE);
    board::FailAlways("vdapi_MEM_Write", VXD_HARDWARE_FAILURE);
    dialog_.Press(IDC_MEMORY_SET);
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "0x7");
    dialog_.Press(IDC_MEMORY_GET);
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "0x0");
    EXPECT_TRUE(IsInFront());
}

TEST_F(MemoryAccess, WritesAndReadsAUnitOfPorts) {
    EXPECT_EQ(Shown({IDC_PORT_ADDRESS, IDC_PORT_VALUE, IDC_PORT_UNIT}), (Texts{"", "", "WORD"}));
    Type({{IDC_PORT_ADDRESS, "0x3F8"}, {IDC_PORT_VALUE, "0xBEEF"}});
    EXPECT_EQ(ReceivedOn(IDC_PORT_SET), Texts{"vdapi_IO_Write(3F8, 2, BEEF)"});
    dialog_.Pick(IDC_PORT_UNIT, "BYTE");
    EXPECT_EQ(ReceivedOn(IDC_PORT_GET), Texts{"vdapi_IO_Read(3F8, 1, address)"});
    EXPECT_EQ(Shown({IDC_PORT_VALUE, IDC_MEMORY_VALUE}), (Texts{"0xef", ""}));
}

TEST_F(MemoryAccess, AFieldWithoutItsPrefixIsNamedInABoxAndNothingIsSent) {
    struct Case {
        int button;
        const char* address;
        const char* value;
        int boxes = 1;
    };
    for (const Case& each :
         {Case{IDC_MEMORY_GET, "", ""}, Case{IDC_MEMORY_SET, "0x1000", "12"},
          Case{IDC_MEMORY_SET, "1000", "0x12"}, Case{IDC_MEMORY_SET, "0X1000", "$12", 2},
          // A prefix behind the nineteenth character does not count.
          Case{IDC_MEMORY_GET, "                  0x1", ""}}) {
        Type({{IDC_MEMORY_ADDRESS, each.address}, {IDC_MEMORY_VALUE, each.value}});
        dialog_.Press(each.button);
        for (int box = 0; box < each.boxes; ++box)
            MeetNoPrefix();
        EXPECT_TRUE(IsInFront()) << each.address;
        EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), each.value);
    }
    dialog_.Type(IDC_PORT_VALUE, "0x1");
    for (const int button : {IDC_PORT_GET, IDC_PORT_SET}) {
        dialog_.Press(button);
        MeetNoPrefix();
    }
    EXPECT_EQ(ReceivedCalls(), Texts{});
}

TEST_F(MemoryAccess, TakesTheNumberBehindTheFirstPrefix) {
    for (const auto& [typed, address] :
         {std::pair{"0x", "0"}, std::pair{"at 0x10 to 0x20", "10"}, std::pair{"0x 1fG", "1F"},
          std::pair{"0xFFFFFFFE", "FFFFFFFE"},
          // Of the last digits the field's nineteen characters leave one.
          std::pair{"                0x123", "1"}}) {
        dialog_.Type(IDC_MEMORY_ADDRESS, typed);
        EXPECT_EQ(ReceivedOn(IDC_MEMORY_GET),
                  Texts{std::string("vdapi_MEM_Read(") + address + ", 4, address)"})
            << typed;
    }
    // What stands for "no number", and what does not fit.
    for (const char* typed : {"0xFFFFFFFF", "0x123456789", "0x12345678901234567"}) {
        dialog_.Type(IDC_MEMORY_ADDRESS, typed);
        EXPECT_EQ(ReceivedOn(IDC_MEMORY_GET), Texts{}) << typed;
    }
    Type({{IDC_MEMORY_ADDRESS, "0x1000"}, {IDC_MEMORY_VALUE, "0xFFFFFFFF"}});
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_SET), Texts{});
    EXPECT_TRUE(IsInFront()) << "without a message";
}

class UssRegisters : public DialogTest {
  protected:
    UssRegisters() : DialogTest(IDM_USS_REGISTERS, "USS Reg", IDOK) {}
};

TEST_F(UssRegisters, WritesAndReadsThroughTheFirmwareAndShowsTheSecondResponseOr0) {
    dialog_.Press(IDC_USS_GET);
    MeetNoPrefix();
    Type({{IDC_USS_ADDRESS, "0x1"}, {IDC_USS_VALUE, "17"}});
    dialog_.Press(IDC_USS_SET);
    MeetNoPrefix();
    EXPECT_EQ(ReceivedCalls(), Texts{});
    Type({{IDC_USS_ADDRESS, "0x1234"}, {IDC_USS_VALUE, "0x00C0FFEE"}});
    EXPECT_EQ(ReceivedOn(IDC_USS_SET),
              Texts{"vdapi_SendCommand(FA1, 1234, C0FFEE, 0, address, address, address)"});
    EXPECT_EQ(dialog_.Text(IDC_USS_VALUE), "0x00C0FFEE") << "not read back";
    EXPECT_EQ(ReceivedOn(IDC_USS_GET),
              Texts{"vdapi_SendCommand(FA0, 1234, 0, 0, address, address, address)"});
    EXPECT_EQ(dialog_.Text(IDC_USS_VALUE), "0xc0ffee");
    board::FailAlways("PELLAN_COMMAND_GET_USS_REG", VXD_TIMEOUT_FAILURE);
    dialog_.Press(IDC_USS_GET);
    EXPECT_EQ(dialog_.Text(IDC_USS_VALUE), "0x0");
    EXPECT_TRUE(IsInFront()) << "a failure is not reported";
}

class JadeAccess : public DialogTest {
  protected:
    JadeAccess() : DialogTest(IDM_JADE_REGISTERS, "Jade access dialog", IDCANCEL) {}
};

TEST_F(JadeAccess, WritesAndReadsARegisterAndShows0WithoutAReportWhereThatFails) {
    EXPECT_EQ(Shown({IDC_JADE_REGISTER, IDC_JADE_VALUE}), Texts(2, "0x00"));
    EXPECT_FALSE(dialog_.IsChecked(IDC_JADE_INCREMENT));
    Type({{IDC_JADE_REGISTER, "0x2A"}, {IDC_JADE_VALUE, "0x12b"}});
    EXPECT_EQ(ReceivedOn(IDC_JADE_SET), Texts{"vdapi_JADE_Write(2A, 2B)"});
    dialog_.Type(IDC_JADE_VALUE, "");
    EXPECT_EQ(ReceivedOn(IDC_JADE_GET), Texts{"vdapi_JADE_Read(2A, address)"});
    EXPECT_EQ(Shown({IDC_JADE_REGISTER, IDC_JADE_VALUE}), (Texts{"0x2A", "0x2B"}));
    board::StickBits("vdapi_JADE_Read", 0xABCDEF00);
    dialog_.Press(IDC_JADE_GET);
    EXPECT_EQ(dialog_.Text(IDC_JADE_VALUE), "0x2B");
    board::FailAlways("vdapi_JADE_Read", VXD_HARDWARE_FAILURE);
    dialog_.Press(IDC_JADE_GET);
    EXPECT_EQ(dialog_.Text(IDC_JADE_VALUE), "0x00");
    EXPECT_TRUE(IsInFront());
}

TEST_F(JadeAccess, ReadsTheRegisterFromFiveCharactersAfterTheFirstTwo) {
    for (const auto& [typed, number] :
         {std::pair{"0x1", "1"}, std::pair{"0x1234", "23"}, std::pair{"25", "0"},
          std::pair{"2", "0"}, std::pair{"", "0"}, std::pair{"--3F", "3F"}}) {
        dialog_.Type(IDC_JADE_REGISTER, typed);
        EXPECT_EQ(ReceivedOn(IDC_JADE_SET),
                  Texts{std::string("vdapi_JADE_Write(") + number + ", 0)"})
            << typed;
    }
}

TEST_F(JadeAccess, GoesOnToTheNextRegisterAfterEachAccessWhileAskedTo) {
    dialog_.Press(IDC_JADE_INCREMENT);
    dialog_.Type(IDC_JADE_REGISTER, "0x0F");
    dialog_.Press(IDC_JADE_SET);
    EXPECT_EQ(dialog_.Text(IDC_JADE_REGISTER), "0x10");
    dialog_.Type(IDC_JADE_REGISTER, "0xFF");
    dialog_.Press(IDC_JADE_GET);
    EXPECT_EQ(dialog_.Text(IDC_JADE_REGISTER), "0x100");
    EXPECT_EQ(ReceivedOn(IDC_JADE_GET), Texts{"vdapi_JADE_Read(0, address)"});
    EXPECT_EQ(dialog_.Text(IDC_JADE_REGISTER), "0x01");
}

}  // namespace
