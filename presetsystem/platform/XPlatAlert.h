// The one message box of the preset system: a warning with a single "OK" button, shown until dismissed.
#pragma once

#include <functional>

// Shows the message and returns when the user has dismissed it. With a handler installed (an open editor
// shows the alert in its own window) the handler shows it; otherwise the desktop's dialog program does;
// without a display, the message goes to standard error as one line and the call returns at once.
void XPlatDisplayAlert(const char* message);

// An open editor installs a handler that shows the alert inside its window; an empty function removes it.
void XPlatSetAlertHandler(std::function<void(const char*)> handler);
