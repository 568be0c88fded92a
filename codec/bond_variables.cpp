#include "codec/bond_variables.h"

#include <array>
#include <cstddef>
#include <span>

#include "driver/papi.h"
#include "services/diagnostics.h"

namespace {

// The variables of a kind's parameters, one byte each, in the order in which they are transferred:
// channel rate and multiplier, of the local ones also who calls and whether bonding is on.
constexpr std::array kLocal{"vcx_bBondLocalBCR", "vcx_oBondLocalRMult", "vcx_bH320Caller",
                            "vcx_bBondOn"};
constexpr std::array kRemote{"vcx_bBondRemoteBCR", "vcx_oBondRemoteRMult"};
constexpr std::array kCommon{"vcx_bBondCommonBCR", "vcx_oBondCommonRMult"};

constexpr char kLocalPhones[] = "vcx_adwBondLocalPhoneNum";
constexpr char kRemotePhones[] = "vcx_adwBondRemotePhoneNum";

using Names = std::span<const char* const>;

// None for a kind of phones.
Names ParameterNames() {
    switch (BondDialogKind) {
        case kLocalBondParams:
            return kLocal;
        case kRemoteBondParams:
            return kRemote;
        case kCommonBondParams:
            return kCommon;
        default:
            return {};
    }
}

ResultCode Reported(ResultCode code, const char* function) {
    ReportFailure(nullptr, code, function);
    return code;
}

// Transfers a byte of each variable; `values` are as many as there can be.
template <typename Transfer, typename Value>
ResultCode TransferParams(const char* function, Transfer transfer,
                          const std::array<Value*, kLocal.size()>& values) {
    const Names names = ParameterNames();
    if (names.empty()) {
        return VXD_INVALID_PARAMETER;
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        const ResultCode code = transfer(names[i], sizeof(Value), 1, values[i]);
        if (code != VXD_SUCCESS) {
            return Reported(code, function);
        }
    }
    return VXD_SUCCESS;
}

}  // namespace

ResultCode BondGetVcpValue(const char* name, uint32_t unitSize, int32_t count, void* buffer) {
    return Reported(
        CodeOf(vdapi_VCPXI_VCPVariable_GetValue(name, unitSize, count, buffer, VCP_VARIABLE_GET)),
        "BondGetVcpValue");
}

ResultCode BondSetVcpValue(const char* name, uint32_t unitSize, int32_t count, const void* buffer) {
    return Reported(
        CodeOf(vdapi_VCPXI_VCPVariable_SetValue(name, unitSize, count, buffer, VCP_VARIABLE_SET)),
        "BondSetVcpValue");
}

ResultCode BondGetParams(uint8_t& bcr, uint8_t& rmult, uint8_t& caller, uint8_t& bondOn) {
    return TransferParams("BondGetParams", BondGetVcpValue,
                          std::array{&bcr, &rmult, &caller, &bondOn});
}

ResultCode BondSetParams(uint8_t bcr, uint8_t rmult, uint8_t caller, uint8_t bondOn) {
    return TransferParams("BondSetParams", BondSetVcpValue,
                          std::array{&bcr, &rmult, &caller, &bondOn});
}

ResultCode BondGetPhones(PhoneWords& words) {
    if (BondDialogKind != kLocalBondPhones && BondDialogKind != kRemoteBondPhones) {
        return VXD_INVALID_PARAMETER;
    }
    const char* const name = BondDialogKind == kLocalBondPhones ? kLocalPhones : kRemotePhones;
    return Reported(BondGetVcpValue(name, sizeof words[0], kPhoneNumbers, words.data()),
                    "BondGetPhones");
}

ResultCode BondSetPhones(const PhoneWords& words) {
    if (BondDialogKind != kLocalBondPhones) {
        return VXD_INVALID_PARAMETER;
    }
    return Reported(BondSetVcpValue(kLocalPhones, sizeof words[0], kPhoneNumbers, words.data()),
                    "BondSetPhones");
}
