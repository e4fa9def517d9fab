// The preset panel's buttons: which image they draw, what they send for which clicks, and what they keep
// from the listener.
#include "CPSKickButton.h"
#include "CPSOnOffButton.h"
#include "CPSRockerSwitch.h"
#include "CSaveLoadButton.h"
#include "ControlFixture.h"
#include "StripBitmaps.h"
#include "TestSurface.h"

#include <functional>

namespace
{
using StripBitmaps::imageColour;

struct PanelButtons : ControlFixture
{
    // The colour drawn at (x, y) when the control alone is drawn.
    CColor drawnAt(CView* view, double x, double y)
    {
        TestSurface surface(302, 250);
        surface.clear(kWhiteCColor);
        view->draw(surface.getContext());
        return surface.pixel(static_cast<int>(x), static_cast<int>(y));
    }
    CColor drawnAtCentre(CView* view)
    {
        const CRect& r = view->getViewSize();
        return drawnAt(view, (r.left + r.right) / 2.0, (r.top + r.bottom) / 2.0);
    }

    CPSKickButton* kick(bool doubleClickOnly, int32_t bitmapNumber = StripBitmaps::kButtonStrip,
                        CPoint offset = CPoint(0, 0))
    {
        auto* bitmap = new CBitmap(bitmapNumber);
        auto* button = add(new CPSKickButton(CRect(254, 215, 266, 229), &recorder, 1015, 14, bitmap, offset,
                                             doubleClickOnly));
        bitmap->forget();
        return button;
    }
    CSaveLoadButton* fileButton(CControlListener* listener)
    {
        auto* bitmap = new CBitmap(StripBitmaps::kButtonStrip);
        auto* button =
            add(new CSaveLoadButton(CRect(71, 215, 83, 229), listener, 1004, 14, bitmap, CPoint(0, 0)));
        bitmap->forget();
        return button;
    }
    CPSRockerSwitch* rocker()
    {
        auto* bitmap = new CBitmap(StripBitmaps::kRockerStrip);
        auto* control =
            add(new CPSRockerSwitch(CRect(219, 222, 250, 236), &recorder, 1001, 14, bitmap, CPoint(0, 0)));
        bitmap->forget();
        return control;
    }
    CPSOnOffButton* onOff(CRect rect = CRect(10, 10, 20, 43))
    {
        auto* bitmap = new CBitmap(StripBitmaps::kHundredPixelStrip);
        auto* button = add(new CPSOnOffButton(rect, &recorder, 7, bitmap));
        bitmap->forget();
        return button;
    }

    CPoint inside{260, 220};
};

// A listener that runs a check while it is being told.
struct CallbackListener : CControlListener
{
    std::function<void(CControl*)> onValue;
    void valueChanged(CControl* control) override { onValue(control); }
};
} // namespace

// ---- CPSKickButton

