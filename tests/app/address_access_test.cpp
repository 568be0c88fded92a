// The dialogs that reach a place by its plain address: "Access Mem/IO Address", "USS Reg" and
// "Jade access dialog".
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board/control.h"
#include "res/resource.h"
#include "tests/app/received_calls.h"
#include "tests/kit/utility.h"

namespace {

constexpr char kNoPrefixTitle[] = "Mem/IO Access";
constexpr char kNoPrefix[] = "Invalid Param #1.\nPlease enter number of the form: 0xXXXXXXXX.";

using Calls = std::vector<std::string>;

class DirectAccess : public testing::Test {
  protected:
    DirectAccess(UINT command, const char* caption, int close) : close_(close) {
        utility_.Choose(command);
        dialog_ = kit::WaitForDialog(caption);
        board::ForgetCalls();
    }
    ~DirectAccess() override { dialog_.Press(close_); }

    // What the board receives when the button is pressed.
    Calls ReceivedOn(int button) {
        board::ForgetCalls();
        dialog_.Press(button);
        return ReceivedCalls();
    }

    kit::Utility utility_;
    kit::Dialog dialog_{nullptr};

  private:
    int close_;
};

class MemoryAccess : public DirectAccess {
  protected:
    MemoryAccess() : DirectAccess(IDM_486, "Access Mem/IO Address", IDOK) {}

    std::vector<std::string> Units(int list) const {
        std::vector<std::string> units;
        for (int row = 0; row < dialog_.Rows(list); ++row)
            units.push_back(dialog_.Row(list, row));
        return units;
    }
};

TEST_F(MemoryAccess, OpensEmptyOnTheWidestUnitsOfWhichPortsHaveTwo) {
    for (const int field : {IDC_MEMORY_ADDRESS, IDC_MEMORY_VALUE, IDC_PORT_ADDRESS, IDC_PORT_VALUE})
        EXPECT_EQ(dialog_.Text(field), "");
    EXPECT_EQ(Units(IDC_MEMORY_UNIT), (std::vector<std::string>{"BYTE", "WORD", "DWORD"}));
    EXPECT_EQ(Units(IDC_PORT_UNIT), (std::vector<std::string>{"BYTE", "WORD"}));
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_UNIT), "DWORD");
    EXPECT_EQ(dialog_.Text(IDC_PORT_UNIT), "WORD");
}

TEST_F(MemoryAccess, WritesAndReadsAUnitOfMemory) {
    dialog_.Type(IDC_MEMORY_ADDRESS, "0xD0001000");
    dialog_.Type(IDC_MEMORY_VALUE, "0x0ABCDEF2");
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_SET), Calls{"vdapi_MEM_Write(D0001000, 4, ABCDEF2)"});
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_GET), Calls{"vdapi_MEM_Read(D0001000, 4, address)"});
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "0xabcdef2");
    dialog_.Pick(IDC_MEMORY_UNIT, "WORD");
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_GET), Calls{"vdapi_MEM_Read(D0001000, 2, address)"});
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "0xdef2");
    dialog_.Pick(IDC_MEMORY_UNIT, "BYTE");
    dialog_.Type(IDC_MEMORY_VALUE, "0x7");
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_SET), Calls{"vdapi_MEM_Write(D0001000, 1, 7)"});
    EXPECT_EQ(dialog_.Text(IDC_PORT_VALUE), "");
}

TEST_F(MemoryAccess, WritesAndReadsAUnitOfPorts) {
    dialog_.Type(IDC_PORT_ADDRESS, "0x3F8");
    dialog_.Type(IDC_PORT_VALUE, "0xBEEF");
    EXPECT_EQ(ReceivedOn(IDC_PORT_SET), Calls{"vdapi_IO_Write(3F8, 2, BEEF)"});
    dialog_.Pick(IDC_PORT_UNIT, "BYTE");
    EXPECT_EQ(ReceivedOn(IDC_PORT_GET), Calls{"vdapi_IO_Read(3F8, 1, address)"});
    EXPECT_EQ(dialog_.Text(IDC_PORT_VALUE), "0xef");
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "");
}

TEST_F(MemoryAccess, AFailureIsNotReportedAndReadsAsZero) {
    for (const char* operation : {"vdapi_MEM_Read", "vdapi_MEM_Write"})
        board::FailAlways(operation, VXD_HARDWARE_FAILURE);
    dialog_.Type(IDC_MEMORY_ADDRESS, "0x1000");
    dialog_.Type(IDC_MEMORY_VALUE, "0x55");
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_SET), Calls{"vdapi_MEM_Write(1000, 4, 55)"});
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "0x55");
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_GET), Calls{"vdapi_MEM_Read(1000, 4, address)"});
    EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), "0x0");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
}

