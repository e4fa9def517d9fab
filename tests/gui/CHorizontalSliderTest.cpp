#include "CHorizontalSlider.h"
#include "ControlFixture.h"
#include "TestSurface.h"

namespace
{
struct SliderTest : ControlFixture
{
    SliderTest()
    {
        handle = new CBitmap(134);
        background = new CBitmap(128);
        const int maxPos = 239 - static_cast<int>(handle->getWidth());
        slider = add(new CHorizontalSlider(CRect(63, 51, 239, 51 + handle->getHeight()), &recorder, 0, 63,
                                           maxPos, handle, background, CPoint(63, 51)));
        slider->setFreeClick(false);
    }
    ~SliderTest() override
    {
        handle->forget();
        background->forget();
    }

    CBitmap* handle;
    CBitmap* background;
    CHorizontalSlider* slider;
};
} // namespace

TEST_F(SliderTest, HandleRunsFromMinimumToMaximumPosition)
{
    slider->setValue(0.0f);
    EXPECT_EQ(slider->getHandleRect().left, 63);
    slider->setValue(1.0f);
    EXPECT_EQ(slider->getHandleRect().right, 239);
    slider->setValue(0.5f);
    EXPECT_EQ(slider->getHandleRect().left, 63 + (239 - 14 - 63) / 2);
}

TEST_F(SliderTest, DragIsBracketedByBeginAndEndEdit)
{
    slider->setValue(0.0f);
    CPoint grab(70, 59);
    EXPECT_EQ(frame->onMouseDown(grab, kLButton), kMouseEventHandled);
    CPoint moved(70 + 81, 59);
    frame->onMouseMoved(moved, kLButton);
    frame->onMouseUp(moved, kLButton);
    EXPECT_NEAR(slider->getValue(), 0.5f, 1e-6);
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"begin 0", "value 0", "end 0"}));
}

TEST_F(SliderTest, DragStopsAtTheEnds)
{
    CPoint grab(70, 59);
    frame->onMouseDown(grab, kLButton);
    CPoint far(500, 59);
    frame->onMouseMoved(far, kLButton);
    EXPECT_EQ(slider->getValue(), 1.0f);
    CPoint back(-500, 59);
    frame->onMouseMoved(back, kLButton);
    EXPECT_EQ(slider->getValue(), 0.0f);
    frame->onMouseUp(back, kLButton);
}

TEST_F(SliderTest, WithoutFreeClickAClickBesideTheHandleDoesNothing)
{
    CPoint beside(200, 59);
    frame->onMouseDown(beside, kLButton);
    frame->onMouseUp(beside, kLButton);
    EXPECT_EQ(slider->getValue(), 0.0f);
    EXPECT_TRUE(recorder.events.empty());
}

TEST_F(SliderTest, WithFreeClickTheHandleJumpsToTheClick)
{
    slider->setFreeClick(true);
    CPoint at(63 + 81 + 7, 59);
    frame->onMouseDown(at, kLButton);
    frame->onMouseUp(at, kLButton);
    EXPECT_NEAR(slider->getValue(), 0.5f, 1e-6);
}

TEST_F(SliderTest, ShiftDragIsTenTimesFiner)
{
    slider->setValue(0.5f);
    CPoint grab(slider->getHandleRect().left + 3, 59);
    frame->onMouseDown(grab, kLButton);
    CPoint start(grab.x, 59);
    frame->onMouseMoved(start, kLButton | kShift);
    CPoint moved(grab.x + 81, 59);
    frame->onMouseMoved(moved, kLButton | kShift);
    frame->onMouseUp(moved, kLButton);
    EXPECT_NEAR(slider->getValue(), 0.55f, 1e-5);
}

TEST_F(SliderTest, RightButtonDoesNotMoveIt)
{
    CPoint grab(70, 59);
    EXPECT_EQ(frame->onMouseDown(grab, kRButton), kMouseEventNotHandled);
    EXPECT_TRUE(recorder.events.empty());
}

TEST_F(SliderTest, WheelStepsByTheWheelIncrementAsOneGesture)
{
    slider->setValue(0.5f);
    EXPECT_TRUE(frame->onWheel(CPoint(100, 59), kMouseWheelAxisY, 1.0f, 0));
    EXPECT_NEAR(slider->getValue(), 0.6f, 1e-6);
    frame->onWheel(CPoint(100, 59), kMouseWheelAxisY, -1.0f, kShift);
    EXPECT_NEAR(slider->getValue(), 0.59f, 1e-6);
    EXPECT_EQ(recorder.events,
              (std::vector<std::string>{"begin 0", "value 0", "end 0", "begin 0", "value 0", "end 0"}));
}

TEST_F(SliderTest, TopStyleRunsFromTheLeftLikeTheDefault)
{
    auto* top = add(new CHorizontalSlider(CRect(0, 100, 100, 116), &recorder, 9, 0, 86, handle, background,
                                          CPoint(0, 0), CHorizontalSlider::kSliderTop));
    top->setValue(0.0f);
    EXPECT_EQ(top->getHandleRect().left, 0);
    top->setValue(1.0f);
    EXPECT_EQ(top->getHandleRect().left, 86);
}

TEST_F(SliderTest, RightStyleHoldsTheMinimumAtTheRightEnd)
{
    auto* inverted = add(new CHorizontalSlider(CRect(0, 100, 100, 116), &recorder, 9, 0, 86, handle,
                                               background, CPoint(0, 0), CHorizontalSlider::kSliderRight));
    inverted->setValue(0.0f);
    EXPECT_EQ(inverted->getHandleRect().left, 86);
    inverted->setValue(1.0f);
    EXPECT_EQ(inverted->getHandleRect().left, 0);
}

TEST_F(SliderTest, DrawsBackgroundFromItsOffsetAndTheHandleAtTheValue)
{
    slider->setValue(1.0f);
    TestSurface surface(302, 250);
    surface.clear(kRedCColor);
    slider->draw(surface.getContext());
    // Left of the handle: the background bitmap's own pixel at the same place.
    EXPECT_EQ(surface.pixel(64, 52), TestSurface::pixelOf(background->getSurface(), 64, 52));
    // The handle sits at the right end: its centre pixel is the handle bitmap's centre pixel.
    EXPECT_EQ(surface.pixel(239 - 7, 51 + 8), TestSurface::pixelOf(handle->getSurface(), 7, 8));
    EXPECT_FALSE(slider->isDirty());
}
