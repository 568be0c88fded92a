// The two video windows, which the board's video window driver draws into. They are windows of
// their own: they stay until they are closed here, whatever a person does to them, and opening one
// leaves the keyboard where it is. User-interface thread.
#pragma once

// True for success, also where the window is open already. A failure leaves no window behind and
// says its reason on the debug output.
bool OpenLocalVideo();
bool OpenRemoteVideo();
// Opens both; true only where both are.
bool OpenAllVideo();

// These cannot fail; what is not open stays as it is.
void CloseLocalVideo();
void CloseRemoteVideo();
void CloseAllVideo();

// The pictures stand still, and run again, whatever windows are open.
void FreezeVideo();
void RestartVideo();

// To be called at the end of the program: closes the windows and the driver, if it was opened.
void ShutDownVideo();
