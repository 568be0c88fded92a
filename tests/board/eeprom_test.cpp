#include "driver/shared_words.h"
#include "platform/win32.h"
#include "tests/board/driver_test.h"

namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

constexpr uint32_t kConstant = 30;
using Bytes = std::array<uint8_t, 8>;

// A board whose EEPROM has the flag to clear.
class Eeproms : public DriverTest {
  protected:
    Eeproms() { std::ranges::copy(SharedWordSlots(), KORA_DLL_GetSharedTable()); }

    ~Eeproms() override {
        KORA_DLL_Terminate();
        vdapi_Terminate();
    }

    static bool IsPending() { return Flag().load() != 0; }

    // Waits for the transfer that was started with `code`; gives its code.
    static ResultCode Finish(uint32_t code) {
        const Clock::time_point start = Clock::now();
        while (code == VXD_SUCCESS && IsPending()) {
            if (Clock::now() - start > 5s) {
                ADD_FAILURE() << "the transfer does not end";
                break;
            }
            std::this_thread::sleep_for(1ms);
        }
        return CodeOf(code);
    }

    static uint32_t StartWrite(uint32_t address, const Bytes& bytes, uint32_t length) {
        Flag().store(1);
        return vdapi_EPROM_Write(address, bytes.data(), length, kConstant);
    }

    static uint32_t StartRead(uint32_t address, Bytes& bytes, uint32_t length) {
        Flag().store(1);
        return vdapi_EPROM_Read(address, bytes.data(), length, kConstant);
    }

    static Bytes Read(uint32_t address, uint32_t length) {
        Bytes bytes{};
        EXPECT_EQ(Finish(StartRead(address, bytes, length)), VXD_SUCCESS);
        return bytes;
    }

  private:
    static std::atomic_ref<uint16_t> Flag() {
        return std::atomic_ref(const_cast<uint16_t&>(GetSharedWords().EpromPendingFlag));
    }
};

}  // namespace

TEST_F(Eeproms, KeepTheirBytesInAFileBetweenRuns) {
    EXPECT_EQ(Finish(StartWrite(2, {0x11, 0x22}, 2)), VXD_SUCCESS);
    vdapi_AUXDEV_HardwareReset();
    vdapi_ResetVxD();
    EXPECT_EQ(Read(2, 2), (Bytes{0x11, 0x22}));

    EXPECT_EQ(settings_.Read(kit::kEepromFile, "EEPROM", "0x003"), "0x22");
    settings_.Write(kit::kEepromFile, "EEPROM", "0x003", "0x33");
    settings_.Write(kit::kEepromFile, "EEPROM", "0x002", nullptr);
    EXPECT_EQ(Read(2, 3), (Bytes{0xFF, 0x33, 0xFF})) << "what is missing in the file is erased";
}

TEST_F(Eeproms, TakeTheirTimeWhileTheCallReturnsAtOnce) {
    board::SetEepromBehaviour({.millisecondsPerByte = 40});
    const Clock::time_point start = Clock::now();
    Bytes bytes{0x55, 0x66, 0x77};
    EXPECT_EQ(StartWrite(0, bytes, 3), VXD_SUCCESS);
    EXPECT_TRUE(IsPending());
    bytes.fill(0);  // was taken over by the call
    EXPECT_EQ(vdapi_EPROM_Write(8, bytes.data(), 1, kConstant), VXD_BUSY_WITH_PRIOR_REQUEST);
    EXPECT_EQ(board::GetEeprom()[0], 0x55) << "answered with success, and so stored";
    EXPECT_EQ(Finish(VXD_SUCCESS), VXD_SUCCESS);
    EXPECT_GE(Clock::now() - start, 3 * 40ms);
    EXPECT_EQ(Read(0, 3), (Bytes{0x55, 0x66, 0x77}));
    EXPECT_EQ(board::GetEeprom()[8], 0xFF);
}

TEST_F(Eeproms, RefuseLengthsAndAddressesThatTheyDoNotHave) {
    Bytes bytes{0xA5};
    using Range = std::pair<uint32_t, uint32_t>;
    for (const auto& [address, length] :
         {Range{0, 0}, Range{0, 9}, Range{0x1F9, 8}, Range{0xFFFFFFFF, 2}}) {
        EXPECT_EQ(StartRead(address, bytes, length), VXD_INVALID_PARAMETER);
        EXPECT_EQ(StartWrite(address, bytes, length), VXD_INVALID_PARAMETER);
    }
    EXPECT_FALSE(std::filesystem::exists(kit::SettingsPath(kit::kEepromFile)));
}

TEST_F(Eeproms, SayThatTheirFileCannotBeWritten) {
    const std::filesystem::path file = kit::SettingsPath(kit::kEepromFile);
    std::filesystem::create_directories(file);
    Bytes bytes{1, 2, 3};
    EXPECT_EQ(StartWrite(0, bytes, 3), VXD_FILE_OPEN_FAILURE);
    EXPECT_TRUE(IsPending()) << "a refused transfer never ends";
    EXPECT_EQ(Read(0, 1), Bytes{0xFF});
    std::filesystem::remove(file);
    EXPECT_EQ(Finish(StartWrite(0, bytes, 3)), VXD_SUCCESS);
    EXPECT_EQ(Read(0, 3), (Bytes{1, 2, 3}));
}

TEST_F(Eeproms, WorkAgainAfterTransfersThatNeverEnded) {
    settings_.Write(kit::kBoardFile, "Board", "EepromHangs", "1");
    settings_.Write(kit::kBoardFile, "Board", "EepromMillisecondsPerByte", "0");
    vdapi_Initialize(0);
    Bytes bytes{0xA5};
    EXPECT_EQ(StartRead(0, bytes, 1), VXD_SUCCESS);
    EXPECT_EQ(StartWrite(0, bytes, 1), VXD_SUCCESS);
    std::this_thread::sleep_for(50ms);
    EXPECT_TRUE(IsPending());
    EXPECT_EQ(bytes[0], 0xA5);

    board::SetEepromBehaviour({.millisecondsPerByte = 0, .hangs = false});
    EXPECT_EQ(Read(0, 1), (Bytes{0xFF}));
}
