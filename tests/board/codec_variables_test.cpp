// The codec processor's variables: transfers by name, and the repeated test of one.
#include "driver/low_memory.h"
#include "driver/shared_words.h"
#include "tests/board/driver_test.h"

namespace {

using namespace std::chrono_literals;

class CodecVariables : public DriverTest {
  protected:
    ~CodecVariables() override {
        KORA_DLL_Terminate();
        vdapi_Terminate();
    }

    template <typename Unit>
    static ResultCode Set(const char* name, const std::vector<Unit>& elements) {
        return CodeOf(vdapi_VCPXI_VCPVariable_SetValue(
            name, sizeof(Unit), static_cast<int32_t>(elements.size()), elements.data(), 33));
    }

    // The elements of a variable; none where the read is refused.
    template <typename Unit>
    static std::vector<Unit> Get(const char* name, size_t count) {
        std::vector<Unit> elements(count);
        const uint32_t code = vdapi_VCPXI_VCPVariable_GetValue(
            name, sizeof(Unit), static_cast<int32_t>(count), elements.data(), 32);
        return code == VXD_SUCCESS ? elements : std::vector<Unit>{};
    }

    static ResultCode Test(const char* name, uint32_t value, uint16_t times) {
        LowObject<std::array<char, 64>> text;
        std::copy_n(name, std::char_traits<char>::length(name), text->begin());
        return Debug(TALVERO_DBG_VCPXI_MULTIACCESS, VcpxiTestBlock{text.Address(), value, times});
    }
};

}  // namespace

TEST_F(CodecVariables, AreReadAndWrittenWholeInTheirOwnUnit) {
    const std::vector<uint32_t> phones{0x01234CCC, 0xFFFFFFFF, 0, 0x80000001, 5};
    EXPECT_EQ(Get<uint8_t>("vcx_bBondOn", 1), std::vector<uint8_t>{1});
    EXPECT_EQ(Set("vcx_adwBondLocalPhoneNum", phones), VXD_SUCCESS);
    EXPECT_EQ(Get<uint32_t>("vcx_adwBondRemotePhoneNum", 5)[2], 0x0912CCCCu);
    EXPECT_TRUE(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 4).empty());
    EXPECT_TRUE(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 6).empty());
    EXPECT_TRUE(Get<uint16_t>("vcx_adwBondLocalPhoneNum", 10).empty()) << "as many bytes";
    EXPECT_TRUE(Get<uint8_t>("VCX_BBONDON", 1).empty());
    EXPECT_EQ(Set("vcx_adwBondLocalPhoneNum", std::vector<uint16_t>(10)), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 5), phones);

    EXPECT_TRUE(Get<uint16_t>("free", 3).empty());
    const std::vector<uint16_t> words{0x12, 0xABCD, 0};
    EXPECT_EQ(Set("free", words), VXD_SUCCESS) << "made by the first write";
    EXPECT_EQ(Get<uint16_t>("free", 3), words);
    EXPECT_EQ(Set("free", std::vector<uint8_t>(3)), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Set("", words), VXD_INVALID_PARAMETER);
    vdapi_AUXDEV_HardwareReset();
    EXPECT_EQ(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 5)[0], 0x05551234u);
    EXPECT_TRUE(Get<uint16_t>("free", 3).empty());
}

TEST_F(CodecVariables, TellThatATransferIsOver) {
    std::ranges::copy(SharedWordSlots(), KORA_DLL_GetSharedTable());
    SharedWords& words = GetSharedWords();
    words.VcpGetFlag = 0x10001;
    words.VcpSetFlag = 0x10001;
    const auto isClear = [](volatile uint32_t& word) {
        const std::atomic_ref flag(const_cast<uint32_t&>(word));
        for (int i = 0; i < 500 && flag != 0; ++i) {
            std::this_thread::sleep_for(10ms);
        }
        return flag == 0;
    };
    Get<uint8_t>("vcx_bBondOn", 1);
    EXPECT_TRUE(isClear(words.VcpGetFlag));
    EXPECT_EQ(words.VcpSetFlag, 0x10001u);
    EXPECT_EQ(Set("vcx_bBondOn", std::vector<uint16_t>{1}), VXD_INVALID_PARAMETER);
    EXPECT_TRUE(isClear(words.VcpSetFlag)) << "also when it was refused";
}

TEST_F(CodecVariables, AreTestedByManyAccessesThatTakeTheirTime) {
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(Test("vcx_bH263Enc", 0xFFFFFFF5, 2000), VXD_SUCCESS);
    EXPECT_GE(std::chrono::steady_clock::now() - start, 40ms);
    EXPECT_EQ(Get<uint32_t>("vcx_bH263Enc", 1), std::vector<uint32_t>{0xFFFFFFF5});
    EXPECT_EQ(Test("vcx_bH263Enc", 0, 0), VXD_SUCCESS);
    EXPECT_EQ(Get<uint32_t>("vcx_bH263Enc", 1), std::vector<uint32_t>{0xFFFFFFF5});
    EXPECT_EQ(Test("vcx_bBondOn", 1, 1), VXD_INVALID_PARAMETER) << "of another unit";
    EXPECT_EQ(Test("unknown", 1, 1), VXD_INVALID_PARAMETER);
    board::StickBits("TALVERO_DBG_VCPXI_MULTIACCESS", 0x10);
    EXPECT_EQ(Test("vcx_bH263Enc", 0x11, 1), VXD_SUCCESS);
    EXPECT_EQ(Test("vcx_bH263Enc", 0x01, 1), VXD_HARDWARE_FAILURE);
    board::StickBits("vdapi_VCPXI_VCPVariable_GetValue", 0xFFFFFF80);
    EXPECT_EQ(Get<uint8_t>("vcx_bBondOn", 1), std::vector<uint8_t>{0x81});
}
