// The editor at the scale of the screen, through the real plug-in in a real X server: where the scale comes
// from (the host's request, the desktop's variables, the X server's font resolution), the window's size at
// it, and the picture: at 2 the same editor drawn with twice the pixels, not the picture of 1 enlarged.
#include "VstTestHost.h"
#include "X11TestWindow.h"

#include <cairo.h>
#include <gtest/gtest.h>

// After the test framework: Xlib's macros (None, Bool) would change its names.
#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>

namespace
{
using namespace std::chrono_literals;

constexpr VstInt32 kScaleRequest = ('P' << 24) | ('r' << 16) | ('e' << 8) | 'S';
constexpr VstIntPtr kScaleRequestValue = ('A' << 24) | ('e' << 16) | ('C' << 8) | 's';
const char* const kScaleVariables[] = {"DPF_SCALE_FACTOR", "GDK_SCALE", "GDK_DPI_SCALE", "QT_SCALE_FACTOR"};

// What the host answers when the editor asks it to resize its window.
bool hostResizes = false;
std::pair<VstInt32, VstInt32> askedSize{0, 0};

VstIntPtr hostCallback(AEffect*, VstInt32 opcode, VstInt32 index, VstIntPtr value, void*, float)
{
    if (opcode == audioMasterVersion) return 2400;
    if (opcode != audioMasterSizeWindow) return 0;
    askedSize = {index, static_cast<VstInt32>(value)};
    return hostResizes ? 1 : 0;
}

// The X server's resources, as xrdb sets them: the text of the root window's RESOURCE_MANAGER.
void setXResources(const std::string& text)
{
    Display* display = XOpenDisplay(nullptr);
    ASSERT_NE(display, nullptr);
    const Atom property = XInternAtom(display, "RESOURCE_MANAGER", False);
    if (text.empty())
        XDeleteProperty(display, DefaultRootWindow(display), property);
    else
        XChangeProperty(display, DefaultRootWindow(display), property, XA_STRING, 8, PropModeReplace,
                        reinterpret_cast<const unsigned char*>(text.data()), static_cast<int>(text.size()));
    XSync(display, False);
    XCloseDisplay(display);
}

// A screenshot read back as an image; null when it could not be taken.
cairo_surface_t* screenshot(X11TestWindow& window, const std::string& name)
{
    const std::string path = (std::filesystem::current_path() / name).string();
    if (!window.screenshot(path)) return nullptr;
    cairo_surface_t* image = cairo_image_surface_create_from_png(path.c_str());
    if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS) return image;
    cairo_surface_destroy(image);
    return nullptr;
}

// One colour channel (0 blue, 1 green, 2 red) of a pixel of an opaque image.
int channel(cairo_surface_t* image, int x, int y, int c)
{
    const unsigned char* data = cairo_image_surface_get_data(image);
    return data[y * cairo_image_surface_get_stride(image) + x * 4 + c];
}

const std::pair<int, int> kAtOne{302, 250}, kAtOneAndAHalf{453, 375}, kAtTwo{604, 500};

class EditorScale : public ::testing::Test
{
  protected:
    void SetUp() override
    {
        for (const char* name : kScaleVariables)
            unsetenv(name);
        hostResizes = false;
        askedSize = {0, 0};
    }
    void TearDown() override
    {
        for (const char* name : kScaleVariables)
            unsetenv(name);
        setXResources("");
    }

    static std::unique_ptr<VstTestHost> load()
    {
        std::string error;
        auto host = VstTestHost::load(SPATARA_PLUGIN_PATH, hostCallback, error);
        EXPECT_NE(host, nullptr) << error;
        return host;
    }
    // The editor's rectangle as the instance gives it to its host: width and height.
    static std::pair<int, int> rectangleOf(VstTestHost& host)
    {
        const ERect* rect = host.getEditorRect();
        if (!rect) return {0, 0};
        return {rect->right - rect->left, rect->bottom - rect->top};
    }
    // The same for a fresh instance.
    static std::pair<int, int> freshRectangle()
    {
        auto host = load();
        return host ? rectangleOf(*host) : std::pair<int, int>{0, 0};
    }
    static VstIntPtr requestScale(VstTestHost& host, float scale)
    {
        return host.dispatch(effVendorSpecific, kScaleRequest, kScaleRequestValue, nullptr, scale);
    }
    static bool shown(X11TestWindow& parent, int width, int height)
    {
        const auto children = parent.children();
        return children.size() == 1 && children[0].mapped && children[0].width == width &&
               children[0].height == height;
    }
};

} // namespace

