// The main editor without a window: what open builds, how host changes reach the controls, what the
// user's changes send to the effect, the meter and the about screen.
#include "ADEditor.h"
#include "CAbout.h"
#include "CClickButton.h"
#include "CControlStyle.h"
#include "CHorizontalSlider.h"
#include "COnOffButton.h"
#include "CVuMeter1.h"
#include "EditorControls.h"
#include "RecordingHost.h"
#include "Spatara.h"

#include <cmath>
#include <gtest/gtest.h>

#include <thread>

using EditorControls::displayAt;
using EditorControls::find;
using EditorControls::textOf;

namespace
{
struct ADEditorTest : ::testing::Test
{
    void SetUp() override { ASSERT_TRUE(editor.open(nullptr)); }
    void TearDown() override { editor.close(); }

    void reopen()
    {
        editor.close();
        ASSERT_TRUE(editor.open(nullptr));
    }
    // The effect changes a parameter and tells the editor, as the effect does; the editor's next idle shows
    // it.
    void hostSets(VstInt32 index, float value)
    {
        effect.setParameter(index, value);
        editor.setParameter(index, value);
        editor.idle();
    }
    CFrame* frame() const { return editor.getFrame(); }
    CParamDisplay* widthCaption() const { return displayAt(frame(), 2, 118); }
    CParamDisplay* widthValue() const { return displayAt(frame(), 258, 118); }
    CClickButton* modeButton() const { return find<CClickButton>(frame(), "CClickButton", 5); }
    CVuMeter1* meter() const { return find<CVuMeter1>(frame(), "CVuMeter"); }
    CAbout* about() const { return find<CAbout>(frame(), "CSplashScreen", 7); }
    void click(double x, double y, long buttons = kLButton)
    {
        CPoint where(x, y);
        frame()->onMouseDown(where, CButtonState(buttons));
        frame()->onMouseUp(where, CButtonState(buttons));
    }

    RecordingHost host;
    Spatara effect{host.callback()};
    float balance = 0.0f;
    ADEditor editor{&effect, [this](VstInt32 index) { return effect.getParameterValue(index); },
                    [this] { return balance; }};
};
} // namespace

TEST_F(ADEditorTest, ThePlugInOffersTheEditorAtTheBackgroundsSize)
{
    EXPECT_TRUE(effect.getAeffect()->flags & effFlagsHasEditor);
    ERect* rect = nullptr;
    ASSERT_TRUE(editor.getRect(&rect));
    EXPECT_EQ(rect->left, 0);
    EXPECT_EQ(rect->top, 0);
    EXPECT_EQ(rect->right, 302);
    EXPECT_EQ(rect->bottom, 250);
    EXPECT_EQ(frame()->getViewSize(), CRect(0, 0, 302, 250));
}

TEST_F(ADEditorTest, OpenBuildsTheSixteenControlsInTheirPlaces)
{
    // The editor's sixteen come first, in the table's order; the preset panel's controls follow them.
    const char* const kOrder[16] = {
        "CVuMeter",      "CParamDisplay",     "CParamDisplay",     "CHorizontalSlider",
        "CParamDisplay", "CParamDisplay",     "CHorizontalSlider", "CParamDisplay",
        "CParamDisplay", "CHorizontalSlider", "CParamDisplay",     "CParamDisplay",
        "COnOffButton",  "COnOffButton",      "CClickButton",      "CSplashScreen"};
    ASSERT_GT(frame()->getNbViews(), 16);
    for (int i = 0; i < 16; ++i)
        EXPECT_TRUE(frame()->getView(i)->isTypeOf(kOrder[i])) << "view " << i << " should be a " << kOrder[i];
    EXPECT_EQ(meter()->getViewSize(), CRect(60, 25, 242, 35));
    EXPECT_EQ(meter()->getNbLed(), 182);
    EXPECT_EQ(meter()->getValue(), 0.5f);
    EXPECT_EQ(find<COnOffButton>(frame(), "COnOffButton", 3)->getViewSize(), CRect(70, 151, 114, 169));
    EXPECT_EQ(find<COnOffButton>(frame(), "COnOffButton", 4)->getViewSize(), CRect(190, 151, 234, 169));
    EXPECT_EQ(modeButton()->getViewSize(), CRect(130, 151, 174, 169));
    EXPECT_EQ(about()->getViewSize(), CRect(70, 184, 225, 204));
    EXPECT_EQ(about()->getDisplayArea(), CRect(31, 32, 271, 182));
    for (int tag = 0; tag < 3; ++tag)
    {
        auto* slider = find<CHorizontalSlider>(frame(), "CHorizontalSlider", tag);
        ASSERT_NE(slider, nullptr);
        EXPECT_EQ(slider->getViewSize(), CRect(63, 51 + 32 * tag, 239, 67 + 32 * tag));
        // The table's 16, with the horizontal bit the slider adds.
        EXPECT_EQ(slider->getStyle(), CHorizontalSlider::kSliderHorizontal | CHorizontalSlider::kSliderTop);
        EXPECT_FALSE(slider->getFreeClick());
    }
    EXPECT_EQ(textOf(displayAt(frame(), 2, 24)), "S");
    EXPECT_EQ(textOf(displayAt(frame(), 258, 24)), "M");
    EXPECT_EQ(textOf(displayAt(frame(), 2, 54)), "depth");
    EXPECT_EQ(textOf(displayAt(frame(), 2, 86)), "freq");
}

