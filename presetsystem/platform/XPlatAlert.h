// The one message box of the preset system: a warning with a single "OK" button, shown until dismissed.
#pragma once

// Shows the message and returns when the user has dismissed it. Inside an XPlatAlertScope (an editor with a
// window around its own action) the scope's handler shows it in that window; otherwise the desktop's dialog
// program does; without a display, the message goes to standard error as one line and the call returns at
// once.
void XPlatDisplayAlert(const char* message);
