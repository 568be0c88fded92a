#include "codec/bonding.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "codec/bond_variables.h"
#include "codec/phone_numbers.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"

namespace {

// In the lists' rows stand the values of their variables.
constexpr auto kChannelRates = std::to_array<NamedNumber>({{"56K", 56}, {"64K", 64}});
constexpr auto kMultipliers = std::to_array<NamedNumber>(
    {{"0", 0}, {"1", 1}, {"2", 2}, {"3", 3}, {"4", 4}, {"5", 5}, {"6", 6}});

constexpr std::array<int, kPhoneNumbers> kPhoneFields{
    IDC_BOND_PHONE_1, IDC_BOND_PHONE_2, IDC_BOND_PHONE_3, IDC_BOND_PHONE_4, IDC_BOND_PHONE_5};

constexpr std::array kParameterControls{IDC_BOND_CALLER, IDC_BOND_BCR, IDC_BOND_RMULT};

bool IsAboutPhones() {
    return BondDialogKind == kLocalBondPhones || BondDialogKind == kRemoteBondPhones;
}

// What can be edited can be so on the local side only, and only while bonding is on.
void BondEnableControls(HWND dialog) {
    const bool isLocal = BondDialogKind == kLocalBondParams || BondDialogKind == kLocalBondPhones;
    const std::span<const int> controls =
        IsAboutPhones() ? std::span<const int>(kPhoneFields) : kParameterControls;
    for (const int id : controls) {
        // Only the local parameters have the box.
        if (const HWND control = GetDlgItem(dialog, id); control != nullptr) {
            EnableWindow(control, isLocal && BondOnFlag != 0);
        }
    }
}

// --- Parameters ---

void ShowRate(HWND dialog, uint8_t bcr, uint8_t rmult) {
    const auto rate = static_cast<uint16_t>(kChannelRates[bcr != 0].number * rmult);
    ShowField(dialog, IDC_BOND_RATE, "%d%s", int{rate}, rate > 0 ? "000" : "");
}

void GetParams(HWND dialog) {
    uint8_t bcr = 0;
    uint8_t rmult = 0;
    uint8_t caller = 0;
    const ResultCode code = BondGetParams(bcr, rmult, caller, BondOnFlag);
    if (code != VXD_SUCCESS) {
        ReportFailure(dialog, code, "BondProc: BondGetParams");
        return;
    }
    SelectRow(dialog, IDC_BOND_BCR, bcr);
    SelectRow(dialog, IDC_BOND_RMULT, rmult);
    ShowRate(dialog, bcr, rmult);
    if (BondDialogKind == kLocalBondParams) {
        CheckDlgButton(dialog, IDC_BOND_ON, BondOnFlag != 0 ? BST_CHECKED : BST_UNCHECKED);
        CheckDlgButton(dialog, IDC_BOND_CALLER, caller != 0 ? BST_CHECKED : BST_UNCHECKED);
    }
    BondEnableControls(dialog);
}

// A list's row; says so where none is selected.
std::optional<uint8_t> RowIn(HWND dialog, int list, const char* what) {
    if (const auto row = SelectedRow(dialog, list)) {
        return static_cast<uint8_t>(*row);
    }
    ReportFailure(dialog, VXD_OPERATION_FAILED, what);
    return std::nullopt;
}

struct ChosenRate {
    uint8_t bcr;
    uint8_t rmult;
};

// Nothing unless both lists have a selection.
std::optional<ChosenRate> RateIn(HWND dialog) {
    const auto bcr = RowIn(dialog, IDC_BOND_BCR, "BondProc: Getting BCR");
    const auto rmult = RowIn(dialog, IDC_BOND_RMULT, "BondProc: Getting RMult");
    return bcr && rmult ? std::optional(ChosenRate{*bcr, *rmult}) : std::nullopt;
}

// Without two selections there is no rate to speak of.
void ShowChosenRate(HWND dialog) {
    const ChosenRate rate = RateIn(dialog).value_or(ChosenRate{0, 0});
    ShowRate(dialog, rate.bcr, rate.rmult);
}

void SetParams(HWND dialog) {
    const auto rate = RateIn(dialog);
    if (!rate) {
        return;
    }
    const bool caller = IsDlgButtonChecked(dialog, IDC_BOND_CALLER) == BST_CHECKED;
    BondOnFlag = IsDlgButtonChecked(dialog, IDC_BOND_ON) == BST_CHECKED;
    ReportFailure(dialog, BondSetParams(rate->bcr, rate->rmult, caller, BondOnFlag),
                  "BondProc: BondSetParams");
}

void SwitchBonding(HWND dialog) {
    BondOnFlag = IsDlgButtonChecked(dialog, IDC_BOND_ON) == BST_CHECKED;
    BondEnableControls(dialog);
}

void OpenParams(HWND dialog) {
    AddComboRows(dialog, IDC_BOND_BCR, kChannelRates);
    AddComboRows(dialog, IDC_BOND_RMULT, kMultipliers);
    GetParams(dialog);
}

// The lists show the rate whatever it is that they tell, but for being opened: a report's box would
// close the list again, and the mouse could never choose from it.
bool FollowLists(HWND dialog, int id, int code) {
    if (id != IDC_BOND_BCR && id != IDC_BOND_RMULT) {
        return false;
    }
    if (code != CBN_DROPDOWN) {
        ShowChosenRate(dialog);
    }
    return true;
}

// --- Phones ---

void GetPhones(HWND dialog) {
    PhoneWords words{};
    const ResultCode code = BondGetPhones(words);
    if (code != VXD_SUCCESS) {
        ReportFailure(dialog, code, "BondProc: BondGetPhones");
        return;
    }
    const PhoneTexts texts = BondTranslatePhonesToStrings(words);
    for (std::size_t i = 0; i < texts.size(); ++i) {
        SetDlgItemTextA(dialog, kPhoneFields[i], texts[i].c_str());
    }
    BondEnableControls(dialog);
}

// Names what is no number and lets it be typed anew.
void RefusePhone(HWND dialog, std::size_t which, const std::string& text) {
    const std::string name = "Phone #" + std::to_string(which + 1);
    const std::string reason = '"' + text + "\" is not a phone number: digits only";
    ShowMessage(dialog, MessageKind::kWarning, name.c_str(), reason.c_str());
    FocusOn(dialog, kPhoneFields[which]);
}

// The digits in the fields. Nothing where a field has anything else.
std::optional<PhoneTexts> PhonesIn(HWND dialog) {
    PhoneTexts texts;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        std::string text = FieldText(dialog, kPhoneFields[i], kPhoneDigits + 1);
        if (text == kNoPhone) {
            text.clear();
        }
        if (text.find_first_not_of("0123456789") != std::string::npos) {
            RefusePhone(dialog, i, text);
            return std::nullopt;
        }
        texts[i] = std::move(text);
    }
    return texts;
}