TEST_F(ADEditorTest, SlidersRunFromTheMinimumAtTheLeft)
{
    hostSets(0, 0.0f);
    auto* slider = find<CHorizontalSlider>(frame(), "CHorizontalSlider", 0);
    EXPECT_EQ(slider->getHandleRect().left, 63);
    hostSets(0, 1.0f);
    EXPECT_EQ(slider->getHandleRect().left, 225);
}

TEST_F(ADEditorTest, OpeningInMode07ShowsEmphThenAReportedModeChangeShowsWidth)
{
    effect.setParameter(5, 0.7f);
    reopen();
    EXPECT_EQ(textOf(widthCaption()), "emph");
    EXPECT_EQ(modeButton()->getValue(), 0.5f);
    hostSets(5, 0.7f);
    EXPECT_EQ(textOf(widthCaption()), "width");
    EXPECT_EQ(modeButton()->getValue(), 0.5f);
}

TEST_F(ADEditorTest, ModeButtonAndWidthRowChangeStateAtAQuarterAndAtThreeQuarters)
{
    hostSets(2, 0.25f);
    hostSets(5, std::nextafter(0.25f, 0.0f));
    EXPECT_EQ(modeButton()->getValue(), 0.0f);
    EXPECT_EQ(textOf(widthValue()), "175%");
    hostSets(5, 0.25f);
    EXPECT_EQ(modeButton()->getValue(), 0.5f);
    EXPECT_EQ(textOf(widthValue()), "325%");
    hostSets(5, std::nextafter(0.75f, 0.0f));
    EXPECT_EQ(modeButton()->getValue(), 0.5f);
    EXPECT_EQ(textOf(widthCaption()), "width");
    EXPECT_EQ(textOf(widthValue()), "325%");
    hostSets(5, 0.75f);
    EXPECT_EQ(modeButton()->getValue(), 1.0f);
    EXPECT_EQ(textOf(widthCaption()), "emph");
    EXPECT_EQ(textOf(widthValue()), "25%");
}

TEST_F(ADEditorTest, OpeningShowsEmphExactlyWhenTheEngineRunsTheEmphasisMode)
{
    effect.setParameter(5, std::nextafter(0.67f, 0.0f));
    reopen();
    EXPECT_EQ(effect.getParameterValue(5), 1.0f);
    EXPECT_EQ(textOf(widthCaption()), "width");
    effect.setParameter(5, 0.67f);
    reopen();
    EXPECT_EQ(effect.getParameterValue(5), 2.0f);
    EXPECT_EQ(textOf(widthCaption()), "emph");
}

TEST_F(ADEditorTest, WidthDisplayReadsTheWidthAsEachModeMeansIt)
{
    hostSets(2, 0.25f);
    hostSets(5, 1.0f);
    EXPECT_EQ(textOf(widthValue()), "25%");
    EXPECT_EQ(textOf(widthCaption()), "emph");
    hostSets(5, 0.0f);
    EXPECT_EQ(textOf(widthValue()), "175%");
    EXPECT_EQ(textOf(widthCaption()), "width");
    hostSets(5, 0.5f);
    EXPECT_EQ(textOf(widthValue()), "325%");
    // open uses the same rule.
    reopen();
    EXPECT_EQ(textOf(widthValue()), "325%");
}

TEST_F(ADEditorTest, ProcessButtonIsOnWhenTheEffectHoldsOneHalf)
{
    hostSets(3, 0.0f);
    auto* process = find<COnOffButton>(frame(), "COnOffButton", 3);
    EXPECT_EQ(process->getValue(), 0.0f);
    hostSets(3, 0.5f);
    EXPECT_EQ(process->getValue(), 1.0f);
}

