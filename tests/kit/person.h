// What a person does with mouse and clipboard. On Windows it is real input, which the system brings
// to the window under the pointer. The layer gets what a screen reports of such input.
//
// Everything belongs to the engineer's thread and returns when the program has dealt with it. What
// is acted on has to be in front.
#pragma once

#include "platform/win32.h"
#include "tests/kit/test.h"

namespace kit {

void ClickButton(HWND button);
void ClickRow(HWND listBox, int row);
void DoubleClickRow(HWND listBox, int row);
// Puts a text in place of the selection of an edit, or of a combo box's edit; it has the focus.
void Paste(HWND edit, const std::string& text);
// The arrow at the end of a horizontal scroll bar.
void ClickRightArrow(HWND scrollBar);
// Takes the thumb of a horizontal scroll bar to the bar's end, the last position of its range, and
// lets it go there.
void DragThumbToEnd(HWND scrollBar, int end);
// Turns the wheel by whole notches, away from the person, with the pointer on a control that has
// the focus.
void TurnWheel(HWND control, int notches);
// A double click with the right button where a label of a dialog lies.
void DoubleClickRight(HWND label);

}  // namespace kit
