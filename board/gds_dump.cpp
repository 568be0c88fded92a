#include "board/gds_dump.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "board/state.h"
#include "driver/kora_dll32.h"

namespace board {
namespace {

constexpr uint32_t kAllModules = 0xFFFFFFFF;

using Lines = std::vector<std::string>;

struct ModuleEntry {
    Module module;
    const char* name;
    // How the names of its operations and commands begin.
    std::array<std::string_view, 5> prefixes{};
    // Adds what the module holds beside its services' states.
    void (*describe)(const State& state, Lines& lines) = nullptr;
};

std::string YesOrNo(const char* what, bool is) {
    return std::string(what) + (is ? ": yes" : ": no");
}

std::string Number(const char* what, uint32_t value) {
    return std::string(what) + ": " + std::to_string(value);
}

std::string HexNumber(const char* what, uint32_t value) {
    char text[11];
    std::snprintf(text, sizeof text, "0x%X", value);
    return std::string(what) + ": " + text;
}

void DescribeValidity(const State& state, Lines& lines) {
    lines.push_back(HexNumber("board revision", state.revisions.board));
    lines.push_back(HexNumber("VPIC revision", state.revisions.vpic));
    lines.push_back(HexNumber("driver revision", state.revisions.driver));
    lines.push_back(HexNumber("JADE revision", state.revisions.jade));
}

void DescribeCore(const State& state, Lines& lines) {
    lines.push_back(Number("interrupts simulated", state.services.boardInterrupts));
}

void DescribePmapi(const State& state, Lines& lines) {
    lines.push_back(YesOrNo("command library open", state.papiOpen));
    lines.push_back(YesOrNo("driver library open", state.koraOpen));
}

void DescribeSequencer(const State& state, Lines& lines) {
    const Sequencer& sequencer = state.services.sequencer;
    lines.push_back(YesOrNo("client registered", sequencer.registered));
    lines.push_back(YesOrNo("in critical section", sequencer.inCriticalSection));
    for (const uint16_t device : sequencer.inAtomicSection) {
        lines.push_back(Number("in atomic section of device", device));
    }
    for (size_t source = 0; source < sequencer.interrupts.size(); ++source) {
        if (sequencer.interrupts[source] != 0) {
            lines.push_back("interrupts of source " + std::to_string(source) + ": " +
                            std::to_string(sequencer.interrupts[source]));
        }
    }
}

void DescribeIom2(const State& state, Lines& lines) {
    lines.push_back(YesOrNo("window to notify", state.monitor.window != nullptr));
    lines.push_back(Number("monitor answers", state.monitor.answers));
}

void DescribeArcofi(const State& state, Lines& lines) {
    lines.push_back(state.services.arcofiChannel == 0 ? "B channel: 1" : "B channel: 2");
    lines.push_back(YesOrNo("shadow initialised", state.services.arcofiShadow));
}

void DescribeAuxdev(const State& state, Lines& lines) {
    lines.push_back(YesOrNo("up", state.auxiliaryDevice.IsUp()));
    for (uint32_t feature = 0; feature <= AUXDEV_FEATURE_LAST; ++feature) {
        bool active = false;
        state.auxiliaryDevice.GetLine(feature, active);
        if (active) {
            lines.push_back(Number("feature active", feature));
        }
    }
}

void DescribeVcpxi(const State& state, Lines& lines) {
    lines.push_back(YesOrNo("client registered", state.services.codecProcessorRegistered));
    const CodecSoftware& software = state.hardware.codecSoftware;
    for (const auto* file :
         {&software.monitor, &software.codec, &software.vcpIni, &software.vpCode}) {
        if (!file->path.empty()) {
            lines.push_back("loaded: " + file->path + ", " + std::to_string(file->bytes) +
                            " bytes");
        }
    }
    for (const std::string& section : software.sections) {
        lines.push_back("section: " + section);
    }
}

void DescribeVcpRegs(const State& state, Lines& lines) {
    lines.push_back(
        Number("variables", static_cast<uint32_t>(state.hardware.codecVariables.size())));
    lines.push_back(Number("accesses tested", state.services.codecVariableTests));
}

void DescribeBt85x(const State& state, Lines& lines) {
    const VideoEncoder& encoder = state.hardware.videoEncoder;
    lines.push_back(state.services.displayType == 0 ? "display type: NTSC" : "display type: PAL");
    lines.push_back(HexNumber("mode", encoder.mode));
    lines.push_back(HexNumber("pixel mask", encoder.pixelMask));
}

void DescribeVidinlay(const State& state, Lines& lines) {
    const VideoInlay& inlay = state.services.videoInlay;
    lines.push_back(inlay.displayMode == 0 ? "display mode: continuous"
                                           : "display mode: frame by frame");
    lines.push_back(inlay.frozenFrame ? "frozen at frame: " + std::to_string(*inlay.frozenFrame)
                                      : "running");
}

std::string Bytes(const std::vector<uint8_t>& bytes) {
    std::string text;
    for (const uint8_t byte : bytes) {
        char digits[4];
        std::snprintf(digits, sizeof digits, " %02X", byte);
        text += digits;
    }
    return text;
}

void DescribeStreams(const State& state, Lines& lines) {
    for (const auto& [number, stream] : state.firmware.streams) {
        if (stream.open) {
            lines.push_back(Number("open stream", number));
        }
    }
    const Bas& bas = state.services.bas;
    lines.push_back(Number("BAS sendings", bas.sendings));
    for (const BasCommand& sent : bas.last) {
        lines.push_back(Number("BAS commands", sent.commands) + ", " +
                        Number("repeated", sent.repeats) + ", bytes:" + Bytes(sent.bytes));
    }
}

template <uint32_t kChannel>
void DescribeUserData(const State& state, Lines& lines) {
    const UserDataChannel& channel = state.services.userData[kChannel];
    uint32_t waiting = 0;
    for (const UserDataChannel::Bytes& piece : channel.waiting) {
        waiting += static_cast<uint32_t>(piece.size());
    }
    lines.push_back(channel.rate ? HexNumber("open at rate", *channel.rate) : "not open");
    if (kChannel == USER_DATA_LSD) {
        lines.push_back(YesOrNo("packetized", channel.packetized));
    }
    lines.push_back(Number("bytes sent", channel.bytesSent));
    lines.push_back(Number("bytes waiting", waiting));
    lines.push_back(Number("bytes read", channel.bytesRead));
    if (!channel.lastRead.empty()) {
        lines.push_back("last read:" + Bytes(channel.lastRead));
    }
}

void DescribeVpp(const State& state, Lines& lines) {
    const Vpp& vpp = state.services.vpp;
    lines.push_back(HexNumber("mode word", vpp.mode));
    lines.push_back(Number("frame rate", vpp.parameters.frameRate));
    lines.push_back(Number("lowest threshold", vpp.parameters.thresholdMin));
    lines.push_back(Number("highest threshold", vpp.parameters.thresholdMax));
    lines.push_back(YesOrNo("statistics", vpp.window != nullptr));
}

void DescribeMbe(const State& state, Lines& lines) {
    lines.push_back(
        Number("messages waiting", static_cast<uint32_t>(state.services.mbe.waiting.size())));
}

// In the order of the modules.
constexpr auto kModules = std::to_array<ModuleEntry>({
    {Module::kValidity, "Validity", {"vdapi_GetVersion"}, DescribeValidity},
    {Module::kCore,
     "Core",
     {"TALVERO_DBG_CORE_", "TALVERO_DBG_PCI_", "vdapi_MEM_", "vdapi_IO_"},
     DescribeCore},
    {Module::kDebug, "Debug", {"vdapi_GetModuleDebugLevel", "vdapi_SetModuleDebugLevel"}},
    {Module::kPmapi, "Pmapi", {"PELLAN_COMMAND_"}, DescribePmapi},
    {Module::kVpic, "Vpic", {"TALVERO_DBG_VPIC_", "vdapi_VPIC_"}},
    {Module::kSeq, "Seq", {"TALVERO_DBG_SEQ_", "KORA_DLL_GetSeqHandle"}, DescribeSequencer},
    {Module::kIsac, "Isac", {"TALVERO_DBG_ISAC_", "KORA_DLL_GetIsacHandle"}},
    {Module::kIom2, "Iom2", {"TALVERO_DBG_MON_", "KORA_DLL_GetMonitorHandle"}, DescribeIom2},
    {Module::kArcofi,
     "Arcofi",
     {"TALVERO_DBG_ARCF_", "TALVERO_DBG_SAEC_", "vdapi_ARCOFI_", "vdapi_SAEC_", "vdapi_AEC_"},
     DescribeArcofi},
    {Module::kJade, "Jade", {"vdapi_JADE_"}},
    {Module::kAuxdev, "Auxdev", {"vdapi_AUXDEV_"}, DescribeAuxdev},
    {Module::kVcpxi, "Vcpxi", {"TALVERO_DBG_VCPXI_", "vdapi_VcpCode_"}, DescribeVcpxi},
    {Module::kI2c, "I2c", {"TALVERO_DBG_I2C_", "vdapi_I2C_"}},
    {Module::kCamera, "Camera", {"TALVERO_DBG_CAM_DIGIT_", "vdapi_CAM_Digit_"}},
    {Module::kEprom, "Eprom", {"vdapi_EPROM_"}},
    {Module::kAcif, "Acif", {"vdapi_CAM_ACIF_"}},
    {Module::kVidinlay, "Vidinlay", {"vdapi_VIDINLAY_", "VXDVIDEO_"}, DescribeVidinlay},
    {Module::kStream,
     "Stream",
     {"TALVERO_DBG_STREAM_", "vdapi_Stream_", "KORA_DLL_Channel", "vdapi_BAS_"},
     DescribeStreams},
    {Module::kLsd, "LSD", {"vdapi_LSD_"}, DescribeUserData<USER_DATA_LSD>},
    {Module::kHsd, "HSD", {}, DescribeUserData<USER_DATA_HSD>},
    {Module::kMlp, "MLP", {}, DescribeUserData<USER_DATA_MLP>},
    {Module::kBt85x, "Bt85x", {"TALVERO_DBG_BT85X_", "vdapi_BT85X_"}, DescribeBt85x},
    {Module::kVcpRegs, "vcpregs", {"vdapi_VCPXI_"}, DescribeVcpRegs},
    {Module::kVpp, "VPP", {"vdapi_VPP_", "KORA_DLL_StartVpp", "KORA_DLL_StopVpp"}, DescribeVpp},
    {Module::kAnnexD, "AnnexD", {"vdapi_ANNEXD_"}},
    {Module::kMbe, "MBE", {"vdapi_MBE_"}, DescribeMbe},
});

void DescribeServices(const State& state, Module module, Lines& lines) {
    for (const ServiceEntry& entry : kServices) {
        if (entry.module == module) {
            const LifeCycle& lifeCycle = state.services.lifeCycles[entry.service];
            std::string line = std::string(entry.name) + ": " + lifeCycle.Describe();
            if (entry.canBeActive) {
                line += lifeCycle.IsActive() ? ", active" : ", not active";
            }
            lines.push_back(line);
        }
    }
}

void DescribeCalls(const State& state, const ModuleEntry& module, Lines& lines) {
    for (const auto& counted : state.callCounts) {
        const std::string& name = counted.first;
        const bool own = std::ranges::any_of(module.prefixes, [&](std::string_view prefix) {
            return !prefix.empty() && name.starts_with(prefix);
        });
        if (own) {
            lines.push_back(name + ": " + std::to_string(counted.second.calls) + " called, " +
                            std::to_string(counted.second.failures) + " failed");
        }
    }
}

void Dump(State& state, const ModuleEntry& module) {
    Lines lines;
    DescribeServices(state, module.module, lines);
    if (module.describe) {
        module.describe(state, lines);
    }
    DescribeCalls(state, module, lines);
    if (lines.empty()) {
        lines.push_back("unused");
    }
    for (const std::string& line : lines) {
        state.outbox.lines.push_back("GDS " + std::string(module.name) + ": " + line + '\n');
    }
}

}  // namespace

ResultCode DumpGds(State& state, const GdsDumpBlock& block) {
    if (block.module == kAllModules) {
        for (const ModuleEntry& module : kModules) {
            Dump(state, module);
        }
        return VXD_SUCCESS;
    }
    if (block.module >= kModules.size()) {
        return VXD_INVALID_PARAMETER;
    }
    Dump(state, kModules[block.module]);
    return VXD_SUCCESS;
}

}  // namespace board