TEST_F(MemoryAccess, AFieldWithoutItsPrefixIsNamedInABoxAndNothingIsSent) {
    struct Case {
        int button;
        const char* address;
        const char* value;
        int boxes;
    };
    for (const Case& each :
         {Case{IDC_MEMORY_GET, "", "", 1}, Case{IDC_MEMORY_SET, "0x1000", "12", 1},
          Case{IDC_MEMORY_SET, "1000", "0x12", 1}, Case{IDC_MEMORY_SET, "0X1000", "$12", 2},
          // A prefix behind the nineteenth character does not count.
          Case{IDC_MEMORY_GET, "                  0x1", "", 1}}) {
        dialog_.Type(IDC_MEMORY_ADDRESS, each.address);
        dialog_.Type(IDC_MEMORY_VALUE, each.value);
        dialog_.Press(each.button);
        for (int box = 0; box < each.boxes; ++box)
            kit::MeetBox(kNoPrefixTitle, kNoPrefix, IDOK, MB_ICONEXCLAMATION);
        EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle()) << each.address;
        EXPECT_EQ(dialog_.Text(IDC_MEMORY_VALUE), each.value);
    }
    for (const int button : {IDC_PORT_GET, IDC_PORT_SET}) {
        dialog_.Type(IDC_PORT_VALUE, "0x1");
        dialog_.Press(button);
        kit::MeetBox(kNoPrefixTitle, kNoPrefix, IDOK, MB_ICONEXCLAMATION);
    }
    EXPECT_EQ(ReceivedCalls(), Calls{});
}

TEST_F(MemoryAccess, TakesTheNumberBehindTheFirstPrefix) {
    struct Case {
        const char* typed;
        Calls received;
    };
    for (const Case& each : {Case{"0x", Calls{"vdapi_MEM_Read(0, 4, address)"}},
                             Case{"at 0x10 to 0x20", Calls{"vdapi_MEM_Read(10, 4, address)"}},
                             Case{"0x 1fG", Calls{"vdapi_MEM_Read(1F, 4, address)"}},
                             Case{"0xFFFFFFFE", Calls{"vdapi_MEM_Read(FFFFFFFE, 4, address)"}},
                             // Of the last digits the field's nineteen characters leave one.
                             Case{"                0x123", Calls{"vdapi_MEM_Read(1, 4, address)"}},
                             // What stands for "no number", and what does not fit.
                             Case{"0xFFFFFFFF", Calls{}}, Case{"0x123456789", Calls{}},
                             Case{"0x12345678901234567", Calls{}}}) {
        dialog_.Type(IDC_MEMORY_ADDRESS, each.typed);
        EXPECT_EQ(ReceivedOn(IDC_MEMORY_GET), each.received) << each.typed;
    }
    dialog_.Type(IDC_MEMORY_ADDRESS, "0x1000");
    dialog_.Type(IDC_MEMORY_VALUE, "0xFFFFFFFF");
    EXPECT_EQ(ReceivedOn(IDC_MEMORY_SET), Calls{});
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle()) << "without a message";
}

TEST_F(MemoryAccess, OnlyItsCloseButtonEndsIt) {
    dialog_.Key(VK_ESCAPE);
    dialog_.CloseBox();
    EXPECT_TRUE(dialog_.IsOpen());
}

class UssRegisters : public DirectAccess {
  protected:
    UssRegisters() : DirectAccess(IDM_USS_REGISTERS, "USS Reg", IDOK) {}
};

TEST_F(UssRegisters, WritesAndReadsThroughTheFirmwareAndShowsTheSecondResponse) {
    EXPECT_EQ(dialog_.Text(IDC_USS_ADDRESS), "");
    dialog_.Type(IDC_USS_ADDRESS, "0x1234");
    dialog_.Type(IDC_USS_VALUE, "0x00C0FFEE");
    EXPECT_EQ(ReceivedOn(IDC_USS_SET),
              Calls{"vdapi_SendCommand(FA1, 1234, C0FFEE, 0, address, address, address)"});
    EXPECT_EQ(dialog_.Text(IDC_USS_VALUE), "0x00C0FFEE") << "not read back";
    EXPECT_EQ(ReceivedOn(IDC_USS_GET),
              Calls{"vdapi_SendCommand(FA0, 1234, 0, 0, address, address, address)"});
    EXPECT_EQ(dialog_.Text(IDC_USS_VALUE), "0xc0ffee");
}