TEST_F(ADEditorTest, HostValuesShowInTheDepthAndFrequencyRows)
{
    hostSets(0, 0.5f);
    hostSets(1, 1.0f);
    EXPECT_EQ(find<CHorizontalSlider>(frame(), "CHorizontalSlider", 0)->getValue(), 0.5f);
    EXPECT_EQ(textOf(displayAt(frame(), 258, 54)), "50%");
    EXPECT_EQ(find<CHorizontalSlider>(frame(), "CHorizontalSlider", 1)->getValue(), 1.0f);
    EXPECT_EQ(textOf(displayAt(frame(), 258, 86)), "1.0kHz");
}

TEST_F(ADEditorTest, AChangeReportedOnAnotherThreadMovesTheControlOnlyAtTheNextIdle)
{
    hostSets(0, 0.0f);
    auto* slider = find<CHorizontalSlider>(frame(), "CHorizontalSlider", 0);
    std::thread audio(
        [this]
        {
            effect.setParameter(0, 0.8f);
            editor.setParameter(0, 0.8f);
        });
    audio.join();
    EXPECT_EQ(slider->getValue(), 0.0f);
    editor.idle();
    EXPECT_EQ(slider->getValue(), 0.8f);
}

TEST_F(ADEditorTest, UserChangesOfTagsZeroToFiveReachTheEffectAsAutomation)
{
    const float values[] = {0.3f, 0.6f, 0.9f, 1.0f, 1.0f, 0.5f};
    for (int tag = 0; tag < 6; ++tag)
    {
        CControl* control = nullptr;
        for (int i = 0; i < frame()->getNbViews() && !control; ++i)
            if (auto* view = dynamic_cast<CControl*>(frame()->getView(i));
                view && view->getTag() == tag && !view->isTypeOf("CParamDisplay"))
                control = view;
        ASSERT_NE(control, nullptr) << tag;
        host.clear();
        control->setValue(values[tag]);
        editor.valueChanged(control);
        const auto automation = host.requestsOf(audioMasterAutomate);
        ASSERT_EQ(automation.size(), 1u) << tag;
        EXPECT_EQ(automation[0].index, tag);
        EXPECT_EQ(automation[0].opt, values[tag]);
        EXPECT_EQ(effect.getParameter(tag), values[tag]);
    }
}

TEST_F(ADEditorTest, TheAboutControlNeverReachesTheEffect)
{
    float before[6];
    for (int i = 0; i < 6; ++i)
        before[i] = effect.getParameter(i);
    host.clear();
    click(100, 190);
    ASSERT_EQ(about()->getValue(), 1.0f);
    editor.valueChanged(about());
    EXPECT_TRUE(host.requestsOf(audioMasterAutomate).empty());
    EXPECT_TRUE(host.requestsOf(audioMasterBeginEdit).empty());
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(effect.getParameter(i), before[i]);
}

TEST_F(ADEditorTest, MeterShowsTheBalanceAndStandsStillWhileTheAboutScreenIsShown)
{
    balance = -0.5f;
    editor.idle();
    EXPECT_EQ(meter()->getValue(), 0.0f);
    balance = 0.5f;
    editor.idle();
    EXPECT_EQ(meter()->getValue(), 1.0f);

    click(100, 190);
    ASSERT_NE(frame()->getModalView(), nullptr);
    balance = -0.3f;
    editor.idle();
    EXPECT_EQ(meter()->getValue(), 1.0f);

    // Anywhere on the screen closes it; the meter moves again at the next idle.
    click(265, 175);
    EXPECT_EQ(frame()->getModalView(), nullptr);
    EXPECT_EQ(about()->getValue(), 0.0f);
    editor.idle();
    EXPECT_FLOAT_EQ(meter()->getValue(), 0.2f);
}

TEST_F(ADEditorTest, SuspendCentresTheMeterAndDoesNothingWhileClosed)
{
    balance = 0.5f;
    editor.idle();
    editor.suspend();
    EXPECT_EQ(meter()->getValue(), 0.5f);
    editor.close();
    editor.suspend();
    editor.setParameter(0, 1.0f);
    EXPECT_EQ(editor.getFrame(), nullptr);
    ASSERT_TRUE(editor.open(nullptr));
}

TEST_F(ADEditorTest, ClosingWhileTheAboutScreenIsShownTakesItAlongAndReopensWithoutIt)
{
    click(100, 190);
    ASSERT_NE(frame()->getModalView(), nullptr);
    editor.close();
    ASSERT_TRUE(editor.open(nullptr));
    EXPECT_EQ(frame()->getModalView(), nullptr);
    EXPECT_EQ(about()->getValue(), 0.0f);
    balance = 0.25f;
    editor.idle();
    EXPECT_EQ(meter()->getValue(), 0.75f);
}
