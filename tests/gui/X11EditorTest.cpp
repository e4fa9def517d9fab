// The editor in a real X11 window (run under Xvfb by run-with-xvfb.sh): embedding, clicks, screenshot,
// close and reopen.
#include "CBitmap.h"
#include "CFrame.h"
#include "CNewFileSelector.h"
#include "CPathEntryView.h"
#include "HostRecorder.h"
#include "ProbeView.h"
#include "TestEditor.h"
#include "TestEffect.h"
#include "TestSurface.h"
#include "VstTestHost.h"
#include "X11TestWindow.h"

#include <gtest/gtest.h>

#include <cairo.h>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <thread>

namespace
{
struct X11EditorTest : ::testing::Test
{
    X11EditorTest()
        : parent(302, 250), effect(new TestEffect(HostRecorder::callback)), host(effect->getAeffect())
    {
        HostRecorder::clear();
    }

    void SetUp() override { ASSERT_TRUE(parent.isOpen()) << "no X display"; }

    bool idleUntil(const std::function<bool()>& done,
                   std::chrono::milliseconds limit = std::chrono::seconds(3))
    {
        return host.idleEditorUntil(done, limit);
    }
    void idleFor(std::chrono::milliseconds time) { host.idleEditorFor(time); }
    bool editorShown()
    {
        const auto children = parent.children();
        return children.size() == 1 && children[0].mapped;
    }

    X11TestWindow parent;
    TestEffect* effect;
    VstTestHost host;
};
} // namespace

TEST_F(X11EditorTest, EditorOpensInsideTheParentAtExactlyItsRectangle)
{
    const ERect* rect = host.getEditorRect();
    ASSERT_NE(rect, nullptr);
    EXPECT_EQ(rect->right - rect->left, 302);
    EXPECT_EQ(rect->bottom - rect->top, 250);
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    const double openMs =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    const auto child = parent.children().at(0);
    EXPECT_EQ(child.x, 0);
    EXPECT_EQ(child.y, 0);
    EXPECT_EQ(child.width, 302);
    EXPECT_EQ(child.height, 250);
    RecordProperty("openMilliseconds", std::to_string(openMs));
    host.closeEditor();
}

TEST_F(X11EditorTest, ClickOnTheButtonSetsItsParameterThroughTheHost)
{
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    idleFor(std::chrono::milliseconds(100));
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove 80 160 click 1"));
    EXPECT_TRUE(idleUntil([&] { return effect->getParameter(1) == 1.0f; }));
    const auto opcodes = HostRecorder::opcodes();
    // An on/off button sends one automated change, no edit gesture.
    EXPECT_EQ(opcodes, (std::vector<VstInt32>{audioMasterAutomate}));
    host.closeEditor();
}

TEST_F(X11EditorTest, SliderDragIsOneGestureForTheHost)
{
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    idleFor(std::chrono::milliseconds(100));
    const int y = TestEditor::kSliderTop + 8;
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove 70 " + std::to_string(y) + " mousedown 1 mousemove 100 " +
                                       std::to_string(y) + " mousemove 151 " + std::to_string(y) +
                                       " mouseup 1"));
    EXPECT_TRUE(idleUntil(
        [&]
        {
            return !HostRecorder::requests().empty() &&
                   HostRecorder::requests().back().opcode == audioMasterEndEdit;
        }));
    EXPECT_NEAR(effect->getParameter(0), 0.5f, 1e-6);
    const auto opcodes = HostRecorder::opcodes();
    ASSERT_GE(opcodes.size(), 3u);
    EXPECT_EQ(opcodes.front(), audioMasterBeginEdit);
    EXPECT_EQ(opcodes.back(), audioMasterEndEdit);
    for (size_t i = 1; i + 1 < opcodes.size(); ++i)
        EXPECT_EQ(opcodes[i], audioMasterAutomate);
    host.closeEditor();
}

TEST_F(X11EditorTest, WheelOverTheSliderMovesIt)
{
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    idleFor(std::chrono::milliseconds(100));
    // Button 4 is the wheel turned up.
    ASSERT_TRUE(
        X11TestWindow::xdotool("mousemove 150 " + std::to_string(TestEditor::kSliderTop + 8) + " click 4"));
    EXPECT_TRUE(idleUntil([&] { return effect->getParameter(0) > 0.0f; }));
    EXPECT_NEAR(effect->getParameter(0), 0.1f, 1e-6);
    host.closeEditor();
}

