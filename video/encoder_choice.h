// Which video encoder a dialog is for: its radio buttons BT855 and BT858. User-interface thread.
#pragma once

#include <cstdint>

#include "platform/win32.h"
#include "services/settings.h"

// Checks the button of the remembered encoder; none where another number is remembered.
void RecallEncoder(HWND dialog, const IntegerSetting& setting);

// As the driver counts: 0 for the BT855 where its button is checked, else 1 for the BT858.
uint16_t ChosenEncoder(HWND dialog);