TEST_F(EditorScale, WithoutAnyWordFromHostOrDesktopTheEditorIsItsOwnSize)
{
    EXPECT_EQ(freshRectangle(), kAtOne);
}

TEST_F(EditorScale, TheDesktopsVariablesSetTheSize)
{
    for (const auto& [name, value, expected] :
         {std::tuple{"DPF_SCALE_FACTOR", "2", kAtTwo}, std::tuple{"GDK_SCALE", "2", kAtTwo},
          std::tuple{"QT_SCALE_FACTOR", "1.5", kAtOneAndAHalf},
          std::tuple{"DPF_SCALE_FACTOR", "1.5", kAtOneAndAHalf}})
    {
        setenv(name, value, 1);
        EXPECT_EQ(freshRectangle(), expected) << name << "=" << value;
        unsetenv(name);
    }
    // GDK_DPI_SCALE multiplies GDK_SCALE.
    setenv("GDK_SCALE", "1", 1);
    setenv("GDK_DPI_SCALE", "2", 1);
    EXPECT_EQ(freshRectangle(), kAtTwo);
    // The framework's own variable comes first; a value that is no scale is passed over.
    setenv("DPF_SCALE_FACTOR", "1.5", 1);
    EXPECT_EQ(freshRectangle(), kAtOneAndAHalf);
    setenv("DPF_SCALE_FACTOR", "nine", 1);
    EXPECT_EQ(freshRectangle(), kAtTwo);
}

TEST_F(EditorScale, TheXServersFontResolutionSetsTheSizeWhenNoVariableDoes)
{
    setXResources("Xft.antialias:\t1\nXft.dpi:\t144\n");
    EXPECT_EQ(freshRectangle(), kAtOneAndAHalf);
    setXResources("Xft.dpi:\t192\n");
    EXPECT_EQ(freshRectangle(), kAtTwo);
    setXResources("Xft.dpi:\t96\n");
    EXPECT_EQ(freshRectangle(), kAtOne);
    setXResources("Xft.dpi:\t192\n");
    setenv("QT_SCALE_FACTOR", "1.5", 1);
    EXPECT_EQ(freshRectangle(), kAtOneAndAHalf);
}

TEST_F(EditorScale, TheHostsRequestComesBeforeTheDesktop)
{
    setenv("DPF_SCALE_FACTOR", "1.5", 1);
    auto host = load();
    ASSERT_TRUE(host);
    EXPECT_EQ(requestScale(*host, 2.0f), 1);
    EXPECT_EQ(rectangleOf(*host), kAtTwo);
    // Below 1 or above 4 is no scale: refused, the size kept.
    EXPECT_EQ(requestScale(*host, 0.5f), 0);
    EXPECT_EQ(requestScale(*host, 5.0f), 0);
    EXPECT_EQ(rectangleOf(*host), kAtTwo);
}

TEST_F(EditorScale, ARequestWhileOpenResizesTheWindowOnlyWhenTheHostResizesItsOwn)
{
    X11TestWindow parent(604, 500);
    ASSERT_TRUE(parent.isOpen());
    auto host = load();
    ASSERT_TRUE(host);
    ASSERT_TRUE(host->openEditor(parent.getWindow()));
    ASSERT_TRUE(host->idleEditorUntil([&] { return shown(parent, 302, 250); }));

    // A host that keeps its window: the editor stays whole at the size it had.
    EXPECT_EQ(requestScale(*host, 2.0f), 1);
    EXPECT_EQ(askedSize, (std::pair<VstInt32, VstInt32>{604, 500}));
    host->idleEditorFor(100ms);
    EXPECT_TRUE(shown(parent, 302, 250));
    EXPECT_EQ(rectangleOf(*host), kAtOne);

    // A host that resizes: the editor follows.
    hostResizes = true;
    EXPECT_EQ(requestScale(*host, 1.5f), 1);
    EXPECT_EQ(askedSize, (std::pair<VstInt32, VstInt32>{453, 375}));
    EXPECT_TRUE(host->idleEditorUntil([&] { return shown(parent, 453, 375); }));
    EXPECT_EQ(rectangleOf(*host), kAtOneAndAHalf);
    host->closeEditor();
}

