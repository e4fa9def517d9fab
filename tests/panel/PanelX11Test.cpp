// The preset panel of the real plug-in (the built Spatara.so, loaded as a host loads it) in a real X11
// window (run under Xvfb by run-with-xvfb.sh), driven as a user drives it: real pointer clicks and key
// presses through xdotool, the desktop's real file dialog (zenity) driven the same way, and everything
// checked through the plug-in's VST 2.4 interface as a host sees it. The tests of the steps, the name and the
// list also run at scale 2, asked for by the host, where every point is twice as far.
#include "COptionMenuPopup.h"
#include "HostRecorder.h"
#include "TestSurface.h"
#include "VstTestHost.h"
#include "X11TestWindow.h"

#include <gtest/gtest.h>

#include <cairo.h>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace
{
using namespace std::chrono_literals;

constexpr VstInt32 kScaleRequest = ('P' << 24) | ('r' << 16) | ('e' << 8) | 'S';
constexpr VstIntPtr kScaleRequestValue = ('A' << 24) | ('e' << 16) | ('C' << 8) | 's';

// Panel points (the editor's units, its pixels at scale 1; the parent window sits at the screen's top-left
// corner).
constexpr const char* kNext = "245 229";
constexpr const char* kPrevious = "225 229";
constexpr const char* kName = "140 230";
constexpr const char* kList = "212 229";
constexpr const char* kSavePreset = "14 222";
constexpr const char* kLoadPreset = "77 222";
constexpr const char* kDefaultBank = "45 237";
constexpr const char* kManual = "270 194";

std::string makeTempDir()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "spatara-panel-XXXXXX").string();
    return mkdtemp(pattern.data());
}

struct PanelX11 : ::testing::Test
{
    explicit PanelX11(double scale = 1.0)
        : scale(scale),
          parent(static_cast<int>(std::lround(302 * scale)), static_cast<int>(std::lround(250 * scale)))
    {
    }

    void SetUp() override
    {
        ASSERT_TRUE(parent.isOpen()) << "no X display";
        // Each test starts without defaults, memories or remembered folders.
        setenv("XDG_CONFIG_HOME", (files + "/config").c_str(), 1);
        HostRecorder::clear();
        host = makeHost();
        ASSERT_NE(host, nullptr);
        ASSERT_TRUE(host->hasEditor());
        if (scale != 1.0)
            ASSERT_EQ(host->dispatch(effVendorSpecific, kScaleRequest, kScaleRequestValue, nullptr,
                                     static_cast<float>(scale)),
                      1);
        ASSERT_TRUE(host->openEditor(parent.getWindow()));
        ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    }
    void TearDown() override
    {
        if (host) host->closeEditor();
        host.reset();
        std::filesystem::remove_all(files);
    }

    // A new instance of the plug-in, as a host makes one.
    static std::unique_ptr<VstTestHost> makeHost()
    {
        std::string error;
        auto loaded = VstTestHost::load(SPATARA_PLUGIN_PATH, HostRecorder::callback, error);
        EXPECT_NE(loaded, nullptr) << error;
        return loaded;
    }

    bool idleUntil(const std::function<bool()>& done,
                   std::chrono::milliseconds limit = std::chrono::seconds(3))
    {
        return host->idleEditorUntil(done, limit);
    }
    void idleFor(std::chrono::milliseconds time) { host->idleEditorFor(time); }
    bool editorShown()
    {
        const auto children = parent.children();
        return children.size() == 1 && children[0].mapped;
    }
    // An editor point ("x y" in its units) on the screen.
    std::string onScreen(const std::string& point) const
    {
        const auto blank = point.find(' ');
        const auto scaled = [this](const std::string& units)
        { return std::to_string(std::lround(std::stod(units) * scale)); };
        return scaled(point.substr(0, blank)) + " " + scaled(point.substr(blank + 1));
    }
    // A click at an editor point, then time for the editor to take it.
    void click(const std::string& point, const std::string& how = "click 1")
    {
        ASSERT_TRUE(X11TestWindow::xdotool("mousemove " + onScreen(point) + " " + how));
        idleFor(150ms);
    }
    void keys(const std::string& arguments)
    {
        ASSERT_TRUE(X11TestWindow::xdotool(arguments));
        idleFor(150ms);
    }
    std::string programName()
    {
        char name[64] = {};
        host->dispatch(effGetProgramName, 0, 0, name);
        return name;
    }
    // The program name once it reads expected, or after the time a loaded machine may need to deliver the
    // clicks and keys to the editor: the X server runs in a process of its own.
    std::string programNameAwaiting(const std::string& expected)
    {
        idleUntil([&] { return programName() == expected; });
        return programName();
    }
    float parameter(int index) { return host->getEffect()->getParameter(host->getEffect(), index); }
    // Runs a shell line in the background: it drives a dialog while the editor waits for it.
    static void inBackground(const std::string& line)
    {
        ASSERT_EQ(std::system(("(" + line + ") >/dev/null 2>&1 &").c_str()), 0);
    }
    // Waits for a window of this title and types into it.
    static std::string typeIntoWindow(const std::string& title, const std::string& what)
    {
        return "id=$(timeout 10 xdotool search --sync --name '" + title + "' | head -1); sleep 0.5; " +
               "xdotool windowfocus --sync $id key ctrl+a; xdotool type --delay 20 '" + what +
               "'; sleep 0.3; xdotool key Return";
    }

