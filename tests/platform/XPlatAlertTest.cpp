#include "XPlatAlert.h"

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <string>

TEST(XPlatAlert, WithoutADisplayTheMessageGoesToStandardErrorAtOnce)
{
    XPlatSetAlertHandler(nullptr);
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
    XPlatSetAlertHandler([&](const char* message) { shown = message; });
    XPlatDisplayAlert("in the editor");
    XPlatSetAlertHandler(nullptr);
    EXPECT_EQ(shown, "in the editor");
}
