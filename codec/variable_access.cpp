#include "codec/variable_access.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>
#include <new>
#include <optional>
#include <string>

#include "codec/recent_variables.h"
#include "driver/debug_command.h"
#include "driver/low_memory.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "driver/shared_words.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"
#include "services/settings.h"

namespace {

// Characters of the fields that count, with the terminator.
constexpr std::size_t kCountField = 8;
constexpr std::size_t kRepeatField = 256;  // no number is cut to a smaller one
constexpr std::size_t kSetField = 4096;
constexpr std::size_t kTestField = 512;

// Bytes of a transfer.
constexpr int64_t kMostRead = 0xFFFF;
constexpr int64_t kMostWritten = 0x7FFF;

constexpr DWORD kPauseAfterReading = 10;  // milliseconds

constexpr char kMark[] = "0x";
constexpr char kFailure[] = "Failure";

constexpr auto kUnits = std::to_array<NamedNumber>({{"BYTE", 1}, {"WORD", 2}, {"DWORD", 4}});
constexpr uint16_t kDword = 2;

// What a dialog's button does, and how it is called in its messages and failures.
struct Access {
    const char* caption;
    const char* operation;
    int64_t mostBytes;
};
constexpr Access kGet{"GetVcpxiValue", "vdapi_VCPXI_VCPVariable_GetValue", kMostRead};
constexpr Access kSet{"SetVcpxiValue", "vdapi_VCPXI_VCPVariable_SetValue", kMostWritten};
constexpr char kTestCaption[] = "TestVcpxiVariable";

// The chosen unit: its row, and its size in bytes, 0 for one that is none.
struct Unit {
    uint16_t row;
    uint32_t size;
};

// Room for the elements of a transfer, zero-filled; what is small needs no memory of its own.
class Elements {
  public:
    explicit Elements(std::size_t bytes)
        : large_(bytes > sizeof small_ ? new (std::nothrow) uint8_t[bytes]() : nullptr),
          data_(bytes > sizeof small_ ? large_.get() : small_) {}

    // Null where there is no memory.
    uint8_t* Data() { return data_; }

