// The CLAP edition's editor, embedded by our CLAP host in an X11 window (under Xvfb): it appears in the
// host's window at its size and draws itself, follows the host's parameter changes, and closes and opens
// again. docs/clap-editor-in-test-host.png is the second test's clap-editor-after.png.
#include "ClapTestHost.h"
#include "TempDir.h"
#include "VstReference.h"
#include "X11TestWindow.h"

#include <cstdlib>
#include <gtest/gtest.h>

#include <cairo.h>
#include <chrono>
#include <filesystem>
#include <set>
#include <thread>

namespace
{
// The host's main loop for a while: the plug-in's timers fire every 20 ms.
void idle(ClapTestHost& host, std::chrono::milliseconds time)
{
    for (auto waited = std::chrono::milliseconds(0); waited < time; waited += std::chrono::milliseconds(20))
    {
        host.idleEditor();
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
}

// The screenshot's pixels (0xAARRGGBB) inside width × height, or none; the file name keeps that area.
std::vector<uint32_t> screenshot(X11TestWindow& parent, const std::string& name, int width, int height)
{
    const std::string path = (std::filesystem::current_path() / name).string();
    std::vector<uint32_t> pixels;
    if (!parent.screenshot(path)) return pixels;
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS &&
        cairo_image_surface_get_width(image) >= width && cairo_image_surface_get_height(image) >= height)
    {
        cairo_surface_flush(image);
        const unsigned char* data = cairo_image_surface_get_data(image);
        const int stride = cairo_image_surface_get_stride(image);
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                pixels.push_back(reinterpret_cast<const uint32_t*>(data + y * stride)[x]);
        cairo_surface_t* area = cairo_surface_create_for_rectangle(image, 0, 0, width, height);
        cairo_surface_write_to_png(area, path.c_str());
        cairo_surface_destroy(area);
    }
    cairo_surface_destroy(image);
    return pixels;
}

std::size_t colours(const std::vector<uint32_t>& pixels)
{
    return std::set<uint32_t>(pixels.begin(), pixels.end()).size();
}

class ClapEditor : public ::testing::Test
{
  protected:
    void SetUp() override
    {
        if (!parent.isOpen()) GTEST_SKIP() << "no X server";
        std::string error;
        host = ClapTestHost::load(SPATARA_CLAP_FILE, 44100.0, vstreference::kBlock, error);
        ASSERT_TRUE(host) << error;
    }

    // Opens the editor in the parent window and lets it draw for a while.
    void open(std::chrono::milliseconds settle, double scale = 0.0)
    {
        std::string error;
        ASSERT_TRUE(host->openEditor(parent.getWindow(), width, height, error, scale)) << error;
        idle(*host, settle);
    }

    std::vector<uint32_t> shot(const std::string& name)
    {
        return screenshot(parent, name, static_cast<int>(width), static_cast<int>(height));
    }

    X11TestWindow parent{640, 520}; // room for the editor at scale 2
    TempDir config;
    std::unique_ptr<ClapTestHost> host; // closed before its parent window
    uint32_t width = 0, height = 0;
};
} // namespace

TEST_F(ClapEditor, OpensInTheHostsWindowAtItsSizeAndDrawsItself)
{
    open(std::chrono::milliseconds(600));
    EXPECT_GT(width, 300u);
    EXPECT_GT(height, 150u);
    const std::vector<X11TestWindow::Geometry> children = parent.children();
    ASSERT_EQ(children.size(), 1u);
    EXPECT_EQ(children[0].x, 0);
    EXPECT_EQ(children[0].y, 0);
    EXPECT_EQ(children[0].width, static_cast<int>(width));
    EXPECT_EQ(children[0].height, static_cast<int>(height));
    EXPECT_TRUE(children[0].mapped);
    // The editor's bitmaps, not an empty window.
    const auto pixels = shot("clap-editor.png");
    ASSERT_FALSE(pixels.empty());
    EXPECT_GT(colours(pixels), 50u);
}

TEST_F(ClapEditor, OpensAtTheScaleTheHostSetsDrawnForIt)
{
    open(std::chrono::milliseconds(400), 2.0);
    EXPECT_EQ(width, 604u);
    EXPECT_EQ(height, 500u);
    const std::vector<X11TestWindow::Geometry> children = parent.children();
    ASSERT_EQ(children.size(), 1u);
    EXPECT_EQ(children[0].width, 604);
    EXPECT_EQ(children[0].height, 500);
    const auto pixels = shot("clap-editor-at-scale-2.png");
    ASSERT_FALSE(pixels.empty());
    EXPECT_GT(colours(pixels), 50u);
}

