// The real plug-in's editor in a real X11 window (under Xvfb): its place, clicks and drags reaching the host,
// host changes and the balance meter on screen, the about screen, and close / reopen. The tests that click
// and drag run at scale 1 and at scale 2 (asked for by the host), where every coordinate is twice as far.
#include "CBitmap.h"
#include "HostRecorder.h"
#include "TestSurface.h"
#include "VstTestHost.h"
#include "X11TestWindow.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cairo.h>
#include <chrono>
#include <cmath>
#include <filesystem>
#include <functional>
#include <thread>

namespace
{
using namespace std::chrono_literals;

constexpr VstInt32 kMeterRequest = ('Z' << 24) | ('v' << 16) | ('M' << 8) | 't';
constexpr VstInt32 kScaleRequest = ('P' << 24) | ('r' << 16) | ('e' << 8) | 'S';
constexpr VstIntPtr kScaleRequestValue = ('A' << 24) | ('e' << 16) | ('C' << 8) | 's';

// A screenshot of the editor, read back as an image.
class Screenshot
{
  public:
    explicit Screenshot(X11TestWindow& parent)
    {
        const std::string path = (std::filesystem::current_path() / "spatara-editor.png").string();
        if (parent.screenshot(path)) image = cairo_image_surface_create_from_png(path.c_str());
    }
    ~Screenshot()
    {
        if (image) cairo_surface_destroy(image);
    }
    Screenshot(const Screenshot&) = delete;
    Screenshot& operator=(const Screenshot&) = delete;

    bool ok() const { return image && cairo_surface_status(image) == CAIRO_STATUS_SUCCESS; }
    CColor pixel(int x, int y) const { return TestSurface::pixelOf(image, x, y); }

  private:
    cairo_surface_t* image = nullptr;
};

// A pixel of the bitmap as drawn for a window of that scale, at (x, y) in the bitmap's units.
CColor pixelOfBitmap(int resource, int x, int y, double scale = 1.0)
{
    auto* bitmap = new CBitmap(resource);
    const CColor color =
        TestSurface::pixelOf(bitmap->getSurface(scale), static_cast<int>(std::lround(x * scale)),
                             static_cast<int>(std::lround(y * scale)));
    bitmap->forget();
    return color;
}

struct SpataraEditorX11Test : ::testing::Test
{
    void SetUp() override
    {
        HostRecorder::clear();
        ASSERT_TRUE(parent.isOpen()) << "no X display";
        std::string error;
        host = VstTestHost::load(SPATARA_PLUGIN_PATH, HostRecorder::callback, error);
        ASSERT_NE(host, nullptr) << error;
        ASSERT_TRUE(host->hasEditor());
    }
    void TearDown() override
    {
        stopAudio();
        if (host) host->closeEditor();
    }

    AEffect* effect() const { return host->getEffect(); }
    void setParameter(VstInt32 index, float value) { effect()->setParameter(effect(), index, value); }
    float getParameter(VstInt32 index) const { return effect()->getParameter(effect(), index); }

    void openEditor()
    {
        if (scale != 1.0)
            ASSERT_EQ(host->dispatch(effVendorSpecific, kScaleRequest, kScaleRequestValue, nullptr,
                                     static_cast<float>(scale)),
                      1);
        ASSERT_TRUE(host->openEditor(parent.getWindow()));
        ASSERT_TRUE(idleUntil([&] { return shown(); }));
        idleFor(150ms);
        HostRecorder::clear();
    }
    bool shown()
    {
        const auto children = parent.children();
        return children.size() == 1 && children[0].mapped;
    }
    bool idleUntil(const std::function<bool()>& done,
                   std::chrono::milliseconds limit = std::chrono::seconds(3))
    {
        return host->idleEditorUntil(done, limit);
    }
    void idleFor(std::chrono::milliseconds time) { host->idleEditorFor(time); }
    std::vector<HostRequest> automationOf(VstInt32 index)
    {
        std::vector<HostRequest> result;
        for (const auto& request : HostRecorder::requests())
            if (request.opcode == audioMasterAutomate && request.index == index) result.push_back(request);
        return result;
    }

