// What a person did and has not had its turn yet follows what the program does in the meantime.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include "platform/screen.h"

namespace vxd {

// The rows of a list have changed on the screen.
void FollowInsertedRow(WidgetId list, int row);
void FollowRemovedRow(WidgetId list, int row);
void FollowClearedRows(WidgetId list);
// The screen has been told a text in place of the one that an edit showed.
void FollowShownText(WidgetId edit);
// The same for a selection alone.
void FollowShownSelection(WidgetId edit);

}  // namespace vxd