void SetPhones(HWND dialog) {
    if (const auto texts = PhonesIn(dialog)) {
        ReportFailure(dialog, BondSetPhones(BondTranslateStringsToPhones(*texts)),
                      "BondProc: BondSetPhones");
    }
}

void OpenPhones(HWND dialog) {
    for (const int id : kPhoneFields) {
        SendDlgItemMessageA(dialog, id, EM_LIMITTEXT, kPhoneDigits, 0);
    }
    GetPhones(dialog);
}

// --- The dialogs ---

constexpr auto kLocalParamActions = std::to_array<DialogAction>({
    {IDC_BOND_GET, GetParams},
    {IDC_BOND_SET, SetParams},
    {IDC_BOND_ON, SwitchBonding},
    {IDOK, EndWith<0>},
    {IDCANCEL, EndWith<0>},
});

constexpr auto kShownParamActions = std::to_array<DialogAction>({
    {IDC_BOND_GET, GetParams},
    {IDOK, EndWith<0>},
    {IDCANCEL, EndWith<0>},
});

constexpr auto kLocalPhoneActions = std::to_array<DialogAction>({
    {IDC_BOND_GET, GetPhones},
    {IDC_BOND_SET, SetPhones},
    {IDOK, EndWith<0>},
    {IDCANCEL, EndWith<0>},
});

constexpr auto kShownPhoneActions = std::to_array<DialogAction>({
    {IDC_BOND_GET, GetPhones},
    {IDOK, EndWith<0>},
    {IDCANCEL, EndWith<0>},
});

struct BondDialog {
    int templateId;
    DialogRules rules;
};

// In the order of the kinds.
constexpr auto kDialogs = std::to_array<BondDialog>({
    {IDD_BOND_LOCAL_PARAMS, {OpenParams, kLocalParamActions, FollowLists}},
    {IDD_BOND_REMOTE_PARAMS, {OpenParams, kShownParamActions, FollowLists}},
    {IDD_BOND_COMMON_PARAMS, {OpenParams, kShownParamActions, FollowLists}},
    {IDD_BOND_LOCAL_PHONES, {OpenPhones, kLocalPhoneActions}},
    {IDD_BOND_REMOTE_PHONES, {OpenPhones, kShownPhoneActions}},
});

INT_PTR BondProc(HINSTANCE instance, HWND owner, BondKind kind) {
    BondDialogKind = kind;
    const BondDialog& dialog = kDialogs[kind];
    return RunDialog(instance, dialog.templateId, owner, dialog.rules);
}

}  // namespace

INT_PTR OpenLocalBondParams(HINSTANCE instance, HWND owner) {
    return BondProc(instance, owner, kLocalBondParams);
}

INT_PTR OpenRemoteBondParams(HINSTANCE instance, HWND owner) {
    return BondProc(instance, owner, kRemoteBondParams);
}

INT_PTR OpenCommonBondParams(HINSTANCE instance, HWND owner) {
    return BondProc(instance, owner, kCommonBondParams);
}

INT_PTR OpenLocalBondPhones(HINSTANCE instance, HWND owner) {
    return BondProc(instance, owner, kLocalBondPhones);
}

INT_PTR OpenRemoteBondPhones(HINSTANCE instance, HWND owner) {
    return BondProc(instance, owner, kRemoteBondPhones);
}