    double scale;
    X11TestWindow parent;
    std::unique_ptr<VstTestHost> host;
    std::string files = makeTempDir();
};

struct PanelX11AtScale : PanelX11, ::testing::WithParamInterface<double>
{
    PanelX11AtScale() : PanelX11(GetParam()) {}
};
INSTANTIATE_TEST_SUITE_P(ScaleOneAndTwo, PanelX11AtScale, ::testing::Values(1.0, 2.0));
} // namespace

TEST_P(PanelX11AtScale, NextNextPreviousLandsOnEnhancedMix1WithItsValuesInTheEffect)
{
    EXPECT_EQ(programNameAwaiting("init"), "init");
    click(kNext);
    click(kNext);
    EXPECT_EQ(programNameAwaiting("enhanced mix 2"), "enhanced mix 2");
    click(kPrevious);
    EXPECT_EQ(programNameAwaiting("enhanced mix 1"), "enhanced mix 1");
    const float values[] = {0.5f, 0.25f, 0.0f, 1.0f, 0.0f, 0.0f};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(parameter(i), values[i]) << i;
}

TEST_P(PanelX11AtScale, ClickingTheNameTypingAndReturnRenamesThePresetInTheHost)
{
    click(kName);
    keys("key --delay 10 --repeat 6 BackSpace");
    keys("type --delay 20 'my kit 2'");
    keys("key Return");
    EXPECT_EQ(programNameAwaiting("my kit 2"), "my kit 2");
}

TEST_F(PanelX11, EscapeLeavesTheName)
{
    click(kName);
    keys("type --delay 20 'zz'");
    keys("key Escape");
    EXPECT_EQ(programNameAwaiting("init"), "init");
    // The keyboard is free again: a second edit starts from the unchanged name.
    click(kName);
    keys("type --delay 20 'x'");
    keys("key Return");
    EXPECT_EQ(programNameAwaiting("initx"), "initx");
}

TEST_F(PanelX11, SuperSConfirmsTheNameAsOneEditOfTag1000)
{
    click(kName);
    keys("type --delay 20 'x'");
    HostRecorder::clear();
    keys("key super+s");
    EXPECT_EQ(programNameAwaiting("initx"), "initx");
    std::vector<std::pair<VstInt32, VstInt32>> edits;
    for (const auto& request : HostRecorder::requests())
        if (request.opcode == audioMasterBeginEdit || request.opcode == audioMasterEndEdit)
            edits.emplace_back(request.opcode, request.index);
    EXPECT_EQ(edits, (std::vector<std::pair<VstInt32, VstInt32>>{{audioMasterBeginEdit, 1000},
                                                                 {audioMasterEndEdit, 1000}}));
    // The keyboard is free again: a second edit starts from the confirmed name.
    click(kName);
    keys("type --delay 20 'y'");
    keys("key Return");
    EXPECT_EQ(programNameAwaiting("initxy"), "initxy");
}

TEST_F(PanelX11, ClickingElsewhereConfirmsTheTypedName)
{
    click(kName);
    keys("type --delay 20 ' b'");
    click("20 200"); // an empty spot left of the logo
    EXPECT_EQ(programNameAwaiting("init b"), "init b");
}

TEST_P(PanelX11AtScale, ChoosingAnEntryInTheOpenListSelectsThatPreset)
{
    click(kList);
    // The list fills the frame's width at its foot: three columns of sixteen rows of 12 pixels.
    const double top = 250 - (16 * COptionMenuPopup::kRowHeight + 2);
    const int y = static_cast<int>(top + 1 + 3 * COptionMenuPopup::kRowHeight + 6);
    click("20 " + std::to_string(y));
    EXPECT_EQ(programNameAwaiting("enhanced mix 3"), "enhanced mix 3");
    EXPECT_EQ(parameter(0), 0.6f);
}