TEST_F(UssRegisters, AFailureIsNotReportedAndReadsAsZero) {
    board::FailAlways("PELLAN_COMMAND_GET_USS_REG", VXD_TIMEOUT_FAILURE);
    dialog_.Type(IDC_USS_ADDRESS, "0x1");
    dialog_.Press(IDC_USS_GET);
    EXPECT_EQ(dialog_.Text(IDC_USS_VALUE), "0x0");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
}

TEST_F(UssRegisters, AFieldWithoutItsPrefixIsNamedInABoxAndNothingIsSent) {
    dialog_.Press(IDC_USS_GET);
    kit::MeetBox(kNoPrefixTitle, kNoPrefix, IDOK, MB_ICONEXCLAMATION);
    dialog_.Type(IDC_USS_ADDRESS, "0x1");
    dialog_.Type(IDC_USS_VALUE, "17");
    dialog_.Press(IDC_USS_SET);
    kit::MeetBox(kNoPrefixTitle, kNoPrefix, IDOK, MB_ICONEXCLAMATION);
    EXPECT_EQ(ReceivedCalls(), Calls{});
}

TEST_F(UssRegisters, OnlyItsCloseButtonEndsIt) {
    dialog_.Key(VK_ESCAPE);
    dialog_.CloseBox();
    EXPECT_TRUE(dialog_.IsOpen());
}

class JadeAccess : public DirectAccess {
  protected:
    JadeAccess() : DirectAccess(IDM_JADE_REGISTERS, "Jade access dialog", IDCANCEL) {}
};

TEST_F(JadeAccess, WritesAndReadsARegister) {
    EXPECT_EQ(dialog_.Text(IDC_JADE_REGISTER), "0x00");
    EXPECT_EQ(dialog_.Text(IDC_JADE_VALUE), "0x00");
    EXPECT_FALSE(dialog_.IsChecked(IDC_JADE_INCREMENT));
    dialog_.Type(IDC_JADE_REGISTER, "0x2A");
    dialog_.Type(IDC_JADE_VALUE, "0x12b");
    EXPECT_EQ(ReceivedOn(IDC_JADE_SET), Calls{"vdapi_JADE_Write(2A, 2B)"});
    dialog_.Type(IDC_JADE_VALUE, "");
    EXPECT_EQ(ReceivedOn(IDC_JADE_GET), Calls{"vdapi_JADE_Read(2A, address)"});
    EXPECT_EQ(dialog_.Text(IDC_JADE_VALUE), "0x2B");
    EXPECT_EQ(dialog_.Text(IDC_JADE_REGISTER), "0x2A") << "it stays where it is";
}

TEST_F(JadeAccess, ReadsTheRegisterFromFiveCharactersAfterTheFirstTwo) {
    struct Case {
        const char* typed;
        const char* registerNumber;
    };
    for (const Case& each : {Case{"0x1", "1"}, Case{"0x1234", "23"}, Case{"25", "0"},
                             Case{"2", "0"}, Case{"", "0"}, Case{"--3F", "3F"}}) {
        dialog_.Type(IDC_JADE_REGISTER, each.typed);
        EXPECT_EQ(ReceivedOn(IDC_JADE_SET),
                  Calls{std::string("vdapi_JADE_Write(") + each.registerNumber + ", 0)"})
            << each.typed;
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
    EXPECT_EQ(ReceivedOn(IDC_JADE_GET), Calls{"vdapi_JADE_Read(0, address)"});
    EXPECT_EQ(dialog_.Text(IDC_JADE_REGISTER), "0x01");
}

TEST_F(JadeAccess, AFailureIsNotReportedAndReadsAsZero) {
    board::FailAlways("vdapi_JADE_Read", VXD_HARDWARE_FAILURE);
    dialog_.Type(IDC_JADE_VALUE, "0x55");
    dialog_.Press(IDC_JADE_GET);
    EXPECT_EQ(dialog_.Text(IDC_JADE_VALUE), "0x00");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
}

TEST(JadeAccessEnd, EscapeCloses) {
    const kit::Utility utility;
    utility.Choose(IDM_JADE_REGISTERS);
    kit::WaitForDialog("Jade access dialog").Key(VK_ESCAPE);
    kit::ExpectNoBox();
}

}  // namespace
