// Chips and services brought through their life cycles, in order and out of it.
#include <array>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "tests/board/driver_test.h"

using LifeCycles = DriverTest;
using Sequencers = DriverTest;

namespace {

using Act = std::function<uint32_t()>;

// What brings a chip or service from one state to another; what there is not is left out.
struct Subject {
    std::string name;
    Act initialize;
    Act terminate;
    Act reset{};
    Act activate{};
    Act deactivate{};
};

Act Command(uint32_t command) {
    return [=] { return Debug(command); };
}

Act DeviceCommand(uint32_t command, uint16_t device) {
    return [=] { return Debug(command, DeviceBlock{device}); };
}

uint32_t InitializeIsac(uint16_t device, bool chip = false) {
    return Debug(TALVERO_DBG_ISAC_TR_INIT,
                 IsacInitializeBlock{device, KORA_DLL_GetIsacHandle(device), chip});
}

uint32_t InitializeMonitor(uint16_t device, bool chip = false) {
    return Debug(TALVERO_DBG_MON_TR_INIT,
                 MonitorInitializeBlock{device, KORA_DLL_GetMonitorHandle(device, nullptr), chip});
}

Subject Isac(uint16_t device) {
    return {"ISAC device " + std::to_string(device), [=] { return InitializeIsac(device); },
            DeviceCommand(TALVERO_DBG_ISAC_TR_TERM, device),
            DeviceCommand(TALVERO_DBG_ISAC_TR_RST, device)};
}

Subject Monitor(uint16_t device) {
    return {"monitor device " + std::to_string(device),
            [=] { return InitializeMonitor(device); },
            DeviceCommand(TALVERO_DBG_MON_TR_TERM, device),
            DeviceCommand(TALVERO_DBG_MON_TR_RST, device),
            DeviceCommand(TALVERO_DBG_MON_TR_ACTV, device),
            DeviceCommand(TALVERO_DBG_MON_TR_DEACT, device)};
}

std::vector<Subject> Subjects() {
    return {
        {"sequencer", Command(TALVERO_DBG_SEQ_TR_INIT), Command(TALVERO_DBG_SEQ_TR_TERM),
         Command(TALVERO_DBG_SEQ_TR_RST)},
        Isac(13),
        Isac(14),
        Monitor(3),
        Monitor(12),
        {"ARCOFI", Command(TALVERO_DBG_ARCF_TR_INIT), Command(TALVERO_DBG_ARCF_TR_TERM),
         Command(TALVERO_DBG_ARCF_TR_RST), Command(TALVERO_DBG_ARCF_TR_ACTV),
         Command(TALVERO_DBG_ARCF_TR_DEACT)},
        {"echo canceller", Command(TALVERO_DBG_SAEC_TR_INIT), Command(TALVERO_DBG_SAEC_TR_TERM),
         Command(TALVERO_DBG_SAEC_TR_RST)},
        {"I2C", vdapi_I2C_Initialize, vdapi_I2C_Terminate, Command(TALVERO_DBG_I2C_TR_RST)},
        {"digital camera", vdapi_CAM_Digit_Initialize, vdapi_CAM_Digit_Terminate,
         Command(TALVERO_DBG_CAM_DIGIT_TR_RST)},
        {"analog camera", vdapi_CAM_ACIF_Initialize, vdapi_CAM_ACIF_Terminate},
        {"video encoder", vdapi_BT85X_Initialize, vdapi_BT85X_Terminate, vdapi_BT85X_Reset},
        {"video encoder by software", vdapi_BT85X_Initialize, vdapi_BT85X_Terminate,
         Command(TALVERO_DBG_BT85X_OP_RESET)},
        {"EEPROM", vdapi_EPROM_Initialize, vdapi_EPROM_Terminate},
        {"streams", Command(TALVERO_DBG_STREAM_TR_INIT), Command(TALVERO_DBG_STREAM_TR_TERM)},
        {"LSD", [] { return KORA_DLL_ChannelInitialize(0); },
         [] { return KORA_DLL_ChannelTerminate(0); }},
        {"BAS", vdapi_BAS_Initialize, vdapi_BAS_Terminate},
        {"post-processing",
         vdapi_VPP_Initialize,
         vdapi_VPP_Terminate,
         {},
         vdapi_VPP_Activate,
         vdapi_VPP_Deactivate},
    };
}

}  // namespace

