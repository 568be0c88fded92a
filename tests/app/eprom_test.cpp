// "EPROM DLG".
#include "driver/shared_words.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

using namespace std::chrono_literals;

class Eprom : public DialogTest {
  protected:
    Eprom() : DialogTest(IDM_EEPROM_ACCESS, "EPROM DLG", IDC_EPROM_CLOSE) {}

    std::string Stored(const char* key) const { return DialogTest::Stored("EPROM DLG", key); }

    void TypeData(const std::array<const char*, 8>& texts) const {
        for (std::size_t i = 0; i < texts.size(); ++i)
            dialog_.Type(data_[i], texts[i]);
    }

    Texts Data() const { return Shown(data_); }

    // Puts bytes where they are read from address 0x20 on.
    static void FillBoard() {
        board::EepromContents contents{};
        for (std::size_t i = 0; i < 8; ++i)
            contents[0x20 + i] = static_cast<uint8_t>(0xA1 + i);
        board::SetEeprom(contents);
    }

  private:
    const std::vector<int> data_{IDC_EPROM_DATA_1, IDC_EPROM_DATA_2, IDC_EPROM_DATA_3,
                                 IDC_EPROM_DATA_4, IDC_EPROM_DATA_5, IDC_EPROM_DATA_6,
                                 IDC_EPROM_DATA_7, IDC_EPROM_DATA_8};
};

TEST_F(Eprom, ReadsAsManyBytesAsAskedForAndShowsTheOthersAsZero) {
    EXPECT_EQ(Shown({IDC_EPROM_ADDRESS, IDC_EPROM_LENGTH}), (Texts{"0x00", "0x01"}));
    EXPECT_TRUE(dialog_.IsChecked(IDC_EPROM_READ));
    FillBoard();
    TypeData({"0x11", "0x22", "0x33", "0x44", "0x55", "0x66", "0x77", "0x88"});
    Type({{IDC_EPROM_ADDRESS, "0x20"}, {IDC_EPROM_LENGTH, "0x03"}});
    EXPECT_EQ(ReceivedOn(IDC_EPROM_APPLY), Texts{"vdapi_EPROM_Read(20, address, 3, 1E)"});
    EXPECT_EQ(Data(), (Texts{"0xA1", "0xA2", "0xA3", "0x00", "0x00", "0x00", "0x00", "0x00"}));

    dialog_.Type(IDC_EPROM_LENGTH, "0x8");
    dialog_.Press(IDC_EPROM_APPLY);
    EXPECT_EQ(Data(), (Texts{"0xA1", "0xA2", "0xA3", "0xA4", "0xA5", "0xA6", "0xA7", "0xA8"}));
}

TEST_F(Eprom, WritesTheLowBytesOfItsFieldsAndReadsNothingBack) {
    FillBoard();
    TypeData({"0x101", "0x2", "03", "0x4G", "", "0xFF", "0xff", "0x88"});
    Type({{IDC_EPROM_ADDRESS, "0x1F8"}, {IDC_EPROM_LENGTH, "0x08"}});
    dialog_.Press(IDC_EPROM_WRITE);
    EXPECT_EQ(ReceivedOn(IDC_EPROM_APPLY),
              Texts{"vdapi_EPROM_Write(1F8, address, 8, 1E) 01020004 00FFFF88"});
    EXPECT_EQ(Data()[0], "0x101");
    const board::EepromContents contents = board::GetEeprom();
    EXPECT_EQ(contents[0x1F8], 0x01);
    EXPECT_EQ(contents[0x1FF], 0x88);
    EXPECT_EQ(contents[0x20], 0xA1) << "the rest stays";
    EXPECT_TRUE(IsInFront());
    EXPECT_EQ(Stored("Length"), "(none)") << "nothing is remembered before the end";
}

