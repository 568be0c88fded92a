// Chips and services brought through their life cycles, in order and out of it.
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

std::vector<Subject> Subjects() {
    return {
        {"sequencer", Command(TALVERO_DBG_SEQ_TR_INIT), Command(TALVERO_DBG_SEQ_TR_TERM),
         Command(TALVERO_DBG_SEQ_TR_RST)},
        {"ISAC device", [] { return InitializeIsac(13); },
         DeviceCommand(TALVERO_DBG_ISAC_TR_TERM, 13), DeviceCommand(TALVERO_DBG_ISAC_TR_RST, 13)},
        {"monitor device", [] { return InitializeMonitor(12); },
         DeviceCommand(TALVERO_DBG_MON_TR_TERM, 12), DeviceCommand(TALVERO_DBG_MON_TR_RST, 12),
         DeviceCommand(TALVERO_DBG_MON_TR_ACTV, 12), DeviceCommand(TALVERO_DBG_MON_TR_DEACT, 12)},
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
        {"post-processing", vdapi_VPP_Initialize, vdapi_VPP_Terminate, Act{}, vdapi_VPP_Activate,
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
        if (subject.activate) {
            EXPECT_EQ(subject.activate(), VXD_SUCCESS);
            EXPECT_EQ(subject.activate(), VXD_OPERATION_ALREADY_DONE);
            EXPECT_EQ(subject.deactivate(), VXD_SUCCESS);
            EXPECT_EQ(subject.deactivate(), VXD_ILLEGAL_OPERATION);
            EXPECT_EQ(subject.activate(), VXD_SUCCESS);
        }
        EXPECT_EQ(subject.terminate(), VXD_SUCCESS);
        EXPECT_EQ(subject.terminate(), VXD_CONFIGURATION_NOT_SET);
        if (subject.activate) {
            EXPECT_EQ(subject.activate(), VXD_CONFIGURATION_NOT_SET);
            EXPECT_EQ(subject.deactivate(), VXD_CONFIGURATION_NOT_SET);
            EXPECT_EQ(subject.initialize(), VXD_SUCCESS);
            EXPECT_EQ(subject.deactivate(), VXD_ILLEGAL_OPERATION) << "terminating ends activity";
            EXPECT_EQ(subject.terminate(), VXD_SUCCESS);
        }
        if (subject.reset) {
            EXPECT_EQ(subject.reset(), VXD_CONFIGURATION_NOT_SET);
            EXPECT_EQ(subject.initialize(), VXD_SUCCESS);
            EXPECT_EQ(subject.reset(), VXD_SUCCESS);
            EXPECT_EQ(subject.initialize(), VXD_SUCCESS) << "as at power-on";
        }
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
}

TEST_F(LifeCycles, ReachThePowerOnStateAgainByAHardwareReset) {
    for (const Subject& subject : Subjects()) {
        subject.terminate();
    }
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_REGISTER, VcpxiRegisterBlock{}), VXD_SUCCESS);
    EXPECT_EQ(vdapi_AUXDEV_HardwareReset(), VXD_SUCCESS);
    for (const board::ServiceEntry& entry : board::kServices) {
        const auto lifeCycle = board::GetServices().lifeCycles[entry.service];
        EXPECT_TRUE(lifeCycle.IsUp() && lifeCycle.IsActive()) << entry.name;
    }
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_UNREGISTER), VXD_CONFIGURATION_NOT_SET);
}