    // Blocks of 512 frames about as fast as a sound card asks for them; right = left × rightGain.
    void startAudio(float rightGain)
    {
        host->dispatch(effMainsChanged, 0, 1);
        audioRunning = true;
        audio = std::thread(
            [this, rightGain]
            {
                std::vector<float> left(512), right(512), outLeft(512), outRight(512);
                float* inputs[] = {left.data(), right.data()};
                float* outputs[] = {outLeft.data(), outRight.data()};
                double phase = 0.0;
                while (audioRunning)
                {
                    for (size_t i = 0; i < left.size(); ++i, phase += 2.0 * M_PI * 440.0 / 44100.0)
                    {
                        left[i] = 0.5f * static_cast<float>(std::sin(phase));
                        right[i] = left[i] * rightGain;
                    }
                    effect()->processReplacing(effect(), inputs, outputs, 512);
                    std::this_thread::sleep_for(11ms);
                }
            });
    }
    void stopAudio()
    {
        if (!audio.joinable()) return;
        audioRunning = false;
        audio.join();
        host->dispatch(effMainsChanged, 0, 0);
    }
    float engineMeter()
    {
        float value = 0.0f;
        host->dispatch(effVendorSpecific, kMeterRequest, 0, &value);
        return value;
    }

    // A point of the editor (its units) on the screen, and a click there.
    std::string at(int x, int y) const
    {
        return std::to_string(std::lround(x * scale)) + " " + std::to_string(std::lround(y * scale));
    }
    bool click(int x, int y) const { return X11TestWindow::xdotool("mousemove " + at(x, y) + " click 1"); }
    CColor screenPixel(const Screenshot& shot, int x, int y) const
    {
        return shot.pixel(static_cast<int>(std::lround(x * scale)), static_cast<int>(std::lround(y * scale)));
    }

    double scale = 1.0;
    // Room for the editor at scale 2.
    X11TestWindow parent{604, 500};
    std::unique_ptr<VstTestHost> host;
    std::thread audio;
    std::atomic<bool> audioRunning{false};
};

struct SpataraEditorX11AtScale : SpataraEditorX11Test, ::testing::WithParamInterface<double>
{
    void SetUp() override
    {
        scale = GetParam();
        SpataraEditorX11Test::SetUp();
    }
};
INSTANTIATE_TEST_SUITE_P(ScaleOneAndTwo, SpataraEditorX11AtScale, ::testing::Values(1.0, 2.0));
} // namespace

TEST_F(SpataraEditorX11Test, OpensAtExactlyTheEditorRectangleAndDrawsTheBackground)
{
    const ERect* rect = host->getEditorRect();
    ASSERT_NE(rect, nullptr);
    EXPECT_EQ(rect->right - rect->left, 302);
    EXPECT_EQ(rect->bottom - rect->top, 250);
    const auto start = std::chrono::steady_clock::now();
    ASSERT_TRUE(host->openEditor(parent.getWindow()));
    RecordProperty(
        "openMilliseconds",
        std::to_string(
            std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count()));
    ASSERT_TRUE(idleUntil([&] { return shown(); }));
    const auto child = parent.children().at(0);
    EXPECT_EQ(child.x, 0);
    EXPECT_EQ(child.y, 0);
    EXPECT_EQ(child.width, 302);
    EXPECT_EQ(child.height, 250);
    idleFor(150ms);
    Screenshot shot(parent);
    ASSERT_TRUE(shot.ok());
    // Bare panel: the header, between the rows, beside the buttons.
    for (const auto& [x, y] :
         {std::pair{100, 10}, std::pair{150, 140}, std::pair{280, 160}, std::pair{36, 172}})
        EXPECT_EQ(shot.pixel(x, y), pixelOfBitmap(128, x, y)) << "at " << x << "," << y;
}

TEST_P(SpataraEditorX11AtScale, ProcessPhaseAndModeClicksReachTheHostAsSingleAutomatedChangesOfParameters3To5)
{
    setParameter(3, 0.0f);
    setParameter(4, 0.0f);
    setParameter(5, 0.0f);
    openEditor();
    ASSERT_TRUE(click(92, 160));
    EXPECT_TRUE(idleUntil([&] { return getParameter(3) == 1.0f; }));
    ASSERT_TRUE(click(212, 160));
    EXPECT_TRUE(idleUntil([&] { return getParameter(4) == 1.0f; }));
    ASSERT_TRUE(click(152, 160));
    EXPECT_TRUE(idleUntil([&] { return getParameter(5) == 0.5f; }));
    for (VstInt32 index = 3; index <= 5; ++index)
    {
        const auto automation = automationOf(index);
        ASSERT_EQ(automation.size(), 1u) << index;
        EXPECT_EQ(automation[0].opt, index == 5 ? 0.5f : 1.0f);
    }
    // Every button sends one automated change and no edit gesture around it.
    EXPECT_EQ(HostRecorder::opcodes(),
              (std::vector<VstInt32>{audioMasterAutomate, audioMasterAutomate, audioMasterAutomate}));
}