TEST_F(LifeCycles, AnswerEachStepByWhatWentBefore) {
    for (const Subject& subject : Subjects()) {
        SCOPED_TRACE(subject.name);
        board::PowerOn();
        EXPECT_EQ(subject.initialize(), VXD_SUCCESS);
        EXPECT_EQ(subject.initialize(), VXD_OPERATION_ALREADY_DONE);
        EXPECT_EQ(subject.terminate(), VXD_SUCCESS);
        EXPECT_EQ(subject.terminate(), VXD_CONFIGURATION_NOT_SET);
        if (subject.reset) {
            EXPECT_EQ(subject.reset(), VXD_CONFIGURATION_NOT_SET);
            EXPECT_EQ(subject.initialize(), VXD_SUCCESS);
            EXPECT_EQ(subject.reset(), VXD_SUCCESS);
            EXPECT_EQ(subject.initialize(), VXD_SUCCESS) << "as at power-on";
            EXPECT_EQ(subject.reset(), VXD_SUCCESS);
        }
    }
}

TEST_F(LifeCycles, ActivateWhatIsUpOnce) {
    for (const Subject& subject : Subjects()) {
        if (!subject.activate) {
            continue;
        }
        SCOPED_TRACE(subject.name);
        EXPECT_EQ(subject.activate(), VXD_SUCCESS);
        EXPECT_EQ(subject.activate(), VXD_OPERATION_ALREADY_DONE);
        EXPECT_EQ(subject.deactivate(), VXD_SUCCESS);
        EXPECT_EQ(subject.deactivate(), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(subject.terminate(), VXD_SUCCESS);
        EXPECT_EQ(subject.activate(), VXD_CONFIGURATION_NOT_SET);
        EXPECT_EQ(subject.deactivate(), VXD_CONFIGURATION_NOT_SET);
        EXPECT_EQ(subject.initialize(), VXD_SUCCESS);
        EXPECT_EQ(subject.deactivate(), VXD_ILLEGAL_OPERATION) << "terminating ends activity";
        EXPECT_EQ(subject.activate(), VXD_SUCCESS);
    }
}

TEST_F(LifeCycles, KeepTheVpicDownUntilTheDriverOrTheBoardStartsAnew) {
    const std::array<Act, 2> restarts{vdapi_ResetVxD, vdapi_AUXDEV_HardwareReset};
    for (const Act& restart : restarts) {
        EXPECT_EQ(Debug(TALVERO_DBG_VPIC_TR_RST), VXD_SUCCESS);
        EXPECT_EQ(Debug(TALVERO_DBG_PCI_OP_SIM_INTERRUPT), VXD_SUCCESS);
        EXPECT_EQ(Debug(TALVERO_DBG_VPIC_TR_TERM), VXD_SUCCESS);
        EXPECT_EQ(Debug(TALVERO_DBG_VPIC_TR_TERM), VXD_CONFIGURATION_NOT_SET);
        EXPECT_EQ(Debug(TALVERO_DBG_VPIC_TR_RST), VXD_CONFIGURATION_NOT_SET);
        EXPECT_EQ(Debug(TALVERO_DBG_PCI_OP_SIM_INTERRUPT), VXD_IRQ_ERROR);
        EXPECT_EQ(restart(), VXD_SUCCESS);
    }
    EXPECT_TRUE(board::GetServices().lifeCycles[board::Service::kVpic].IsUp());
}

TEST_F(LifeCycles, ReachThePowerOnStateAgainByAHardwareReset) {
    for (const Subject& subject : Subjects()) {
        subject.terminate();
    }
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_REGISTER, VcpxiRegisterBlock{}), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_HardwareReset(), VXD_SUCCESS);
    for (const board::ServiceEntry& entry : board::kServices) {
        const board::Services services = board::GetServices();
        EXPECT_TRUE(services.lifeCycles[entry.service].IsUp()) << entry.name;
        EXPECT_TRUE(services.lifeCycles[entry.service].IsActive()) << entry.name;
    }
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_UNREGISTER), VXD_CONFIGURATION_NOT_SET);
}

