// The codec processor's variables: transfers by name, and the repeated test of one.
#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

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
            name, sizeof(Unit), static_cast<int32_t>(elements.size()), At(elements), 33));
    }

    // The elements of a variable; none where the read fails with VXD_INVALID_PARAMETER, which must
    // leave the buffer alone.
    template <typename Unit>
    static std::vector<Unit> Get(const char* name, size_t count) {
        constexpr Unit kUntouched = static_cast<Unit>(0xA5A5A5A5);
        std::vector<Unit> elements(count + 1, kUntouched);
        const ResultCode code = CodeOf(vdapi_VCPXI_VCPVariable_GetValue(
            name, sizeof(Unit), static_cast<int32_t>(count), elements.data(), 32));
        if (code != VXD_SUCCESS) {
            EXPECT_EQ(code, VXD_INVALID_PARAMETER);
            EXPECT_EQ(elements, std::vector<Unit>(count + 1, kUntouched));
            return {};
        }
        EXPECT_EQ(elements.back(), kUntouched);
        elements.pop_back();
        return elements;
    }

    static ResultCode Test(const char* name, uint32_t value, uint16_t times) {
        LowObject<std::array<char, 64>> text;
        std::copy_n(name, std::char_traits<char>::length(name), text->begin());
        return Debug(TALVERO_DBG_VCPXI_MULTIACCESS, VcpxiTestBlock{text.Address(), value, times});
    }

  private:
    template <typename Unit>
    static const Unit* At(const std::vector<Unit>& elements) {
        static constexpr Unit kNothing = 0;
        return elements.empty() ? &kNothing : elements.data();
    }
};

}  // namespace

TEST_F(CodecVariables, AreReadAndWrittenWholeInTheirOwnUnit) {
    const std::vector<uint32_t> phones{0x01234CCC, 0xFFFFFFFF, 0, 0x80000001, 5};
    EXPECT_EQ(Get<uint8_t>("vcx_bBondOn", 1), std::vector<uint8_t>{1});
    EXPECT_EQ(Set("vcx_adwBondLocalPhoneNum", phones), VXD_SUCCESS);
    EXPECT_EQ(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 5), phones);
    EXPECT_EQ(Get<uint32_t>("vcx_adwBondRemotePhoneNum", 5)[2], 0x0912CCCCu);

    EXPECT_TRUE(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 4).empty());
    EXPECT_TRUE(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 6).empty());
    EXPECT_TRUE(Get<uint16_t>("vcx_adwBondLocalPhoneNum", 10).empty()) << "as many bytes";
    EXPECT_TRUE(Get<uint8_t>("VCX_BBONDON", 1).empty());
    EXPECT_EQ(Set<uint16_t>("vcx_adwBondLocalPhoneNum", std::vector<uint16_t>(10)),
              VXD_INVALID_PARAMETER);
    EXPECT_EQ(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 5), phones);

    vdapi_AUXDEV_HardwareReset();
    EXPECT_EQ(Get<uint32_t>("vcx_adwBondLocalPhoneNum", 5)[0], 0x05551234u);
}

TEST_F(CodecVariables, AreMadeByTheFirstWriteOfAFreeName) {
    EXPECT_TRUE(Get<uint16_t>("free", 3).empty());
    const std::vector<uint16_t> words{0x12, 0xABCD, 0};
    EXPECT_EQ(Set("free", words), VXD_SUCCESS);
    EXPECT_EQ(Get<uint16_t>("free", 3), words);
    EXPECT_EQ(Set("free", std::vector<uint8_t>(3)), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Set("none", std::vector<uint8_t>{}), VXD_SUCCESS);
    EXPECT_EQ(Set("most", std::vector<uint8_t>(0xFFFF, 0x5A)), VXD_SUCCESS);
    EXPECT_EQ(Get<uint8_t>("most", 0xFFFF), std::vector<uint8_t>(0xFFFF, 0x5A));

    EXPECT_EQ(Set("more", std::vector<uint16_t>(0x8000)), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Set("", words), VXD_INVALID_PARAMETER);
    uint32_t value = 1;
    for (const uint32_t unit : {0u, 3u, 8u}) {
        EXPECT_EQ(vdapi_VCPXI_VCPVariable_SetValue("unit", unit, 1, &value, 33),
                  VXD_INVALID_PARAMETER);
    }
    EXPECT_EQ(vdapi_VCPXI_VCPVariable_SetValue("count", 1, -1, &value, 33), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_VCPXI_VCPVariable_SetValue("none", 1, 0, nullptr, 33), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_VCPXI_VCPVariable_SetValue(nullptr, 1, 1, &value, 33), VXD_INVALID_PARAMETER);
    EXPECT_FALSE(board::GetHardware().codecVariables.contains("count"));

    vdapi_AUXDEV_HardwareReset();
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
    EXPECT_EQ(board::GetServices().codecVariableTests, 2000u);

    for (const char* name : {"vcx_bBondOn", "vcx_adwBondLocalPhoneNum", "unknown", ""}) {
        EXPECT_EQ(Test(name, 1, 1), VXD_INVALID_PARAMETER) << name;
    }
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_MULTIACCESS, VcpxiTestBlock{0, 1, uint16_t{1}}),
              VXD_INVALID_PARAMETER);

    board::StickBits("TALVERO_DBG_VCPXI_MULTIACCESS", 0x10);
    EXPECT_EQ(Test("vcx_bH263Enc", 0x11, 1), VXD_SUCCESS);
    EXPECT_EQ(Test("vcx_bH263Enc", 0x01, 1), VXD_HARDWARE_FAILURE);
    board::StickBits("vdapi_VCPXI_VCPVariable_GetValue", 0xFFFFFF80);
    EXPECT_EQ(Get<uint8_t>("vcx_bBondOn", 1), std::vector<uint8_t>{0x81});
}