TEST_P(SpataraEditorX11AtScale, DraggingTheDepthHandleIsOneGestureForParameter0)
{
    // Depth 0 puts the handle at the left end (x 63..77).
    setParameter(0, 0.0f);
    openEditor();
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove " + at(70, 59) + " mousedown 1 mousemove " + at(92, 59) +
                                       " mousemove " + at(142, 59) + " mousemove " + at(152, 59) +
                                       " mouseup 1"));
    EXPECT_TRUE(idleUntil(
        [&]
        {
            return !HostRecorder::requests().empty() &&
                   HostRecorder::requests().back().opcode == audioMasterEndEdit;
        }));
    const auto& requests = HostRecorder::requests();
    ASSERT_GE(requests.size(), 3u);
    EXPECT_EQ(requests.front().opcode, audioMasterBeginEdit);
    EXPECT_EQ(requests.front().index, 0);
    EXPECT_EQ(requests.back().index, 0);
    for (size_t i = 1; i + 1 < requests.size(); ++i)
    {
        EXPECT_EQ(requests[i].opcode, audioMasterAutomate);
        EXPECT_EQ(requests[i].index, 0);
    }
    // Moved 82 units of the 162-unit travel towards the right, which holds the maximum: at every scale.
    EXPECT_NEAR(getParameter(0), 82.0f / 162.0f, 1e-6);
}

TEST_F(SpataraEditorX11Test, AParameterSetByTheHostMovesItsSliderAndTextOnScreen)
{
    setParameter(0, 0.0f);
    openEditor();
    Screenshot before(parent);
    setParameter(0, 1.0f);
    idleFor(150ms);
    Screenshot after(parent);
    ASSERT_TRUE(before.ok() && after.ok());
    // The handle left the left end for the right end.
    EXPECT_EQ(before.pixel(70, 59), pixelOfBitmap(134, 7, 8));
    EXPECT_EQ(after.pixel(232, 59), pixelOfBitmap(134, 7, 8));
    EXPECT_NE(after.pixel(70, 59), pixelOfBitmap(134, 7, 8));
    int changed = 0;
    for (int y = 54; y < 71; ++y)
        for (int x = 258; x < 302; ++x)
            changed += before.pixel(x, y) != after.pixel(x, y);
    EXPECT_GT(changed, 20) << "the value text did not change from 0% to 100%";
}

TEST_F(SpataraEditorX11Test, MeterGoesToMWithMonoAndToSWithAntiPhaseAudio)
{
    // Off, the effect passes the input on, so the meter reads the input's balance.
    setParameter(3, 0.0f);
    openEditor();
    const CColor litNearM = pixelOfBitmap(135, 175, 5);
    const CColor unlitNearS = pixelOfBitmap(136, 5, 5);

    startAudio(1.0f);
    EXPECT_TRUE(idleUntil([&] { return engineMeter() >= 0.49f; }));
    idleFor(150ms);
    {
        Screenshot shot(parent);
        ASSERT_TRUE(shot.ok());
        EXPECT_EQ(shot.pixel(60 + 175, 30), litNearM);
    }
    stopAudio();

    startAudio(-1.0f);
    EXPECT_TRUE(idleUntil([&] { return engineMeter() <= -0.49f; }));
    idleFor(150ms);
    Screenshot shot(parent);
    ASSERT_TRUE(shot.ok());
    EXPECT_EQ(shot.pixel(60 + 5, 30), unlitNearS);
}