TEST_F(LifeCycles, KnowTheDevicesThatThereAre) {
    for (const uint16_t device : {0, 3, 12, 15}) {
        EXPECT_EQ(KORA_DLL_GetIsacHandle(device), 0u);
        EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_RST, DeviceBlock{device}), VXD_INVALID_PARAMETER);
    }
    const auto first = reinterpret_cast<HWND>(1);
    const auto second = reinterpret_cast<HWND>(2);
    KORA_DLL_GetMonitorHandle(12, first);
    KORA_DLL_GetMonitorHandle(3, second);
    for (const uint16_t device : {0, 4, 13, 14}) {
        EXPECT_EQ(KORA_DLL_GetMonitorHandle(device, first), 0u);
        EXPECT_EQ(Debug(TALVERO_DBG_MON_TR_ACTV, DeviceBlock{device}), VXD_INVALID_PARAMETER);
    }
    EXPECT_EQ(board::GetMonitor().window, second) << "named last for a device that is there";
    EXPECT_EQ(KORA_DLL_GetSeqHandle(1), 0u);
}

TEST_F(LifeCycles, TakeOnlyRegistrationValuesThatWereGivenForThem) {
    const auto initialize = [](uint16_t device, uint32_t registration) {
        return Debug(TALVERO_DBG_ISAC_TR_INIT, IsacInitializeBlock{device, registration, 0});
    };
    EXPECT_EQ(initialize(13, 0), VXD_INVALID_PARAMETER);
    const uint32_t first = KORA_DLL_GetIsacHandle(13);
    EXPECT_EQ(initialize(14, first), VXD_INVALID_PARAMETER);
    EXPECT_EQ(initialize(13, first + 1), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_MON_TR_INIT, MonitorInitializeBlock{3, first, 0}),
              VXD_INVALID_PARAMETER);
    EXPECT_EQ(KORA_DLL_GetIsacHandle(13), first) << "the same each time";
    EXPECT_EQ(initialize(13, first), VXD_SUCCESS);

    const std::set<uint32_t> values{0,
                                    first,
                                    KORA_DLL_GetIsacHandle(14),
                                    KORA_DLL_GetMonitorHandle(3, nullptr),
                                    KORA_DLL_GetMonitorHandle(12, nullptr),
                                    KORA_DLL_GetSeqHandle(0)};
    EXPECT_EQ(values.size(), 6u);

    KORA_DLL_Terminate();
    EXPECT_EQ(KORA_DLL_GetIsacHandle(13), 0u);
    EXPECT_EQ(initialize(14, first + 1), VXD_INVALID_PARAMETER) << "closed, it has given nothing";
}

TEST_F(LifeCycles, InitialiseTheIsacChipAlongWithADeviceWhereTheFlagSaysSo) {
    constexpr uint32_t timerRegister = 0x623;
    const auto mark = [=] {
        Debug(TALVERO_DBG_ISAC_TR_REG_WR, IsacRegisterWriteBlock{1, timerRegister, 0x5A});
    };
    const auto value = [=] { return board::GetHardware().isacs[0].values[timerRegister]; };
    mark();
    EXPECT_EQ(InitializeIsac(13), VXD_SUCCESS);
    EXPECT_EQ(value(), 0x5Au);
    EXPECT_EQ(InitializeIsac(14, true), VXD_SUCCESS);
    EXPECT_EQ(value(), 0u);
    mark();
    EXPECT_EQ(InitializeIsac(14, true), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(value(), 0x5Au) << "a step that is refused does nothing";

    EXPECT_EQ(InitializeMonitor(3), VXD_SUCCESS);
    EXPECT_EQ(value(), 0x5Au);
    EXPECT_EQ(InitializeMonitor(12, true), VXD_SUCCESS);
    EXPECT_EQ(value(), 0u);
    mark();
    EXPECT_EQ(InitializeMonitor(12, true), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(value(), 0x5Au);
}

TEST_F(LifeCycles, LetTheIom2BusRunWhileAnIsacDeviceIsUp) {
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_IOM2_ACTV), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_IOM2_ACTV), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_TERM, DeviceBlock{13}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_IOM2_DEACT), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_IOM2_DEACT), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_TERM, DeviceBlock{14}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_IOM2_ACTV), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(InitializeIsac(14), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_IOM2_ACTV), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_TERM, DeviceBlock{14}), VXD_SUCCESS);
    EXPECT_EQ(InitializeIsac(13), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_TR_IOM2_DEACT), VXD_ILLEGAL_OPERATION)
        << "the bus stops with the last device";
}

