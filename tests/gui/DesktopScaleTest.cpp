// The rules by which the desktop's scale is read, with the environment and the X resources given.
#include "platform/DesktopScale.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace
{
double scaleOf(const std::map<std::string, std::string>& variables, const std::string& resources = "")
{
    return spatara::desktopScaleFrom(
        [&](const char* name) -> const char*
        {
            const auto found = variables.find(name);
            return found == variables.end() ? nullptr : found->second.c_str();
        },
        resources);
}
} // namespace

TEST(DesktopScale, IsOneWhenNothingSaysOtherwise)
{
    EXPECT_EQ(scaleOf({}), 1.0);
    EXPECT_EQ(scaleOf({}, "Xft.antialias:\t1\n"), 1.0);
}

TEST(DesktopScale, TheFirstVariableThatGivesAScaleWins)
{
    EXPECT_EQ(scaleOf({{"DPF_SCALE_FACTOR", "2"}, {"GDK_SCALE", "3"}, {"QT_SCALE_FACTOR", "1.5"}}), 2.0);
    EXPECT_EQ(scaleOf({{"GDK_SCALE", "3"}, {"QT_SCALE_FACTOR", "1.5"}}), 3.0);
    EXPECT_EQ(scaleOf({{"QT_SCALE_FACTOR", "1.25"}}, "Xft.dpi:\t192\n"), 1.25);
}

TEST(DesktopScale, GdkDpiScaleMultipliesGdkScale)
{
    EXPECT_EQ(scaleOf({{"GDK_SCALE", "2"}, {"GDK_DPI_SCALE", "0.75"}}), 1.5);
    EXPECT_EQ(scaleOf({{"GDK_SCALE", "1"}, {"GDK_DPI_SCALE", "1.75"}}), 1.75);
    // Alone it says nothing: toolkits read it only with GDK_SCALE.
    EXPECT_EQ(scaleOf({{"GDK_DPI_SCALE", "2"}}), 1.0);
}

TEST(DesktopScale, AValueThatIsNoScaleFromOneToFourIsPassedOver)
{
    EXPECT_EQ(scaleOf({{"DPF_SCALE_FACTOR", "0.5"}, {"GDK_SCALE", "2"}}), 2.0);
    EXPECT_EQ(scaleOf({{"DPF_SCALE_FACTOR", "5"}, {"QT_SCALE_FACTOR", "1.5"}}), 1.5);
    EXPECT_EQ(scaleOf({{"DPF_SCALE_FACTOR", "2x"}, {"QT_SCALE_FACTOR", ""}}), 1.0);
    EXPECT_EQ(scaleOf({{"GDK_SCALE", "nan"}}), 1.0);
    EXPECT_EQ(scaleOf({}, "Xft.dpi:\t48\n"), 1.0);
    EXPECT_EQ(scaleOf({}, "Xft.dpi:\tlarge\n"), 1.0);
}

TEST(DesktopScale, XftDpiOverNinetySixIsTheScale)
{
    EXPECT_EQ(scaleOf({}, "Xft.dpi:\t192\n"), 2.0);
    EXPECT_EQ(scaleOf({}, "Xcursor.size:\t24\nXft.dpi: 144\nXft.hinting:\t1\n"), 1.5);
    EXPECT_EQ(scaleOf({}, "Xft.dpi:\t120"), 1.25);
    // Another resource that only ends in the same name is not it.
    EXPECT_EQ(scaleOf({}, "MyApp.Xft.dpi:\t192\n"), 1.0);
}