TEST_P(SpataraEditorX11AtScale, AboutScreenOpensOnAClickAndClosesOnTheNext)
{
    openEditor();
    const CColor panel = pixelOfBitmap(128, 36, 172, scale);
    const CColor screenCorner = pixelOfBitmap(140, 5, 140, scale);
    ASSERT_NE(panel, screenCorner);
    ASSERT_TRUE(click(100, 194));
    idleFor(150ms);
    {
        Screenshot shot(parent);
        ASSERT_TRUE(shot.ok());
        EXPECT_EQ(screenPixel(shot, 36, 172), screenCorner);
    }
    ASSERT_TRUE(click(150, 100));
    idleFor(150ms);
    Screenshot shot(parent);
    ASSERT_TRUE(shot.ok());
    EXPECT_EQ(screenPixel(shot, 36, 172), panel);
    // The about screen is no parameter.
    EXPECT_TRUE(automationOf(7).empty());
}

TEST_P(SpataraEditorX11AtScale, AClickOutsideTheAboutScreenClosesItAndReachesNoControlBeneath)
{
    openEditor();
    const CColor panel = pixelOfBitmap(128, 36, 172, scale);
    const CColor screenCorner = pixelOfBitmap(140, 5, 140, scale);
    ASSERT_TRUE(click(100, 194));
    idleFor(150ms);
    {
        Screenshot shot(parent);
        ASSERT_TRUE(shot.ok());
        ASSERT_EQ(screenPixel(shot, 36, 172), screenCorner);
    }
    const float depthBefore = getParameter(0);
    char nameBefore[64] = {};
    host->dispatch(effGetProgramName, 0, 0, nameBefore);
    // The right half of the step rocker on the preset strip, well below the about screen.
    ASSERT_TRUE(click(240, 229));
    idleFor(150ms);
    Screenshot shot(parent);
    ASSERT_TRUE(shot.ok());
    EXPECT_EQ(screenPixel(shot, 36, 172), panel);
    char nameAfter[64] = {};
    host->dispatch(effGetProgramName, 0, 0, nameAfter);
    EXPECT_STREQ(nameAfter, nameBefore);
    EXPECT_EQ(getParameter(0), depthBefore);
    EXPECT_TRUE(HostRecorder::requests().empty());
    // Closed, the editor takes clicks again: the same click now steps to the next preset.
    ASSERT_TRUE(click(240, 229));
    EXPECT_TRUE(idleUntil(
        [&]
        {
            char name[64] = {};
            host->dispatch(effGetProgramName, 0, 0, name);
            return std::string(name) != nameBefore;
        }));
}

TEST_F(SpataraEditorX11Test, ANameThatIsNotUtf8IsDrawnAndTheWholePanelStillDraws)
{
    // 22 letters and a lone first byte of an "é", as older versions stored a name cut inside it; it comes
    // back with every project that saved it.
    char broken[] = "abcdefghijklmnopqrstuv\xC3";
    host->dispatch(effSetProgramName, 0, 0, broken);
    std::vector<char> chunk;
    {
        void* data = nullptr;
        const auto size = host->dispatch(effGetChunk, 0, 0, &data);
        ASSERT_GT(size, 0);
        chunk.assign(static_cast<char*>(data), static_cast<char*>(data) + size);
    }
    ASSERT_EQ(host->dispatch(effSetChunk, 0, static_cast<VstIntPtr>(chunk.size()), chunk.data()), 0);
    openEditor();
    Screenshot shot(parent);
    ASSERT_TRUE(shot.ok());
    // The file, default, memory and manual buttons: the first image of each, at its middle.
    struct Button
    {
        int left, top, bitmap, x, y;
    };
    for (const Button& button :
         {Button{8, 215, 19999, 6, 7}, Button{71, 230, 19993, 6, 7}, Button{22, 217, 19899, 23, 5},
          Button{254, 215, 19995, 6, 7}, Button{279, 230, 19992, 6, 7}, Button{262, 187, 989, 8, 7}})
    {
        const CColor expected = pixelOfBitmap(button.bitmap, button.x, button.y);
        ASSERT_NE(expected, pixelOfBitmap(128, button.left + button.x, button.top + button.y))
            << button.bitmap;
        EXPECT_EQ(shot.pixel(button.left + button.x, button.top + button.y), expected) << button.bitmap;
    }
    // The name itself is drawn: dark text pixels on the field.
    int ink = 0;
    for (int y = 224; y < 236; ++y)
        for (int x = 93; x < 199; ++x)
        {
            const CColor c = shot.pixel(x, y);
            ink += c.red < 120 && c.green < 120 && c.blue < 120;
        }
    EXPECT_GT(ink, 40);
    // The open list draws every entry, the broken one too.
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove 212 229 click 1"));
    idleFor(200ms);
    Screenshot list(parent);
    ASSERT_TRUE(list.ok());
    int changed = 0;
    for (int y = 20; y < 200; y += 2)
        for (int x = 0; x < 302; x += 2)
            changed += list.pixel(x, y) != shot.pixel(x, y);
    EXPECT_GT(changed, 2000) << "the list did not draw";
    ASSERT_TRUE(X11TestWindow::xdotool("key Escape"));
    idleFor(100ms);
}

