// The bonding dialogs: parameters and phone numbers with which a call bonds its channels, of the
// local side, which can be set, of the remote side, and the parameters that both agreed on.
// User-interface thread.
#pragma once

#include "platform/win32.h"

// Run a dialog modally over `owner`; give 0. Phones of the local side can be edited once bonding
// was seen to be on, in this run, by the local parameters.
INT_PTR OpenLocalBondParams(HINSTANCE instance, HWND owner);
INT_PTR OpenRemoteBondParams(HINSTANCE instance, HWND owner);
INT_PTR OpenCommonBondParams(HINSTANCE instance, HWND owner);
INT_PTR OpenLocalBondPhones(HINSTANCE instance, HWND owner);
INT_PTR OpenRemoteBondPhones(HINSTANCE instance, HWND owner);
