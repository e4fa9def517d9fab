#include "XPlatAlert.h"

#include "ChildProcess.h"
#include "XPlatAlertScope.h"

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace
{
bool hasDisplay()
{
    const char* x11 = std::getenv("DISPLAY");
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    return (x11 && *x11) || (wayland && *wayland);
}

// Runs a dialog program and waits for it; answers whether it ran and was dismissed normally.
bool runDialog(const std::vector<std::string>& command)
{
    ChildProcessOptions options;
    options.quietErrors = true;
    const ChildProcessResult dialog = runChildProcess(command, options);
    // 0: OK pressed; 1: closed by the window manager or Escape. Both dismiss the alert. Anything else
    // means the program could not show it.
    return dialog.finished && (dialog.exitCode == 0 || dialog.exitCode == 1);
}
} // namespace

void XPlatDisplayAlert(const char* message)
{
    if (const auto& handler = XPlatAlertScope::current())
    {
        handler(message);
        return;
    }
    if (hasDisplay())
    {
        const std::string text = message;
        if (runDialog({"zenity", "--warning", "--no-markup", "--no-wrap", "--title", "ZEV Spatara",
                       "--ok-label", "OK", "--text", text}) ||
            runDialog({"kdialog", "--title", "ZEV Spatara", "--sorry", text}) ||
            runDialog({"xmessage", "-center", "-buttons", "OK:0", text}))
            return;
    }
    std::fprintf(stderr, "ZEV Spatara: %s\n", message);
}