TEST_F(SpataraEditorX11Test, ClosesAndReopensFiveTimesLeavingNothingBehind)
{
    auto countFds = []
    {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator{});
    };
    openEditor();
    host->closeEditor();
    const auto fdsBefore = countFds();
    for (int round = 0; round < 5; ++round)
    {
        ASSERT_TRUE(host->openEditor(parent.getWindow())) << "round " << round;
        ASSERT_TRUE(idleUntil([&] { return shown(); })) << "round " << round;
        idleFor(30ms);
        host->closeEditor();
        EXPECT_TRUE(parent.children().empty()) << "round " << round;
    }
    EXPECT_EQ(countFds(), fdsBefore);
}

namespace
{
// Where the scope's trace is lit in a screenshot, around the goniometer's centre (72, 111 in the editor's
// units): the trace's blue stands out from the dark screen and the grey guides.
struct Trace
{
    int onUpright = 0; // within 2 units of the vertical axis
    int onAcross = 0;  // within 2 units of the horizontal axis
    int elsewhere = 0;
};

Trace traceOf(const Screenshot& shot, double scale)
{
    Trace trace;
    const auto unit = [scale](double units) { return static_cast<int>(std::lround(units * scale)); };
    for (int y = unit(53); y < unit(169); ++y)
        for (int x = unit(14); x < unit(130); ++x)
        {
            const CColor c = shot.pixel(x, y);
            if (!(c.blue > 150 && c.blue > c.red + 60)) continue;
            const double ux = x / scale, uy = y / scale;
            if (std::fabs(ux - 72.0) <= 2.0)
                ++trace.onUpright;
            else if (std::fabs(uy - 111.0) <= 2.0)
                ++trace.onAcross;
            else
                ++trace.elsewhere;
        }
    return trace;
}
} // namespace

TEST_F(SpataraEditorX11Test, TheScopeOpensFromTheMeterAndDrawsMonoUprightAndAntiPhaseAcross)
{
    // Audio of this right gain for a while, then where the trace lies; the screenshot is kept as name.
    const auto traceWith = [this](float rightGain, const char* name)
    {
        startAudio(rightGain);
        idleFor(500ms);
        Trace trace;
        Screenshot shot(parent);
        EXPECT_TRUE(shot.ok());
        if (shot.ok())
        {
            std::filesystem::copy_file("spatara-editor.png", name,
                                       std::filesystem::copy_options::overwrite_existing);
            trace = traceOf(shot, 1.0);
        }
        stopAudio();
        return trace;
    };
    setParameter(3, 0.0f); // off: the output is the input
    openEditor();
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove 150 30 click 1"));
    const Trace mono = traceWith(1.0f, "scope-mono.png");
    EXPECT_GT(mono.onUpright, 40);
    EXPECT_LT(mono.elsewhere + mono.onAcross, mono.onUpright / 10) << "mono is one upright line";
    const Trace antiPhase = traceWith(-1.0f, "scope-antiphase.png");
    EXPECT_GT(antiPhase.onAcross, 40);
    EXPECT_LT(antiPhase.elsewhere + antiPhase.onUpright, antiPhase.onAcross / 10)
        << "anti-phase is one line across";

    // Widened: the second mode spreads the mono signal off the upright line.
    setParameter(3, 1.0f);
    setParameter(0, 1.0f);
    setParameter(2, 1.0f);
    setParameter(5, 0.5f);
    EXPECT_GT(traceWith(1.0f, "scope-wide.png").elsewhere, 20) << "a widened image leaves the upright line";

    // A click on the scope closes it; the next editor opens without it.
    ASSERT_TRUE(X11TestWindow::xdotool("mousemove 200 150 click 1"));
    idleFor(200ms);
    Screenshot closed(parent);
    ASSERT_TRUE(closed.ok());
    EXPECT_EQ(closed.pixel(72, 60), pixelOfBitmap(128, 72, 60));
}
