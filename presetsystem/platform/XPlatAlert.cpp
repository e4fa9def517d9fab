#include "XPlatAlert.h"

#include <cstdio>
#include <cstdlib>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

extern char** environ;

namespace
{
std::function<void(const char*)>& alertHandler()
{
    static std::function<void(const char*)> handler;
    return handler;
}

bool hasDisplay()
{
    const char* x11 = std::getenv("DISPLAY");
    const char* wayland = std::getenv("WAYLAND_DISPLAY");
    return (x11 && *x11) || (wayland && *wayland);
}

// Runs a dialog program and waits for it; answers whether it ran and was dismissed normally.
bool runDialog(const std::vector<std::string>& arguments)
{
    std::vector<char*> argv;
    for (const std::string& argument : arguments)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);
    pid_t child = 0;
    if (posix_spawnp(&child, argv[0], nullptr, nullptr, argv.data(), environ) != 0) return false;
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
    {
    }
    // 0: OK pressed; 1: closed by the window manager or Escape. Both dismiss the alert. Anything else
    // means the program could not show it.
    return WIFEXITED(status) && (WEXITSTATUS(status) == 0 || WEXITSTATUS(status) == 1);
}
} // namespace

void XPlatSetAlertHandler(std::function<void(const char*)> handler)
{
    alertHandler() = std::move(handler);
}

void XPlatDisplayAlert(const char* message)
{
    if (alertHandler())
    {
        alertHandler()(message);
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