TEST_F(EditorScale, AtTwoTheEditorIsItsPictureAtOneDrawnWithTwiceThePixelsNotEnlarged)
{
    cairo_surface_t* shots[2] = {nullptr, nullptr};
    for (int i = 0; i < 2; ++i)
    {
        X11TestWindow parent(302 * (i + 1), 250 * (i + 1));
        ASSERT_TRUE(parent.isOpen());
        auto host = load();
        ASSERT_TRUE(host);
        // The same values in both, so that the two pictures show the same editor.
        for (const auto& [index, value] :
             {std::pair{0, 0.6f}, {1, 0.5f}, {2, 0.33f}, {3, 1.0f}, {4, 0.0f}, {5, 0.0f}})
            host->getEffect()->setParameter(host->getEffect(), index, value);
        if (i == 1) ASSERT_EQ(requestScale(*host, 2.0f), 1);
        ASSERT_TRUE(host->openEditor(parent.getWindow()));
        ASSERT_TRUE(host->idleEditorUntil([&] { return shown(parent, 302 * (i + 1), 250 * (i + 1)); }));
        host->idleEditorFor(200ms);
        shots[i] = screenshot(parent, "editor-at-scale-" + std::to_string(i + 1) + ".png");
        host->closeEditor();
        ASSERT_NE(shots[i], nullptr);
    }
    cairo_surface_t* one = shots[0];
    cairo_surface_t* two = shots[1];
    ASSERT_EQ(cairo_image_surface_get_width(two), 604);
    ASSERT_EQ(cairo_image_surface_get_height(two), 500);

    // At 1 the editor is what it always was: the reference picture of these values, pixel for pixel.
    cairo_surface_t* reference = cairo_image_surface_create_from_png(SPATARA_DOCS_DIR "/editor-mode1.png");
    ASSERT_EQ(cairo_surface_status(reference), CAIRO_STATUS_SUCCESS);
    ASSERT_EQ(cairo_image_surface_get_width(reference), 302);
    int differentPixels = 0;
    for (int y = 0; y < 250; ++y)
        for (int x = 0; x < 302; ++x)
            for (int c = 0; c < 3; ++c)
                differentPixels += channel(one, x, y, c) != channel(reference, x, y, c);
    cairo_surface_destroy(reference);
    EXPECT_EQ(differentPixels, 0);

    // Every 2 × 2 block of the picture at 2, averaged, against the pixel at 1: the same layout, colours and
    // text, off only by what finer drawing changes at edges.
    double difference = 0.0;
    int blocksWithDetail = 0;
    for (int y = 0; y < 250; ++y)
        for (int x = 0; x < 302; ++x)
        {
            bool uniform = true;
            for (int c = 0; c < 3; ++c)
            {
                const int a = channel(two, 2 * x, 2 * y, c), b = channel(two, 2 * x + 1, 2 * y, c),
                          d = channel(two, 2 * x, 2 * y + 1, c), e = channel(two, 2 * x + 1, 2 * y + 1, c);
                difference += std::fabs((a + b + d + e) / 4.0 - channel(one, x, y, c));
                uniform = uniform && a == b && a == d && a == e;
            }
            blocksWithDetail += !uniform;
        }
    const double meanDifference = difference / (302.0 * 250.0 * 3.0);
    RecordProperty("meanDifferenceOfTheReducedPicture", std::to_string(meanDifference));
    RecordProperty("blocksWithDetail", std::to_string(blocksWithDetail));
    EXPECT_LT(meanDifference, 4.0) << "the picture at 2, reduced, is not the picture at 1";
    // The picture at 1 enlarged has not one 2 × 2 block with detail inside it: each is one pixel of it. Drawn
    // at 2, edges, text and lines fall inside blocks all over the editor.
    EXPECT_GT(blocksWithDetail, 302 * 250 / 20) << "the picture at 2 looks like the picture at 1 enlarged";
    cairo_surface_destroy(one);
    cairo_surface_destroy(two);
}