TEST_F(PanelButtons, DoubleClickOnlyKickButtonIgnoresASingleClick)
{
    CPSKickButton* button = kick(true);
    EXPECT_EQ(button->onMouseDown(inside, CButtonState(kLButton)),
              kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_TRUE(recorder.values.empty());
    EXPECT_FALSE(button->isPressed());
    EXPECT_EQ(button->getValue(), 0.0f);
}

TEST_F(PanelButtons, DoubleClickOnlyKickButtonSendsOneOnADoubleClick)
{
    CPSKickButton* button = kick(true);
    EXPECT_EQ(button->onMouseDown(inside, CButtonState(kLButton | kDoubleClick)), kMouseEventHandled);
    ASSERT_EQ(recorder.values, std::vector<float>{1.0f});
    EXPECT_TRUE(button->isPressed());
}

TEST_F(PanelButtons, DoubleClickWithControlSendsHalf)
{
    kick(true)->onMouseDown(inside, CButtonState(kLButton | kDoubleClick | kControl));
    EXPECT_EQ(recorder.values, std::vector<float>{0.5f});
}

TEST_F(PanelButtons, DoubleClickThroughTheFrameReachesADoubleClickOnlyButton)
{
    kick(true);
    frame->platformOnMouseDown(inside, CButtonState(kLButton));
    frame->platformOnMouseUp(inside, CButtonState(kLButton));
    EXPECT_TRUE(recorder.values.empty());
    frame->platformOnMouseDown(inside, CButtonState(kLButton));
    EXPECT_EQ(recorder.values, std::vector<float>{1.0f});
}

TEST_F(PanelButtons, SingleClickKickButtonSendsOneOnAPressWhateverTheModifiers)
{
    CPSKickButton* button = kick(false);
    button->onMouseDown(inside, CButtonState(kLButton));
    button->onMouseUp(inside, CButtonState(kLButton));
    button->onMouseDown(inside, CButtonState(kLButton | kControl));
    EXPECT_EQ(recorder.values, (std::vector<float>{1.0f, 1.0f}));
}

TEST_F(PanelButtons, KickButtonReleaseRestsWithoutTellingTheListener)
{
    CPSKickButton* button = kick(false);
    button->onMouseDown(inside, CButtonState(kLButton));
    EXPECT_EQ(button->onMouseUp(inside, CButtonState(kLButton)), kMouseEventHandled);
    EXPECT_EQ(recorder.values.size(), 1u);
    EXPECT_EQ(button->getValue(), 0.0f);
    EXPECT_FALSE(button->isPressed());
}

TEST_F(PanelButtons, KickButtonIgnoresTheRightButton)
{
    CPSKickButton* button = kick(false);
    EXPECT_EQ(button->onMouseDown(inside, CButtonState(kRButton)),
              kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_TRUE(recorder.values.empty());
}

TEST_F(PanelButtons, KickButtonDrawsRestHoverAndPressedImages)
{
    CPSKickButton* button = kick(false);
    EXPECT_EQ(drawnAtCentre(button), imageColour(0));
    EXPECT_EQ(button->onMouseEntered(inside, CButtonState()), kMouseEventHandled);
    EXPECT_EQ(drawnAtCentre(button), imageColour(1));
    button->onMouseDown(inside, CButtonState(kLButton));
    EXPECT_EQ(drawnAtCentre(button), imageColour(2));
    button->onMouseUp(inside, CButtonState(kLButton));
    EXPECT_EQ(button->onMouseExited(inside, CButtonState()), kMouseEventHandled);
    EXPECT_EQ(drawnAtCentre(button), imageColour(0));
    EXPECT_FALSE(button->isDirty());
}

TEST_F(PanelButtons, KickButtonReadsItsImagesFromItsOffset)
{
    CPSKickButton* button = kick(false, StripBitmaps::kOffsetStrip, CPoint(12, 8));
    button->onMouseEntered(inside, CButtonState());
    EXPECT_EQ(drawnAtCentre(button), imageColour(1));
}

TEST_F(PanelButtons, PointerCrossingsThroughTheFrameMoveTheKickButtonsHover)
{
    CPSKickButton* button = kick(false);
    frame->platformOnMouseMoved(inside, CButtonState());
    EXPECT_TRUE(button->isHovered());
    CPoint away(5, 5);
    frame->platformOnMouseMoved(away, CButtonState());
    EXPECT_FALSE(button->isHovered());
}

// ---- CSaveLoadButton

TEST_F(PanelButtons, FileButtonLeftClickSendsOne)
{
    fileButton(&recorder)->onMouseDown(inside, CButtonState(kLButton));
    EXPECT_EQ(recorder.values, std::vector<float>{1.0f});
}

TEST_F(PanelButtons, FileButtonPlainRightClickSendsHalf)
{
    fileButton(&recorder)->onMouseDown(inside, CButtonState(kRButton));
    EXPECT_EQ(recorder.values, std::vector<float>{0.5f});
}

TEST_F(PanelButtons, FileButtonRightClickWithShiftSendsOne)
{
    fileButton(&recorder)->onMouseDown(inside, CButtonState(kRButton | kShift));
    EXPECT_EQ(recorder.values, std::vector<float>{1.0f});
}

TEST_F(PanelButtons, FileButtonShowsPressedOnlyWhileTheListenerRuns)
{
    CallbackListener listener;
    int imageWhileTold = -1;
    CColor drawnWhileTold{};
    CSaveLoadButton* button = fileButton(&listener);
    listener.onValue = [&](CControl*)
    {
        imageWhileTold = button->currentFrame();
        drawnWhileTold = drawnAtCentre(button);
    };
    EXPECT_EQ(button->onMouseDown(inside, CButtonState(kLButton)),
              kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_EQ(imageWhileTold, 2);
    EXPECT_EQ(drawnWhileTold, imageColour(2));
    EXPECT_EQ(button->getValue(), 0.0f);
    EXPECT_EQ(drawnAtCentre(button), imageColour(0));
}

TEST_F(PanelButtons, FileButtonWithoutListenerLeavesTheClick)
{
    EXPECT_EQ(fileButton(nullptr)->onMouseDown(inside, CButtonState(kLButton)), kMouseEventNotHandled);
}

TEST_F(PanelButtons, FileButtonHoverShowsTheHoverImage)
{
    CSaveLoadButton* button = fileButton(&recorder);
    button->onMouseEntered(inside, CButtonState());
    EXPECT_EQ(drawnAtCentre(button), imageColour(1));
    button->onMouseExited(inside, CButtonState());
    EXPECT_EQ(drawnAtCentre(button), imageColour(0));
}

TEST_F(PanelButtons, FileButtonTakesNoKeys)
{
    VstKeyCode key;
    key.virt = VKEY_RETURN;
    CSaveLoadButton* button = fileButton(&recorder);
    EXPECT_EQ(button->onKeyDown(key), -1);
    EXPECT_EQ(button->onKeyUp(key), -1);
}

// ---- CPSRockerSwitch

TEST_F(PanelButtons, RockerLeftHalfSendsMinusOneRightHalfPlusOne)
{
    CPSRockerSwitch* control = rocker();
    CPoint left(225, 229), right(245, 229);
    control->onMouseDown(left, CButtonState(kLButton));
    control->onMouseUp(left, CButtonState(kLButton));
    control->onMouseDown(right, CButtonState(kLButton));
    EXPECT_EQ(recorder.values, (std::vector<float>{-1.0f, 1.0f}));
}

TEST_F(PanelButtons, RockerCentreLineCountsAsTheRightHalf)
{
    CPSRockerSwitch* control = rocker();
    CPoint centre(234.5, 229), justLeft(234.4, 229);
    control->onMouseDown(centre, CButtonState(kLButton));
    control->onMouseUp(centre, CButtonState(kLButton));
    control->onMouseDown(justLeft, CButtonState(kLButton));
    EXPECT_EQ(recorder.values, (std::vector<float>{1.0f, -1.0f}));
}

TEST_F(PanelButtons, RockerReleaseRestsWithoutTellingTheListener)
{
    CPSRockerSwitch* control = rocker();
    CPoint right(245, 229);
    control->onMouseDown(right, CButtonState(kLButton));
    EXPECT_EQ(control->onMouseUp(right, CButtonState(kLButton)), kMouseEventHandled);
    EXPECT_EQ(recorder.values.size(), 1u);
    EXPECT_EQ(control->getValue(), 0.0f);
}

TEST_F(PanelButtons, RockerIgnoresTheRightButton)
{
    CPoint right(245, 229);
    EXPECT_EQ(rocker()->onMouseDown(right, CButtonState(kRButton)), kMouseEventNotHandled);
    EXPECT_TRUE(recorder.values.empty());
}

TEST_F(PanelButtons, RockerHoverFollowsTheHalfUnderThePointer)
{
    CPSRockerSwitch* control = rocker();
    CPoint left(225, 229), right(245, 229);
    control->onMouseEntered(left, CButtonState());
    EXPECT_EQ(control->getHoverSide(), -1);
    EXPECT_EQ(drawnAtCentre(control), imageColour(1));
    control->onMouseMoved(right, CButtonState());
    EXPECT_EQ(control->getHoverSide(), 1);
    EXPECT_EQ(drawnAt(control, 245, 229), imageColour(2));
    // Dragging with the button held changes nothing.
    EXPECT_EQ(control->onMouseMoved(left, CButtonState(kLButton)), kMouseEventHandled);
    EXPECT_EQ(control->getHoverSide(), 1);
    control->onMouseExited(left, CButtonState());
    EXPECT_EQ(control->getHoverSide(), 0);
    EXPECT_EQ(drawnAtCentre(control), imageColour(0));
}

TEST_F(PanelButtons, RockerDrawsItsPressedHalves)
{
    CPSRockerSwitch* control = rocker();
    CPoint left(225, 229), right(245, 229);
    control->onMouseDown(left, CButtonState(kLButton));
    EXPECT_EQ(drawnAtCentre(control), imageColour(3));
    control->onMouseUp(left, CButtonState(kLButton));
    control->onMouseDown(right, CButtonState(kLButton));
    EXPECT_EQ(drawnAtCentre(control), imageColour(4));
}

// ---- CPSOnOffButton

TEST_F(PanelButtons, OnOffButtonWithAHundredPixelBitmapUsesThirtyThreePixelImages)
{
    CPSOnOffButton* button = onOff();
    EXPECT_EQ(button->frameHeight(), 33);
    // The hovered image starts at row 33: the control's last row is the image's last row, not a blend
    // with the next image.
    button->onMouseEntered(inside, CButtonState());
    EXPECT_EQ(drawnAt(button, 15, 10), imageColour(1));
    EXPECT_EQ(drawnAt(button, 15, 42), imageColour(1));
    button->setValue(1.0f);
    EXPECT_EQ(drawnAt(button, 15, 10), imageColour(2));
    EXPECT_EQ(drawnAt(button, 15, 42), imageColour(2));
}

TEST_F(PanelButtons, OnOffButtonToggledByALeftClick)
{
    CPSOnOffButton* button = onOff();
    EXPECT_EQ(button->onMouseDown(inside, CButtonState(kLButton)),
              kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_EQ(button->onMouseDown(inside, CButtonState(kLButton)),
              kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_EQ(recorder.values, (std::vector<float>{1.0f, 0.0f}));
    EXPECT_EQ(button->onMouseDown(inside, CButtonState(kRButton)), kMouseEventNotHandled);
    EXPECT_EQ(recorder.values.size(), 2u);
}

TEST_F(PanelButtons, OnOffButtonShowsHoverOnlyWhileOff)
{
    CPSOnOffButton* button = onOff();
    EXPECT_EQ(drawnAt(button, 15, 20), imageColour(0));
    button->onMouseEntered(inside, CButtonState());
    EXPECT_EQ(button->currentFrame(), 1);
    button->setValue(1.0f);
    EXPECT_EQ(button->currentFrame(), 2);
    button->setValue(0.0f);
    button->onMouseExited(inside, CButtonState());
    EXPECT_EQ(button->currentFrame(), 0);
}
