#include "XPlatAlert.h"
#include "TempDir.h"
#include "XPlatAlertScope.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

TEST(XPlatAlert, WithoutADisplayTheMessageGoesToStandardErrorAtOnce)
{
    const char* display = std::getenv("DISPLAY");
    const std::string saved = display ? display : "";
    unsetenv("DISPLAY");
    unsetenv("WAYLAND_DISPLAY");
    testing::internal::CaptureStderr();
    const auto start = std::chrono::steady_clock::now();
    XPlatDisplayAlert("The manual could not be opened.");
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "ZEV Spatara: The manual could not be opened.\n");
    EXPECT_LT(took, std::chrono::seconds(1));
    if (display) setenv("DISPLAY", saved.c_str(), 1);
}

TEST(XPlatAlert, AnInstalledHandlerShowsTheMessage)
{
    std::string shown;
    {
        const XPlatAlertScope inTheEditor([&](const char* message) { shown = message; });
        XPlatDisplayAlert("in the editor");
    }
    EXPECT_EQ(shown, "in the editor");
}

TEST(XPlatAlert, AScopeShowsTheAlertsRaisedWithinItAndTheOuterOneComesBackAfter)
{
    std::vector<std::string> outer, inner;
    const XPlatAlertScope outerScope([&](const char* message) { outer.push_back(message); });
    {
        const XPlatAlertScope innerScope([&](const char* message) { inner.push_back(message); });
        XPlatDisplayAlert("first");
    }
    XPlatDisplayAlert("second");
    EXPECT_EQ(inner, std::vector<std::string>{"first"});
    EXPECT_EQ(outer, std::vector<std::string>{"second"});
}

TEST(XPlatAlert, TheDesktopsAlertIsWaitedForWhenTheHostIgnoresChildSignals)
{
    TempDir tools;
    {
        std::ofstream script(tools.file("zenity"));
        script << "#!/bin/sh\nfor a in \"$@\"; do echo \"$a\"; done > '" << tools.file("shown")
               << "'\nexit 0\n";
    }
    ::chmod(tools.file("zenity").c_str(), 0755);
    const std::string oldPath = std::getenv("PATH");
    setenv("PATH", (tools.path() + ":" + oldPath).c_str(), 1);
    const char* display = std::getenv("DISPLAY");
    const std::string oldDisplay = display ? display : "";
    setenv("DISPLAY", ":99", 1); // the fake dialog needs no server
    struct sigaction ignore = {}, old = {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGCHLD, &ignore, &old);
    alarm(20); // a hang ends the test program instead of the run
    XPlatDisplayAlert("Could not open manual file:\n~/\"x.pdf\"");
    alarm(0);
    sigaction(SIGCHLD, &old, nullptr);
    setenv("PATH", oldPath.c_str(), 1);
    if (display)
        setenv("DISPLAY", oldDisplay.c_str(), 1);
    else
        unsetenv("DISPLAY");
    std::ifstream shown(tools.file("shown"));
    const std::string text((std::istreambuf_iterator<char>(shown)), std::istreambuf_iterator<char>());
    EXPECT_NE(text.find("--warning\n"), std::string::npos) << text;
    EXPECT_NE(text.find("Could not open manual file:\n~/\"x.pdf\"\n"), std::string::npos) << text;
}