TEST_F(EditorScale, TheZoomChosenFromThePanelsMenuResizesTheEditorAndIsKeptForEveryInstance)
{
    // Preferences of the test's own, so that the choice reaches no other test.
    const std::string saved = std::getenv("XDG_CONFIG_HOME") ? std::getenv("XDG_CONFIG_HOME") : "";
    char folder[] = "/tmp/spatara-zoom-XXXXXX";
    ASSERT_NE(mkdtemp(folder), nullptr);
    setenv("XDG_CONFIG_HOME", folder, 1);
    const std::string preferences = std::string(folder) + "/zev-spatara/preferences";
    auto preferencesText = [&]
    {
        std::ifstream in(preferences);
        return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    };
    // The menu opens below the pointer; its entries are 12 units high. Entry 3 is "200 %", entry 6
    // "Follow the desktop". A right click on the plain panel between the sliders and the buttons opens it.
    auto choose = [](double scale, int entry)
    {
        const auto at = [scale](double units) { return std::to_string(std::lround(units * scale)); };
        return X11TestWindow::xdotool("mousemove " + at(150) + " " + at(140) + " click 3") &&
               X11TestWindow::xdotool("mousemove " + at(170) + " " + at(140 + 1 + 12 * entry + 6) +
                                      " click 1");
    };
    hostResizes = true;
    {
        X11TestWindow parent(604, 500);
        ASSERT_TRUE(parent.isOpen());
        auto host = load();
        ASSERT_TRUE(host);
        ASSERT_TRUE(host->openEditor(parent.getWindow()));
        ASSERT_TRUE(host->idleEditorUntil([&] { return shown(parent, 302, 250); }));
        host->idleEditorFor(100ms);
        // Once opened and shown alone, for the manual's picture of it.
        ASSERT_TRUE(X11TestWindow::xdotool("mousemove 150 140 click 3"));
        host->idleEditorFor(150ms);
        cairo_surface_t* menu = screenshot(parent, "editor-zoom-menu.png");
        ASSERT_NE(menu, nullptr);
        cairo_surface_destroy(menu);
        ASSERT_TRUE(X11TestWindow::xdotool("key Escape"));
        host->idleEditorFor(100ms);
        ASSERT_TRUE(choose(1.0, 3));
        EXPECT_TRUE(host->idleEditorUntil([&] { return shown(parent, 604, 500); }));
        EXPECT_EQ(askedSize, (std::pair<VstInt32, VstInt32>{604, 500}));
        host->closeEditor();
    }
    EXPECT_NE(preferencesText().find("EditorZoom = \"2\""), std::string::npos) << preferencesText();

    // A new instance opens at the user's zoom, whatever its host asks for.
    {
        X11TestWindow parent(604, 500);
        auto host = load();
        ASSERT_TRUE(host);
        EXPECT_EQ(requestScale(*host, 1.5f), 1);
        EXPECT_EQ(rectangleOf(*host), kAtTwo);
        ASSERT_TRUE(host->openEditor(parent.getWindow()));
        ASSERT_TRUE(host->idleEditorUntil([&] { return shown(parent, 604, 500); }));
        host->idleEditorFor(100ms);
        // Following the desktop again, the host's word counts.
        ASSERT_TRUE(choose(2.0, 6));
        EXPECT_TRUE(host->idleEditorUntil([&] { return shown(parent, 453, 375); }));
        host->closeEditor();
    }
    EXPECT_EQ(preferencesText().find("EditorZoom"), std::string::npos) << preferencesText();
    std::filesystem::remove_all(folder);
    if (saved.empty())
        unsetenv("XDG_CONFIG_HOME");
    else
        setenv("XDG_CONFIG_HOME", saved.c_str(), 1);
}
