// The I2C bus and the two cameras on it.
#include <utility>
#include <vector>

#include "driver/firmware_command.h"
#include "tests/board/driver_test.h"

using I2cTransfers = BoardTest;
using Cameras = BoardTest;

namespace {

constexpr uint16_t kRead = 0x100;
constexpr uint32_t kUntouched = 0xA5A5A5A5;

struct Reading {
    ResultCode code;
    uint32_t value;
};

Reading Transfer(const std::vector<uint16_t>& items) {
    uint32_t result = kUntouched;
    const ResultCode code =
        CodeOf(vdapi_I2C_Transfer(items.data(), static_cast<uint32_t>(items.size()), &result));
    return {code, result};
}

// Reads a camera's register with the operation for it.
Reading Read(uint32_t(WINAPI* operation)(uint32_t id, uint8_t* value), uint32_t id) {
    uint8_t value = 0xA5;
    const ResultCode code = CodeOf(operation(id, &value));
    return {code, value};
}

}  // namespace

TEST_F(I2cTransfers, WriteAndReadTheRegisterThatWasNamedLast) {
    EXPECT_EQ(Transfer({0x48, 0x0A, 0x37}).code, VXD_SUCCESS);
    EXPECT_EQ(Transfer({0x49, kRead}).value, 0x37u);
    EXPECT_EQ(Transfer({0x49, kRead}).value, 0x37u) << "reading stays at the register";

    EXPECT_EQ(Transfer({0x48, 0x0B}).value, kUntouched) << "nothing was read";
    EXPECT_EQ(Transfer({0x49, kRead}).value, 0x46u);

    const std::vector<uint16_t> items{0x48, 0x0D, 0x11, 0x22};
    EXPECT_EQ(vdapi_I2C_Transfer(items.data(), 4, nullptr), VXD_SUCCESS);
    EXPECT_EQ(Transfer({0x49, kRead}).value, 0x11u);
    EXPECT_EQ(Transfer({0x49, kRead, kRead}).value, 0x22u) << "bytes go to successive registers";
}

TEST_F(I2cTransfers, LeaveEachChipAtItsOwnRegister) {
    Transfer({0x48, 0x0B});
    Transfer({0x20, 0x02});
    Transfer({0xA0, 0x10, 0x99});
    EXPECT_EQ(Transfer({0x49, kRead}).value, 0x46u);
    EXPECT_EQ(Transfer({0x21, kRead}).value, 0x80u);
    EXPECT_EQ(Transfer({0xA1, kRead}).value, 0x99u);
}

TEST_F(I2cTransfers, AreRefusedWhereNoChipAnswersOrTheOrderIsWrong) {
    using Case = std::pair<std::vector<uint16_t>, ResultCode>;
    for (const auto& [items, code] :
         {Case{{0x60, 0x00}, VXD_HARDWARE_FAILURE}, Case{{0x61, kRead}, VXD_HARDWARE_FAILURE},
          Case{{}, VXD_INVALID_PARAMETER}, Case{{kRead}, VXD_INVALID_PARAMETER},
          Case{{0x148, 0x00}, VXD_INVALID_PARAMETER}, Case{{0x48, kRead}, VXD_INVALID_PARAMETER},
          Case{{0x49, 0x00}, VXD_INVALID_PARAMETER},
          Case{{0x48, 0x1F, 0x00}, VXD_ILLEGAL_OPERATION},
          Case{{0x48, 0x20, 0x00}, VXD_INVALID_PARAMETER}}) {
        const Reading reading = Transfer(items);
        EXPECT_EQ(reading.code, code) << testing::PrintToString(items);
        EXPECT_EQ(reading.value, kUntouched);
    }
    const uint16_t items[]{0x49, kRead};
    EXPECT_EQ(vdapi_I2C_Transfer(items, 2, nullptr), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_I2C_Transfer(nullptr, 2, nullptr), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_I2C_Transfer(items, 0xFFFFFFFF, nullptr), VXD_INVALID_PARAMETER);
}

TEST_F(I2cTransfers, FailWhileTheBusIsDown) {
    EXPECT_EQ(vdapi_I2C_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(Transfer({0x48, 0x0A}).code, VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_I2C_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(Transfer({0x48, 0x0A}).code, VXD_SUCCESS);
}

TEST_F(Cameras, AreReachedByTheirRegisterIdsAndOverTheBus) {
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x302).value, 0x80u);
    EXPECT_EQ(vdapi_CAM_Digit_Write(0x302, 0x55), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x302).value, 0x55u);
    Transfer({0x20, 0x02});
    EXPECT_EQ(Transfer({0x21, kRead}).value, 0x55u);

    EXPECT_EQ(Read(vdapi_CAM_ACIF_Read, 0x30A).value, 0x8Bu);
    EXPECT_EQ(vdapi_CAM_ACIF_Write(0x30A, 0x77), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_CAM_ACIF_Read, 0x30A).value, 0x77u);
    EXPECT_EQ(Send(PELLAN_COMMAND_SAA7111_READ_REG, 0x0A).first, 0x77u);
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x300).value, 0u) << "the other camera is another chip";
}

TEST_F(Cameras, RefuseWhatCannotBeReadOrWritten) {
    const Reading version = Read(vdapi_CAM_Digit_Read, 0x20E);
    EXPECT_EQ(version.code, VXD_SUCCESS);
    EXPECT_EQ(vdapi_CAM_Digit_Write(0x20E, ~version.value), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x20E).value, version.value);
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x30F).code, VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x30F).value, 0xA5u);

    for (const uint32_t id : {0x200u, 0x61Fu}) {
        const uint32_t before = Read(vdapi_CAM_ACIF_Read, id).value;
        EXPECT_EQ(vdapi_CAM_ACIF_Write(id, ~before), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(Read(vdapi_CAM_ACIF_Read, id).value, before);
    }
    for (const uint32_t id : {0x309u, 0x000u, 0x102u, 0x1302u}) {
        EXPECT_EQ(Read(vdapi_CAM_Digit_Read, id).code, VXD_INVALID_PARAMETER) << std::hex << id;
        EXPECT_EQ(vdapi_CAM_Digit_Write(id, 0), VXD_INVALID_PARAMETER) << std::hex << id;
    }
    EXPECT_EQ(Read(vdapi_CAM_ACIF_Read, 0x320).code, VXD_INVALID_PARAMETER);
}

TEST_F(Cameras, AreAsAtPowerOnAfterAMasterResetOrADriversReset) {
    const auto disturb = [] {
        vdapi_CAM_Digit_Write(0x302, 0x55);
        vdapi_CAM_Digit_Write(0x300, 0x55);
        vdapi_CAM_ACIF_Write(0x30A, 0x77);
    };
    disturb();
    EXPECT_EQ(vdapi_CAM_Digit_Write(0x30F, 0), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x302).value, 0x80u);
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x300).value, 0x00u);
    EXPECT_EQ(Read(vdapi_CAM_ACIF_Read, 0x30A).value, 0x77u)
        << "the other camera keeps its registers";

    disturb();
    EXPECT_EQ(Debug(TALVERO_DBG_CAM_DIGIT_TR_RST), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_CAM_Digit_Read, 0x302).value, 0x80u);
}