// A transfer may end before its call returns, so a flag that is raised behind the call stays up.
TEST_F(Eprom, RaisesTheFlagBeforeTheBoardIsCalled) {
    for (const auto& [operation, button] : {std::pair{"vdapi_EPROM_Read", IDC_EPROM_READ},
                                            std::pair{"vdapi_EPROM_Write", IDC_EPROM_WRITE}}) {
        dialog_.Press(button);
        board::SlowDown(operation, 500ms);
        board::ForgetCalls();
        PostMessageA(dialog_.Control(IDC_EPROM_APPLY), BM_CLICK, 0, 0);
        const std::atomic_ref flag(const_cast<uint16_t&>(GetSharedWords().EpromPendingFlag));
        while (flag == 0 && board::Calls().empty())
            std::this_thread::sleep_for(1ms);
        EXPECT_TRUE(board::Calls().empty()) << operation;
        kit::Settle();
        board::SlowDown(operation, {});
    }
}

TEST_F(Eprom, RemembersFieldsAndOperationHoweverItIsClosed) {
    dialog_.Press(IDC_EPROM_WRITE);
    TypeData({"0x1", "0xFFFF", "0x12345", "4", "0x5", "0x6", "0x7", "0xABC"});
    Type({{IDC_EPROM_ADDRESS, "0x1FF"}, {IDC_EPROM_LENGTH, "0x02"}});
    dialog_.Key(VK_ESCAPE);
    for (const auto& [key, stored] :
         {std::pair{"Address", "511"}, std::pair{"Data2", "65535"},
          std::pair{"Data3", "9029"},  // of 16 bits
          std::pair{"Data8", "2748"}, std::pair{"Length", "2"}, std::pair{"Operation", "1071"}})
        EXPECT_EQ(Stored(key), stored) << key;

    Open();
    EXPECT_EQ(Shown({IDC_EPROM_ADDRESS, IDC_EPROM_LENGTH}), (Texts{"0x1FF", "0x02"}));
    EXPECT_EQ(Data(), (Texts{"0x01", "0xFFFF", "0x2345", "0x00", "0x05", "0x06", "0x07", "0xABC"}));
    EXPECT_TRUE(dialog_.IsChecked(IDC_EPROM_WRITE));
    dialog_.Press(IDC_EPROM_READ);
    dialog_.Press(IDC_EPROM_CLOSE);
    EXPECT_EQ(Stored("Operation"), "1070");
    Open();
}

TEST_F(Eprom, AReadThatTakesTooLongIsReportedAndDoesNoHarmWhenItEndsAfterAll) {
    FillBoard();
    board::SetEepromBehaviour({.millisecondsPerByte = 600});
    Type({{IDC_EPROM_ADDRESS, "0x20"}, {IDC_EPROM_LENGTH, "0x08"}, {IDC_EPROM_DATA_1, "0x55"}});
    const auto start = std::chrono::steady_clock::now();
    dialog_.Press(IDC_EPROM_APPLY);
    kit::MeetBox("VxD Test - Warning",
                 "vdapi_Debug: TALVERO_DBG_EPROM_READ: \nVXD_TIMEOUT_FAILURE");
    EXPECT_GE(std::chrono::steady_clock::now() - start, 4000ms);
    EXPECT_EQ(Data()[0], "0x55");

    std::this_thread::sleep_until(start + 8 * 600ms + 300ms);
    board::SetEepromBehaviour({.millisecondsPerByte = 1});
    dialog_.Press(IDC_EPROM_APPLY);
    EXPECT_EQ(Data()[7], "0xA8");
}

TEST_F(Eprom, AWriteThatNeverEndsIsReportedAndTheProgramGoesOn) {
    board::SetEepromBehaviour({.hangs = true});
    dialog_.Press(IDC_EPROM_WRITE);
    dialog_.Type(IDC_EPROM_DATA_1, "0x77");
    dialog_.Press(IDC_EPROM_APPLY);
    kit::MeetBox("VxD Test - Warning",
                 "vdapi_Debug: TALVERO_DBG_EPROM_WRITE: \nVXD_TIMEOUT_FAILURE");
    board::SetEepromBehaviour({});
    dialog_.Press(IDC_EPROM_APPLY);
    EXPECT_TRUE(IsInFront());
    EXPECT_EQ(board::GetEeprom()[0], 0x77);
}

}  // namespace