TEST_F(PanelX11, TheOpenListTakesTheKeyboard)
{
    click(kList);
    keys("key --delay 20 Down Down Return");
    EXPECT_EQ(programNameAwaiting("enhanced mix 2"), "enhanced mix 2");

    click(kList);
    keys("key --delay 20 Down Escape");
    EXPECT_EQ(programNameAwaiting("enhanced mix 2"), "enhanced mix 2")
        << "Escape closes the list without choosing";
    click(kNext); // with the list closed the click reaches the step button
    EXPECT_EQ(programNameAwaiting("enhanced mix 3"), "enhanced mix 3");
}

TEST_F(PanelX11, ScreenshotsOfTheListOpenAndOfTheNameBeingEdited)
{
    click(kList);
    EXPECT_TRUE(parent.screenshot("preset-panel-list.png"));
    click("150 30"); // above the list: closes it without choosing
    EXPECT_EQ(programNameAwaiting("init"), "init");
    click(kName);
    keys("type --delay 20 ' edit'");
    idleFor(300ms);
    EXPECT_TRUE(parent.screenshot("preset-panel-name-editing.png"));
    keys("key Return");
    EXPECT_EQ(programNameAwaiting("init edit"), "init edit");
    EXPECT_TRUE(std::filesystem::file_size("preset-panel-list.png") > 1000);
    EXPECT_TRUE(std::filesystem::file_size("preset-panel-name-editing.png") > 1000);
}

TEST_F(PanelX11, PresetSavedThroughTheDesktopDialogLoadsBackThroughIt)
{
    if (std::system("command -v zenity >/dev/null") != 0) GTEST_SKIP() << "zenity is not installed";
    const std::string file = files + "/mix.zev";
    click(kNext); // enhanced mix 1
    inBackground(typeIntoWindow("Save preset", file));
    click(kSavePreset);
    ASSERT_TRUE(idleUntil([&] { return std::filesystem::exists(file); }, 15s));
    click(kNext);
    click(kNext);
    EXPECT_EQ(programNameAwaiting("enhanced mix 3"), "enhanced mix 3");
    inBackground(typeIntoWindow("Load preset", file));
    click(kLoadPreset);
    ASSERT_TRUE(idleUntil([&] { return programName() == "enhanced mix 1"; }, 15s));
    EXPECT_EQ(parameter(1), 0.25f);
}

TEST_F(PanelX11, LoadingAHugeSparseFileOrAFifoKeepsTheHostRunningAndThePreset)
{
    // This plug-in's identifier and the preset type, then a hole of a tebibyte.
    const std::string huge = files + "/huge.zev";
    std::ofstream(huge, std::ios::binary) << "nswQ\x22";
    ASSERT_EQ(::truncate(huge.c_str(), off_t{1} << 40), 0);
    const std::string fifo = files + "/pipe.zev";
    ASSERT_EQ(::mkfifo(fifo.c_str(), 0600), 0);
    std::filesystem::create_directory(files + "/bin");
    const std::string oldPath = std::getenv("PATH");
    setenv("PATH", (files + "/bin:" + oldPath).c_str(), 1);
    click(kNext);
    for (const std::string& chosen : {huge, fifo})
    {
        // The desktop's dialog answers with the file at once.
        std::ofstream(files + "/bin/zenity") << "#!/bin/sh\necho '" << chosen << "'\n";
        ::chmod((files + "/bin/zenity").c_str(), 0755);
        click(kLoadPreset);
        idleFor(300ms);
        EXPECT_EQ(programNameAwaiting("enhanced mix 1"), "enhanced mix 1") << chosen;
        EXPECT_TRUE(editorShown()) << chosen;
    }
    setenv("PATH", oldPath.c_str(), 1);
}

TEST_F(PanelX11, WithoutADialogProgramTheFrameAsksBeforeTheAddedExtensionReplacesAFile)
{
    const std::string file = files + "/mine.zev";
    std::ofstream(file) << "keep me";
    // Nothing on PATH but the tool that drives the pointer and the keys: no desktop dialog program.
    const std::string tools = files + "/tools";
    std::filesystem::create_directory(tools);
    std::filesystem::create_symlink("/usr/bin/xdotool", tools + "/xdotool");
    const std::string oldPath = std::getenv("PATH");
    // Types the name without its extension into the frame's save entry, then answers the question.
    auto saveAnswering = [&](const std::string& answer)
    {
        inBackground("sleep 1; xdotool mousemove 150 125 click 1 type --delay 20 '" + files +
                     "/mine'; xdotool key Return; sleep 1; xdotool mousemove 150 125 click 1 key " + answer);
        setenv("PATH", tools.c_str(), 1);
        click(kSavePreset);
        setenv("PATH", oldPath.c_str(), 1);
    };
    saveAnswering("Escape");
    std::ifstream kept(file);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), "keep me") << "Escape keeps the file";
    saveAnswering("Return");
    EXPECT_EQ(std::filesystem::file_size(file), 401u) << "Return replaces it";
}

