// The LV2 edition's editor in the project's LV2 host, as hosts with instance access show it, embedded in an
// X11 window of its own (under Xvfb): the host's ui:scaleFactor option sets its size.
#include "Lv2TestHost.h"
#include "X11TestWindow.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

namespace
{
constexpr const char* kUri = "https://zev-sound.example/plugins/spatara";

// The editor's window once it shows, at most after a few seconds of idling; 0 x 0 when it does not.
std::pair<int, int> editorSize(Lv2TestHost& host, X11TestWindow& parent)
{
    for (int round = 0; round < 300; ++round)
    {
        host.idleEditor();
        const auto children = parent.children();
        if (children.size() == 1 && children[0].mapped) return {children[0].width, children[0].height};
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return {0, 0};
}
} // namespace

TEST(Lv2Editor, IsTheSizeOfTheHostsScaleFactor)
{
    for (const auto& [scaleFactor, expected] :
         {std::pair{0.0f, std::pair{302, 250}}, {2.0f, {604, 500}}, {1.5f, {453, 375}}})
    {
        X11TestWindow parent(640, 520);
        ASSERT_TRUE(parent.isOpen());
        std::string error;
        auto host = Lv2TestHost::load(SPATARA_LV2_BUNDLE, kUri, 44100.0, 512, error);
        ASSERT_TRUE(host) << error;
        ASSERT_TRUE(host->openEditor(parent.getWindow(), scaleFactor, error)) << error;
        EXPECT_EQ(editorSize(*host, parent), expected) << "ui:scaleFactor " << scaleFactor;
        host->closeEditor();
    }
}