TEST_F(X11EditorTest, ScreenshotShowsTheBackgroundAndTheControls)
{
    effect->setParameter(0, 0.75f);
    effect->setParameter(1, 1.0f);
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    idleFor(std::chrono::milliseconds(300));
    const std::string path = (std::filesystem::current_path() / "editor-screenshot.png").string();
    ASSERT_TRUE(parent.screenshot(path));
    host.closeEditor();

    cairo_surface_t* shot = cairo_image_surface_create_from_png(path.c_str());
    ASSERT_EQ(cairo_surface_status(shot), CAIRO_STATUS_SUCCESS);
    EXPECT_EQ(cairo_image_surface_get_width(shot), 302);
    EXPECT_EQ(cairo_image_surface_get_height(shot), 250);
    auto* background = new CBitmap(128);
    auto* button = new CBitmap(137);
    // The wordmark area is pure background; the "on" button shows the lower half of its bitmap.
    for (const auto& [x, y] : {std::pair{150, 195}, std::pair{5, 100}, std::pair{290, 240}})
        EXPECT_EQ(TestSurface::pixelOf(shot, x, y), TestSurface::pixelOf(background->getSurface(), x, y))
            << "at " << x << "," << y;
    EXPECT_EQ(TestSurface::pixelOf(shot, TestEditor::kButtonLeft + 7, TestEditor::kButtonTop + 9),
              TestSurface::pixelOf(button->getSurface(), 7, 18 + 9));
    background->forget();
    button->forget();
    cairo_surface_destroy(shot);
}

TEST_F(X11EditorTest, ClosesAndReopensFiveTimesLeavingNothingBehind)
{
    auto countFds = []
    {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator{});
    };
    // The first open loads fonts and caches once; count from after it.
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    host.closeEditor();
    const auto fdsBefore = countFds();
    for (int round = 0; round < 5; ++round)
    {
        ASSERT_TRUE(host.openEditor(parent.getWindow())) << "round " << round;
        ASSERT_TRUE(idleUntil([&] { return editorShown(); })) << "round " << round;
        idleFor(std::chrono::milliseconds(30));
        host.closeEditor();
        EXPECT_TRUE(parent.children().empty()) << "round " << round;
    }
    EXPECT_EQ(countFds(), fdsBefore);
    auto* editor = static_cast<TestEditor*>(effect->getEditor());
    EXPECT_EQ(editor->getOpenCount(), 6);
}

TEST_F(X11EditorTest, TypedTextReachesTheFocusViewAfterAClick)
{
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    CFrame* frame = effect->getEditor() ? static_cast<TestEditor*>(effect->getEditor())->getFrame() : nullptr;
    ASSERT_NE(frame, nullptr);
    auto* entry = new CPathEntryView(frame->getViewSize(), "Name", "");
    entry->remember();
    ASSERT_TRUE(frame->setModalView(entry));
    idleFor(std::chrono::milliseconds(100));
    // The click gives the entry the keyboard (the window asks X for the focus); then keys arrive as text.
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove 150 125 click 1"));
    idleFor(std::chrono::milliseconds(100));
    EXPECT_EQ(frame->getFocusView(), entry);
    ASSERT_TRUE(X11TestWindow::xdotool("type --delay 20 'Ab/c'"));
    ASSERT_TRUE(X11TestWindow::xdotool("key Return"));
    EXPECT_TRUE(idleUntil([&] { return entry->isFinished(); }));
    EXPECT_STREQ(entry->getText(), "Ab/c");
    EXPECT_TRUE(entry->isConfirmed());
    host.closeEditor();
    entry->forget();
}

TEST_F(X11EditorTest, PointerCrossingsMoveTheHover)
{
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    CFrame* frame = static_cast<TestEditor*>(effect->getEditor())->getFrame();
    auto* probe = new ProbeView(CRect(250, 150, 300, 200), kRedCColor);
    frame->addView(probe);
    idleFor(std::chrono::milliseconds(50));
    auto crossings = [probe]
    {
        std::vector<std::string> result;
        for (const auto& event : probe->events)
            if (event != "moved") result.push_back(event);
        return result;
    };
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove 270 170"));
    EXPECT_TRUE(idleUntil([&] { return !crossings().empty(); }));
    // Leaving the window (no motion inside it on the way) still ends the hover.
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove 500 400"));
    EXPECT_TRUE(idleUntil([&] { return crossings().size() >= 2; }));
    EXPECT_EQ(crossings(), (std::vector<std::string>{"entered", "exited"}));
    host.closeEditor();
}

