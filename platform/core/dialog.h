// Dialog boxes: made from templates, run modally, driven by keys.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include "platform/core/resource.h"
#include "platform/core/window.h"

namespace vxd {

inline constexpr char kDialogClass[] = "#32770";

// Which windows take no input while a modal dialog box runs.
enum class Modality { kOwner, kAllWindows };

// Runs a modal dialog box; -1 when it cannot be made, else what EndDialog was given.
INT_PTR RunDialogBox(HINSTANCE instance, const DialogTemplate& dialogTemplate, HWND owner,
                     DLGPROC procedure, LPARAM parameter, Modality modality = Modality::kOwner);

// Dialog units are a quarter of the average character's width and an eighth of its height.
Rect FromDialogUnits(const Rect& units);
Rect ToDialogUnits(const Rect& pixels);

// Makes the push button that a person has gone to the one that Enter presses; behind any other
// control that is the dialog's own default button again.
void DefaultButtonFollows(const Window& control);
// The controls of a dialog that belong to one group with the given one and can take the focus.
std::vector<Window*> GroupOf(const Window& control);
// Gives the focus to a dialog's control as keys do: an edit gets its whole text selected.
void FocusByKey(Window& control);
// The text of the modal box in front, for telling what a program waits for; empty without one.
std::string DescribeModalBox();

// Whether the key is one that a dialog box may take from its focused control: Tab, Escape, Enter,
// arrows inside a group, a letter that the control does not want. Runs no program code.
bool IsDialogKey(Window& focused, UINT message, WPARAM key, char character);

// The classes of all built-in controls.
void RegisterControls();

}  // namespace vxd
