#include "codec/recent_variables.h"

#include <array>
#include <cstdio>
#include <vector>

#include "services/number_field.h"
#include "services/settings.h"

namespace {

// Characters of a stored shape, with the terminator.
constexpr std::size_t kShapeText = 32;

LPARAM ItemOf(VariableShape shape) {
    return static_cast<LPARAM>(MAKELONG(shape.count, shape.unit));
}

LRESULT Find(HWND combo, UINT message, const std::string& name) {
    return SendMessageA(combo, message, static_cast<WPARAM>(-1),
                        reinterpret_cast<LPARAM>(name.c_str()));
}

// Puts a name into a row, -1 for the end; its item value is as stored.
void Insert(HWND combo, int row, const std::string& name, LPARAM item) {
    const LRESULT place = SendMessageA(combo, CB_INSERTSTRING, static_cast<WPARAM>(row),
                                       reinterpret_cast<LPARAM>(name.c_str()));
    if (place >= 0) {
        SendMessageA(combo, CB_SETITEMDATA, static_cast<WPARAM>(place), item);
    }
}

uint32_t ItemOfRow(HWND combo, int row) {
    return static_cast<uint32_t>(SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(row), 0));
}

std::string NameOfRow(HWND combo, int row) {
    const auto index = static_cast<WPARAM>(row);
    const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, index, 0);
    std::string name(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    SendMessageA(combo, CB_GETLBTEXT, index, reinterpret_cast<LPARAM>(name.data()));
    return name;
}

std::string HexText(uint32_t number) {
    std::array<char, 9> text{};
    std::snprintf(text.data(), text.size(), "%x", static_cast<unsigned>(number));
    return text.data();
}

}  // namespace

bool LoadRecentVariables(HWND combo) {
    for (int place = 0;; ++place) {
        const std::string name = ReadSetting(setting::kVariableName[place], kVariableName);
        if (name.empty()) {
            return place > 0;
        }
        if (Find(combo, CB_FINDSTRINGEXACT, name) == CB_ERR) {
            const std::string shape = ReadSetting(setting::kVariableShape[place], kShapeText);
            Insert(combo, -1, name, static_cast<LPARAM>(ParseHexLong(shape)));
        }
    }
}

void SaveRecentVariables(HWND combo) {
    std::vector<SettingText> values;
    for (int row = static_cast<int>(SendMessageA(combo, CB_GETCOUNT, 0, 0)) - 1; row >= 0; --row) {
        values.push_back({setting::kVariableName[row], NameOfRow(combo, row)});
        values.push_back({setting::kVariableShape[row], HexText(ItemOfRow(combo, row))});
    }
    WriteSettings(values);
}

bool HasRecentVariable(HWND combo, const std::string& name) {
    return Find(combo, CB_FINDSTRING, name) != CB_ERR;
}

void InsertRecentVariable(HWND combo, const std::string& name, VariableShape shape) {
    Insert(combo, 0, name, ItemOf(shape));
}

void AddRecentVariable(HWND combo, const std::string& name, VariableShape shape) {
    if (const LRESULT same = Find(combo, CB_FINDSTRING, name); same != CB_ERR) {
        SendMessageA(combo, CB_DELETESTRING, static_cast<WPARAM>(same), 0);
    }
    InsertRecentVariable(combo, name, shape);
    SendMessageA(combo, CB_SETCURSEL, 0, 0);
}

VariableShape ShapeOfRow(HWND combo, uint16_t row) {
    const uint32_t item = ItemOfRow(combo, row);
    return {HIWORD(item), LOWORD(item)};
}