TEST_F(X11EditorTest, SavingWithoutADialogProgramAsksForThePathInTheFrame)
{
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    CFrame* frame = static_cast<TestEditor*>(effect->getEditor())->getFrame();
    const std::string oldPath = std::getenv("PATH");
    // The user types while the selector waits; xdotool runs in the background, found before PATH is emptied.
    ASSERT_EQ(
        std::system(
            "(sleep 0.5; xdotool mousemove 150 125 click 1; sleep 0.2; "
            "xdotool key BackSpace BackSpace BackSpace BackSpace BackSpace; xdotool type --delay 20 'b.zev'; "
            "xdotool key Return) &"),
        0);
    setenv("PATH", "/nonexistent", 1);
    CNewFileSelector* selector = CNewFileSelector::create(frame, CNewFileSelector::kSelectSaveFile);
    selector->setTitle("Save Preset");
    selector->setInitialDirectory("/tmp");
    selector->setDefaultSaveName("a.zev");
    const bool chosen = selector->runModal();
    setenv("PATH", oldPath.c_str(), 1);
    EXPECT_TRUE(chosen);
    EXPECT_EQ(selector->getLastRoute(), CNewFileSelector::Route::pathEntry);
    ASSERT_EQ(selector->getNumSelectedFiles(), 1);
    EXPECT_STREQ(selector->getSelectedFile(0), "/tmp/b.zev");
    EXPECT_EQ(frame->getModalView(), nullptr);
    selector->forget();
    host.closeEditor();
}

TEST_F(X11EditorTest, OpeningWithoutADialogProgramUsesTheBuiltInBrowser)
{
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(idleUntil([&] { return editorShown(); }));
    CFrame* frame = static_cast<TestEditor*>(effect->getEditor())->getFrame();
    const std::string oldPath = std::getenv("PATH");
    // The browser is a window of its own titled as asked (its id goes to a file); Escape cancels it.
    const std::string found = (std::filesystem::current_path() / "browser-window-id").string();
    std::filesystem::remove(found);
    ASSERT_EQ(
        std::system(("(timeout 10 xdotool search --sync --name 'Open Test Preset' > '" + found +
                     "'; xdotool windowfocus --sync $(cat '" + found + "') key Escape) >/dev/null 2>&1 &")
                        .c_str()),
        0);
    setenv("PATH", "/nonexistent", 1);
    CNewFileSelector* selector = CNewFileSelector::create(frame, CNewFileSelector::kSelectFile);
    selector->setTitle("Open Test Preset");
    selector->setInitialDirectory("/tmp");
    const bool chosen = selector->runModal();
    setenv("PATH", oldPath.c_str(), 1);
    EXPECT_FALSE(chosen);
    EXPECT_EQ(selector->getLastRoute(), CNewFileSelector::Route::builtInBrowser);
    EXPECT_EQ(selector->getNumSelectedFiles(), 0);
    EXPECT_GT(std::filesystem::file_size(found), 0u) << "the browser window never appeared";
    selector->forget();
    host.closeEditor();
}

TEST_F(X11EditorTest, ParentThatDoesNotExistLeavesTheHostRunning)
{
    // Xlib's own error handler would end the process: the editor opens unseen instead.
    ASSERT_TRUE(host.openEditor(0x1234));
    CFrame* frame = static_cast<TestEditor*>(effect->getEditor())->getFrame();
    ASSERT_NE(frame, nullptr);
    EXPECT_EQ(frame->getPlatformWindow(), nullptr);
    idleFor(std::chrono::milliseconds(30));
    host.closeEditor();
    EXPECT_TRUE(parent.children().empty());
}

TEST_F(X11EditorTest, TwoEditorsLiveSideBySide)
{
    X11TestWindow secondParent(302, 250);
    VstTestHost secondHost((new TestEffect(HostRecorder::callback))->getAeffect());
    ASSERT_TRUE(host.openEditor(parent.getWindow()));
    ASSERT_TRUE(secondHost.openEditor(secondParent.getWindow()));
    ASSERT_TRUE(idleUntil(
        [&]
        {
            secondHost.idleEditor();
            const auto second = secondParent.children();
            return editorShown() && second.size() == 1 && second[0].mapped;
        }));
    // The first closes; the second keeps working.
    host.closeEditor();
    EXPECT_TRUE(parent.children().empty());
    secondHost.idleEditor();
    EXPECT_EQ(secondParent.children().size(), 1u);
    secondHost.closeEditor();
    EXPECT_TRUE(secondParent.children().empty());
}