TEST_F(LifeCycles, TakeOnlyRegistrationValuesThatWereGivenForThem) {
    const auto initialize = [](uint16_t device, uint32_t registration) {
        return Debug(TALVERO_DBG_ISAC_TR_INIT, IsacInitializeBlock{device, registration, 0});
    };
    EXPECT_EQ(initialize(13, 0), VXD_INVALID_PARAMETER);
    const uint32_t given = KORA_DLL_GetIsacHandle(13);
    EXPECT_EQ(initialize(14, given), VXD_INVALID_PARAMETER);
    EXPECT_EQ(initialize(13, given + 1), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_MON_TR_INIT, MonitorInitializeBlock{3, given, 0}),
              VXD_INVALID_PARAMETER);
    EXPECT_EQ(KORA_DLL_GetIsacHandle(13), given) << "the same each time";
    EXPECT_EQ(initialize(13, given), VXD_SUCCESS);
    KORA_DLL_Terminate();
    EXPECT_EQ(initialize(13, given), VXD_INVALID_PARAMETER) << "closed, it has given nothing";
}

TEST_F(LifeCycles, InitialiseTheIsacChipAlongWithADeviceWhereTheFlagSaysSo) {
    // Whether the chip has kept what was written before.
    const auto isKept = [](Act act, ResultCode code) {
        constexpr uint32_t kTimerRegister = 0x623;
        Debug(TALVERO_DBG_ISAC_TR_REG_WR, IsacRegisterWriteBlock{1, kTimerRegister, 0x5A});
        EXPECT_EQ(act(), code);
        return board::GetHardware().isacs[0].values[kTimerRegister] == 0x5A;
    };
    EXPECT_TRUE(isKept([] { return InitializeIsac(13); }, VXD_SUCCESS));
    EXPECT_FALSE(isKept([] { return InitializeIsac(14, true); }, VXD_SUCCESS));
    EXPECT_TRUE(isKept([] { return InitializeIsac(14, true); }, VXD_OPERATION_ALREADY_DONE));
    EXPECT_TRUE(isKept([] { return InitializeMonitor(3); }, VXD_SUCCESS));
    EXPECT_FALSE(isKept([] { return InitializeMonitor(12, true); }, VXD_SUCCESS));
    EXPECT_TRUE(isKept([] { return InitializeMonitor(12, true); }, VXD_OPERATION_ALREADY_DONE));
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
    EXPECT_EQ(Debug(TALVERO_DBG_ARCF_OP_INIT_SHADOW), VXD_SUCCESS);
    EXPECT_EQ(vdapi_BT85X_SetDisplayType(1), VXD_SUCCESS);
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

TEST_F(LifeCycles, RegisterAClientOnce) {
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_UNREGISTER), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_REGISTER, VcpxiRegisterBlock{}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_REGISTER, VcpxiRegisterBlock{}), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(Debug(TALVERO_DBG_VCPXI_UNREGISTER), VXD_SUCCESS);

    const auto unregister = [] {
        return Debug(TALVERO_DBG_SEQ_TR_UNREG, SequencerUnregisterBlock{});
    };
    EXPECT_EQ(unregister(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RGSTR, SequencerRegisterBlock{0, 0}), VXD_INVALID_PARAMETER);
    const SequencerRegisterBlock block{0, KORA_DLL_GetSeqHandle(0)};
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RGSTR, block), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RGSTR, block), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(unregister(), VXD_SUCCESS);
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

    Debug(TALVERO_DBG_SEQ_TR_CRITENTER);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_RST), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITLEAVE), VXD_CRIT_ERROR);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_ATOMLEAVE, AtomBlock{0}), VXD_ATOM_ERROR);
    Debug(TALVERO_DBG_SEQ_TR_CRITENTER);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_TERM), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITLEAVE), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_INIT), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_TR_CRITENTER), VXD_SUCCESS);
}

TEST_F(Sequencers, CountTheInterruptsOfEachKnownSource) {
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x240}), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x201}), VXD_SUCCESS);
    EXPECT_EQ(board::GetServices().sequencer.interrupts,
              (std::array<uint32_t, 10>{1, 0, 0, 0, 0, 0, 1, 0, 0, 2}));
    Debug(TALVERO_DBG_SEQ_TR_TERM);
    EXPECT_EQ(Debug(TALVERO_DBG_SEQ_OP_INTERRUPT, InterruptBlock{0x001}), VXD_IRQ_ERROR);
}