TEST_F(PanelX11, DoubleClickOnTheDefaultBankButtonStartsANewInstanceWithThatBank)
{
    click(kName);
    keys("key --delay 10 --repeat 6 BackSpace");
    keys("type --delay 20 'my default'");
    keys("key Return");
    click(kDefaultBank); // a single click keeps the factory bank as the default
    {
        auto second = makeHost();
        char name[64] = {};
        second->dispatch(effGetProgramName, 0, 0, name);
        EXPECT_STREQ(name, "init");
    }
    idleFor(400ms);
    click(kDefaultBank, "click --repeat 2 --delay 80 1");
    {
        auto second = makeHost();
        char name[64] = {};
        second->dispatch(effGetProgramName, 0, 0, name);
        EXPECT_STREQ(name, "my default");
    }
    idleFor(400ms);
    // Control and a double-click remove it again.
    ASSERT_TRUE(X11TestWindow::xdotool(std::string("mousemove ") + kDefaultBank +
                                       " keydown ctrl click --repeat 2 --delay 80 1 keyup ctrl"));
    idleFor(150ms);
    auto third = makeHost();
    char name[64] = {};
    third->dispatch(effGetProgramName, 0, 0, name);
    EXPECT_STREQ(name, "init");
}

TEST_F(PanelX11, ManualThatCannotBeOpenedShowsTheAlertInTheEditorUntilOK)
{
    setenv("XDG_DATA_HOME", (files + "/data").c_str(), 1);
    setenv("XDG_DATA_DIRS", (files + "/system").c_str(), 1);
    // The alert box's OK button sits in the middle of the editor, below the two lines of the message.
    inBackground("sleep 1; import -window root -crop 302x250+0+0 +repage preset-panel-alert.png; "
                 "xdotool mousemove 151 146 click 1");
    const auto start = std::chrono::steady_clock::now();
    click(kManual);
    EXPECT_GT(std::chrono::steady_clock::now() - start, 900ms) << "the alert did not wait for OK";
    // The editor works on after OK.
    click(kNext);
    EXPECT_EQ(programNameAwaiting("enhanced mix 1"), "enhanced mix 1");
}

TEST_F(PanelX11, WithTwoInstancesOpenTheManualAlertShowsInTheEditorThatRaisedIt)
{
    setenv("XDG_DATA_HOME", (files + "/data").c_str(), 1);
    setenv("XDG_DATA_DIRS", (files + "/system").c_str(), 1);
    const std::string oldHome = std::getenv("HOME");
    setenv("HOME", files.c_str(), 1);
    // A second instance, its editor opened after the first one's, in a window to the right of it.
    X11TestWindow secondParent(302, 250, 320, 0);
    auto second = makeHost();
    ASSERT_TRUE(second->openEditor(secondParent.getWindow()));
    ASSERT_TRUE(second->idleEditorUntil(
        [&]
        {
            const auto children = secondParent.children();
            return children.size() == 1 && children[0].mapped;
        },
        std::chrono::seconds(3)));
    // While the alert is up: a screenshot of both windows, then OK in the first one. Should the alert be
    // in the second window, its OK is clicked a little later so that the test ends either way.
    const std::string shot = files + "/both.png";
    inBackground("sleep 1; import -window root -crop 622x250+0+0 +repage '" + shot +
                 "'; xdotool mousemove 151 146 click 1; sleep 2; xdotool mousemove 471 146 click 1");
    click(kManual);
    setenv("HOME", oldHome.c_str(), 1);
    auto* image = cairo_image_surface_create_from_png(shot.c_str());
    ASSERT_EQ(cairo_surface_status(image), CAIRO_STATUS_SUCCESS);
    // The alert box's face, above its first line of text.
    const CColor box = MakeCColor(189, 207, 218);
    EXPECT_EQ(TestSurface::pixelOf(image, 16, 88), box) << "no alert in the first editor";
    EXPECT_NE(TestSurface::pixelOf(image, 320 + 16, 88), box) << "the alert showed in the second editor";
    cairo_surface_destroy(image);
    // Both editors work on.
    click(kNext);
    EXPECT_EQ(programNameAwaiting("enhanced mix 1"), "enhanced mix 1");
    second->closeEditor();
}