TEST_F(ClapEditor, AWindowTheUserDragsKeepsTheEditorsProportionsAndSettlesOnTheNearestZoom)
{
    // The user's zoom goes to the preferences: this test's own.
    const char* previous = std::getenv("XDG_CONFIG_HOME");
    const std::string saved = previous ? previous : "";
    setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
    host->allowResizing(true);
    open(std::chrono::milliseconds(300));
    ASSERT_EQ(width, 302u);
    ASSERT_TRUE(host->canResizeEditor());
    // Proportions kept: dragged to a square, the width decides.
    uint32_t w = 700, h = 700;
    ASSERT_TRUE(host->adjustEditorSize(w, h));
    EXPECT_EQ(w, 700u);
    EXPECT_EQ(h, 579u);
    // Never smaller than at scale 1.
    w = 100, h = 80;
    ASSERT_TRUE(host->adjustEditorSize(w, h));
    EXPECT_GE(w, 302u);
    EXPECT_GE(h, 250u);

    // Dragged to a size near scale 2, the editor settles on 2 and asks for its size.
    ASSERT_TRUE(host->setEditorSize(640, 530));
    idle(*host, std::chrono::milliseconds(200));
    ASSERT_FALSE(host->resizeRequests().empty());
    EXPECT_EQ(host->resizeRequests().back(), (std::pair<uint32_t, uint32_t>{604, 500}));
    const std::vector<X11TestWindow::Geometry> children = parent.children();
    ASSERT_EQ(children.size(), 1u);
    EXPECT_EQ(children[0].width, 604);
    EXPECT_EQ(children[0].height, 500);
    if (previous)
        setenv("XDG_CONFIG_HOME", saved.c_str(), 1);
    else
        unsetenv("XDG_CONFIG_HOME");
}

TEST_F(ClapEditor, FollowsTheHostsParameterChanges)
{
    open(std::chrono::milliseconds(400));
    const auto before = shot("clap-editor-before.png");
    // The host moves depth and the mode, as its automation would.
    host->queueValue(host->parameterId("depth"), 80.0);
    host->queueValue(host->parameterId("mode"), 2.0);
    host->flush();
    idle(*host, std::chrono::milliseconds(400));
    const auto after = shot("clap-editor-after.png");
    ASSERT_FALSE(before.empty());
    ASSERT_EQ(before.size(), after.size());
    std::size_t changed = 0;
    for (std::size_t i = 0; i < before.size(); ++i)
        changed += before[i] != after[i] ? 1 : 0;
    EXPECT_GT(changed, 100u) << "the editor did not show the host's change";
}

TEST_F(ClapEditor, ADragOfItsDepthSliderReachesTheHost)
{
    open(std::chrono::milliseconds(400));
    const clap_id depth = host->parameterId("depth");
    // The depth slider's handle sits at its left end on the init preset; drag it half way.
    ASSERT_TRUE(
        X11TestWindow::xdotool("mousemove 70 59 mousedown 1 mousemove 110 59 mousemove 152 59 mouseup 1"));
    idle(*host, std::chrono::milliseconds(300));
    const vstreference::Stereo in = vstreference::testSignal(44100.0);
    const vstreference::Stereo slice{
        std::vector<float>(in.left.begin(), in.left.begin() + vstreference::kBlock),
        std::vector<float>(in.right.begin(), in.right.begin() + vstreference::kBlock)};
    vstreference::Stereo out = slice;
    host->process(slice.left.data(), slice.right.data(), out.left.data(), out.right.data(),
                  vstreference::kBlock);
    double last = -1.0;
    for (const auto& [id, value] : host->reportedValues())
        if (id == depth) last = value;
    EXPECT_GT(last, 20.0) << "no depth edit reached the host";
    EXPECT_LT(last, 80.0);
    EXPECT_EQ(host->value(depth), last);
}

TEST_F(ClapEditor, ClosesAndOpensAgain)
{
    for (int round = 0; round < 3; ++round)
    {
        open(std::chrono::milliseconds(200));
        EXPECT_EQ(parent.children().size(), 1u) << "round " << round;
        host->closeEditor();
        idle(*host, std::chrono::milliseconds(100));
        EXPECT_EQ(parent.children().size(), 0u) << "round " << round;
    }
}
