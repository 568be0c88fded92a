// The dialogs that choose one of two devices, with or without the question whether the ISAC chip is
// initialised along with it. User-interface thread.
#pragma once

#include <array>
#include <cstdint>

#include "platform/win32.h"

struct DeviceChoice {
    int radioButton;
    uint16_t device;
};

// A choice that outlives its dialogs.
struct DeviceSelection {
    std::array<DeviceChoice, 2> choices;
    int initializeChipBox;
    uint16_t device;
    bool initializesChip = false;
};

// Runs a template of the program's modally over `owner`; gives 1 when a choice was confirmed, else
// 0. A template without the check box clears `initializesChip`.
INT_PTR OpenDeviceSelection(HINSTANCE instance, int templateId, HWND owner,
                            DeviceSelection& selection);