  private:
    uint8_t small_[4] = {};
    std::unique_ptr<uint8_t[]> large_;
    uint8_t* data_;
};

HWND NameList(HWND dialog) {
    return GetDlgItem(dialog, IDC_VARIABLE_NAME);
}

std::string NameIn(HWND dialog) {
    return FieldText(dialog, IDC_VARIABLE_NAME, kVariableName);
}

void SayUnder(const char* caption, const char* text) {
    ShowBox(nullptr, text, caption, MB_OK | MB_TASKMODAL);
}

// The driver clears the word from a context of its own.
void Raise(volatile uint32_t& word) {
    std::atomic_ref(const_cast<uint32_t&>(word)) = 1;
}

// Nothing where no unit is chosen, which the focus then asks for.
std::optional<Unit> ChosenUnit(HWND dialog) {
    const auto row = SelectedRow(dialog, IDC_VARIABLE_UNIT);
    if (!row) {
        FocusOn(dialog, IDC_VARIABLE_UNIT);
        return std::nullopt;
    }
    const std::string name = FieldText(dialog, IDC_VARIABLE_UNIT, kVariableName);
    const auto unit = std::ranges::find(kUnits, name, &NamedNumber::name);
    return Unit{*row, unit == kUnits.end() ? 0 : unit->number};
}

// Whether so many elements can go in one transfer; says why not.
bool MayTransfer(const Access& access, const Unit& unit, int32_t count) {
    if (count >= 0 && int64_t{count} * unit.size <= access.mostBytes)
        return true;
    SayUnder(access.caption, "Invalid Count");
    return false;
}

void Fail(HWND dialog, uint32_t result, const char* operation) {
    SetDlgItemTextA(dialog, IDC_VARIABLE_VALUE, kFailure);
    ReportFailure(dialog, CodeOf(result), operation);
}

void Remember(HWND dialog, const std::string& name, const Unit& unit, int32_t count) {
    AddRecentVariable(NameList(dialog), name, {unit.row, static_cast<uint16_t>(count)});
}

// One element a line, in the order of the buffer. False where there is no memory for the text.
bool ShowElements(HWND dialog, const Unit& unit, int32_t count, const uint8_t* elements) {
    const int digits = static_cast<int>(2 * unit.size);
    const std::size_t line = std::strlen("0x\r\n") + 2 * unit.size;
    const std::size_t size = line * static_cast<std::size_t>(count) + 1;
    const std::unique_ptr<char[]> text(new (std::nothrow) char[size]());
    if (!text) {
        SetDlgItemTextA(dialog, IDC_VARIABLE_VALUE, "Allocation Failure");
        return false;
    }
    char* end = text.get();
    for (int32_t i = 0; i < count; ++i, elements += unit.size, end += line) {
        uint32_t element = 0;
        std::memcpy(&element, elements, unit.size);
        std::snprintf(end, line + 1, "0x%0*X\r\n", digits, static_cast<unsigned>(element));
    }
    SetDlgItemTextA(dialog, IDC_VARIABLE_VALUE, text.get());
    return true;
}

// Takes numbers from a text up to the first that is none. What stands between one and the next "0x"
// is passed over, and so are numbers without it.
void ParseElements(const std::string& text, const Unit& unit, int32_t count, uint8_t* elements) {
    std::size_t cursor = 0;
    for (int32_t i = 0; i < count && cursor != std::string::npos; ++i, elements += unit.size) {
        const auto element = ParseHexAtMark(text.c_str() + cursor);
        if (!element) {
            return;
        }
        std::memcpy(elements, &*element, unit.size);
        cursor = text.find(kMark, cursor + 1);
    }
}

void GetVcpxiValue(HWND dialog) {
    const std::string name = NameIn(dialog);
    const auto unit = ChosenUnit(dialog);
    if (!unit) {
        return;
    }
    if (unit->size == 0) {
        return SayUnder(kGet.caption, "Invalid UnitSize");
    }
    const std::string countText = FieldText(dialog, IDC_VARIABLE_COUNT, kCountField);
    if (countText.empty()) {
        return SayUnder(kGet.caption, "Internal Error");
    }
    const int32_t count = ParseDecimal(countText);
    if (!MayTransfer(kGet, *unit, count)) {
        return;
    }
    Elements elements(static_cast<std::size_t>(count) * unit->size);
    if (elements.Data() == nullptr) {
        return SayUnder(kGet.caption, "Memory allocation failure");
    }

    Raise(GetSharedWords().VcpGetFlag);
    const uint32_t result = vdapi_VCPXI_VCPVariable_GetValue(name.c_str(), unit->size, count,
                                                             elements.Data(), VCP_VARIABLE_GET);
    if (CodeOf(result) != VXD_SUCCESS) {
        return Fail(dialog, result, kGet.operation);
    }
    Sleep(kPauseAfterReading);
    if (ShowElements(dialog, *unit, count, elements.Data())) {
        Remember(dialog, name, *unit, count);
    }
}

void SetVcpxiValue(HWND dialog) {
    const std::string name = NameIn(dialog);
    const auto unit = ChosenUnit(dialog);
    if (!unit) {
        return;
    }
    if (unit->size == 0) {
        return SayUnder(kSet.caption, "Invalid UnitSize");
    }
    const int32_t count = ParseDecimal(FieldText(dialog, IDC_VARIABLE_COUNT, kCountField));
    const std::string values = FieldText(dialog, IDC_VARIABLE_VALUE, kSetField);
    if (!MayTransfer(kSet, *unit, count)) {
        return;
    }
    Elements elements(static_cast<std::size_t>(count) * unit->size);
    if (elements.Data() == nullptr) {
        return SayUnder(kSet.caption, "Memory allocation failure");
    }
    ParseElements(values, *unit, count, elements.Data());

    Raise(GetSharedWords().VcpSetFlag);
    const uint32_t result = vdapi_VCPXI_VCPVariable_SetValue(name.c_str(), unit->size, count,
                                                             elements.Data(), VCP_VARIABLE_SET);
    if (CodeOf(result) != VXD_SUCCESS) {
        return Fail(dialog, result, kSet.operation);
    }
    Remember(dialog, name, *unit, count);
}

// Puts a name that is to be tested into the list, unless one there begins with it. An empty one
// would end the list where it is read again.
void RememberTested(HWND dialog, const std::string& name) {
    if (name.empty() || HasRecentVariable(NameList(dialog), name)) {
        return;
    }
    InsertRecentVariable(NameList(dialog), name, {});
    WriteSetting(setting::kVariableTested, name);
}

// Shows nothing where it goes well.
void TestVcpxiVariable(HWND dialog) {
    const std::string name = NameIn(dialog);
    RememberTested(dialog, name);
    const auto unit = ChosenUnit(dialog);
    if (!unit) {
        return;
    }
    if (unit->size != kUnits[kDword].number) {
        return SayUnder(kTestCaption, "Test - Invalid UnitSize");
    }
    if (static_cast<uint16_t>(ParseDecimal(FieldText(dialog, IDC_VARIABLE_COUNT, kCountField))) >
        1) {
        return SayUnder(kTestCaption, "Test Multi fields - Not supported");
    }
    const uint32_t value =
        ParseHexLongAfterPrefix(FieldText(dialog, IDC_VARIABLE_VALUE, kTestField));
    const auto repeats = static_cast<uint16_t>(
        ParseUnsignedDecimal(FieldText(dialog, IDC_VARIABLE_REPEAT, kRepeatField)));
    WriteSetting(setting::kVariableTestLoops, repeats);

    LowObject<std::array<char, kVariableName>> lowName;
    std::ranges::copy(name, lowName->begin());
    VcpxiTestBlock block{lowName.Address(), value, repeats};
    const uint32_t result = vdapi_Debug(TALVERO_DBG_VCPXI_MULTIACCESS, sizeof block, &block);
    if (CodeOf(result) != VXD_SUCCESS) {
        Fail(dialog, result, "vdapi_Debug: TALVERO_DBG_VCPXI_MULTIACCESS");
    }
}

void ShowShape(HWND dialog, VariableShape shape) {
    SelectRow(dialog, IDC_VARIABLE_UNIT, shape.unit);
    ShowField(dialog, IDC_VARIABLE_COUNT, "%u", unsigned{shape.count});
}

void ShowShapeOfChoice(HWND dialog) {
    if (const auto row = SelectedRow(dialog, IDC_VARIABLE_NAME)) {
        ShowShape(dialog, ShapeOfRow(NameList(dialog), *row));
    }
}

void Open(HWND dialog) {
    SendDlgItemMessageA(dialog, IDC_VARIABLE_NAME, CB_LIMITTEXT, kVariableName - 1, 0);
    SendDlgItemMessageA(dialog, IDC_VARIABLE_COUNT, EM_LIMITTEXT, kCountField - 1, 0);
    AddComboRows(dialog, IDC_VARIABLE_UNIT, kUnits);
    if (LoadRecentVariables(NameList(dialog))) {
        SendDlgItemMessageA(dialog, IDC_VARIABLE_NAME, CB_SETCURSEL, 0, 0);
        ShowShapeOfChoice(dialog);
    } else {
        ShowShape(dialog, {kDword, 1});
    }
    ShowField(dialog, IDC_VARIABLE_REPEAT, "%d", ReadSetting(setting::kVariableTestLoops));
}

void Close(HWND dialog) {
    SaveRecentVariables(NameList(dialog));
    EndDialog(dialog, 0);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_VARIABLE_GET, GetVcpxiValue},
    {IDC_VARIABLE_SET, SetVcpxiValue},
    {IDC_VARIABLE_TEST, TestVcpxiVariable},
    {IDC_VARIABLE_NAME, ShowShapeOfChoice, CBN_SELCHANGE},
    {IDCANCEL, Close},
});

}  // namespace

INT_PTR OpenVariableAccess(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_VARIABLE_ACCESS, owner, {Open, kActions});
}
