// The register browser: a list of what a chip offers by name, the selected row's value as text, and
// "&Set", which writes what stands in the value field. All browsers are this mechanism, each with a
// descriptor of its own; what only one of them has are functions that the descriptor names.
// User-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/win32.h"
#include "regs/catalogue.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

struct RegisterBrowser {
    int dialog;  // the template
    int list;
    int value;
    int name;  // unused where showName shows something else
    RegisterCatalogue catalogue;

    // Gives a row's value as it is shown; nothing where the driver gives none.
    std::optional<std::string> (*read)(HWND dialog, std::size_t row);
    const char* failureText;  // shown in the value's place then
    // Writes what the value field says to a row, and reports a failure.
    void (*write)(HWND dialog, std::size_t row, const std::string& text);

    int set = IDC_BROWSER_SET;
    // Characters of the value field that count, with the terminator.
    std::size_t valueBuffer = 16;

    // Null where a browser has nothing of its own to do: once the list is filled; at a command that
    // is not the mechanism's, true where it was one; to name a row other than by its name alone.
    void (*open)(HWND dialog) = nullptr;
    bool (*command)(HWND dialog, int id) = nullptr;
    void (*showName)(HWND dialog, std::size_t row) = nullptr;
    // After "&Close" alone, to keep what is to be remembered; and messages and the end, however it
    // comes, as in DialogRules.
    void (*close)(HWND dialog) = nullptr;
    std::span<const DialogMessage> messages = {};
    void (*end)(HWND dialog) = nullptr;
};

// Runs a browser modally over `owner`; gives 1 after "&Close", 0 after cancel.
INT_PTR RunBrowser(HINSTANCE instance, HWND owner, const RegisterBrowser& browser);

// For what a browser adds: reads the current row anew; writes it as "&Set" does.
void ShowCurrentRow(HWND dialog);
void SetCurrentRow(HWND dialog);

// "0x" and at least `digits` upper-case digits.
std::string HexText(uint32_t value, int digits);