TEST_F(LifeCycles, KeepWhatChipsAreToldUntilTheirReset) {
    EXPECT_EQ(vdapi_ARCOFI_SelectChannel(0x40), VXD_SUCCESS);
    EXPECT_EQ(vdapi_ARCOFI_SelectChannel(1), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_ARCF_OP_INIT_SHADOW), VXD_SUCCESS);
    EXPECT_EQ(vdapi_BT85X_SetDisplayType(1), VXD_SUCCESS);
    EXPECT_EQ(vdapi_BT85X_SetDisplayType(2), VXD_INVALID_PARAMETER);
    EXPECT_EQ(board::GetServices().arcofiChannel, 0x40u);
    EXPECT_EQ(board::GetServices().displayType, 1u);
    EXPECT_TRUE(board::GetServices().arcofiShadow);

    EXPECT_EQ(Debug(TALVERO_DBG_ARCF_TR_RST), VXD_SUCCESS);
    EXPECT_EQ(vdapi_BT85X_Reset(), VXD_SUCCESS);
    EXPECT_EQ(board::GetServices().arcofiChannel, 0u);
    EXPECT_EQ(board::GetServices().displayType, 0u);
    EXPECT_FALSE(board::GetServices().arcofiShadow);

    EXPECT_EQ(Debug(TALVERO_DBG_ARCF_TR_TERM), VXD_SUCCESS);
    EXPECT_EQ(vdapi_BT85X_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_ARCOFI_SelectChannel(0), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_ARCF_OP_INIT_SHADOW), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_BT85X_SetDisplayType(0), VXD_CONFIGURATION_NOT_SET);
}

TEST_F(LifeCycles, RegisterTheCodecProcessorsClientOnce) {
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_UNREGISTER), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_REGISTER, VcpxiRegisterBlock{{0, 1}}), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_REGISTER, VcpxiRegisterBlock{}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_REGISTER, VcpxiRegisterBlock{}), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_UNREGISTER), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_UNREGISTER), VXD_CONFIGURATION_NOT_SET);
}

TEST_F(Sequencers, RegisterAClientWithAValueOfTheLibrarys) {
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_UNREG, SequencerUnregisterBlock{}),
              VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RGSTR, SequencerRegisterBlock{0, 0}), VXD_INVALID_PARAMETER);
    const SequencerRegisterBlock block{0, KORA_DLL_GetSeqHandle(0)};
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RGSTR, block), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RGSTR, block), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_UNREG, SequencerUnregisterBlock{}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_TERM), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RGSTR, block), VXD_CONFIGURATION_NOT_SET);
}

TEST_F(Sequencers, HoldOneCriticalAndAnAtomicSectionPerDevice) {
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITLEAVE), VXD_CRIT_ERROR);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITENTER), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITENTER), VXD_CRIT_ERROR);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITLEAVE), VXD_SUCCESS);

    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMENTER, AtomBlock{0}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMENTER, AtomBlock{6}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMENTER, AtomBlock{6}), VXD_ATOM_ERROR);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMLEAVE, AtomBlock{3}), VXD_ATOM_ERROR);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMLEAVE, AtomBlock{6}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMENTER, AtomBlock{7}), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMLEAVE, AtomBlock{7}), VXD_INVALID_PARAMETER);

    Debug(TALVERO_DBG_SEQ_TR_CRITENTER);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RST), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITLEAVE), VXD_CRIT_ERROR);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMLEAVE, AtomBlock{0}), VXD_ATOM_ERROR);

    Debug(TALVERO_DBG_SEQ_TR_CRITENTER);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_TERM), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITLEAVE), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMENTER, AtomBlock{0}), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_INIT), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITENTER), VXD_SUCCESS);
}

TEST_F(Sequencers, CountTheInterruptsOfEachKnownSource) {
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x240}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x201}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x401}), VXD_IRQ_ERROR);
    EXPECT_EQ(board::GetServices().sequencer.interrupts,
              (std::array<uint32_t, 10>{1, 0, 0, 0, 0, 0, 1, 0, 0, 2}));
    Debug(TALVERO_DBG_SEQ_TR_TERM);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x001}), VXD_IRQ_ERROR);
}
