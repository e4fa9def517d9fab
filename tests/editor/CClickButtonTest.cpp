// The multi-state button: its steps, what it tells the listener, and which frame of its image it shows.
#include "CClickButton.h"
#include "CBitmap.h"
#include "CFrame.h"
#include "RecordingListener.h"
#include "TestSurface.h"

#include <gtest/gtest.h>

namespace
{
struct CClickButtonTest : ::testing::Test
{
    CClickButtonTest()
        : frame(new CFrame(CRect(0, 0, 302, 250), nullptr, &recorder)), image(new CBitmap(139)),
          button(new CClickButton(CRect(130, 151, 174, 169), &recorder, 5, image, 3))
    {
        frame->addView(button);
    }
    ~CClickButtonTest() override
    {
        frame->forget();
        image->forget();
    }
    CMouseEventResult click(long buttons)
    {
        CPoint where(140, 160);
        return button->onMouseDown(where, CButtonState(buttons));
    }

    RecordingListener recorder;
    CFrame* frame;
    CBitmap* image;
    CClickButton* button;
};
} // namespace

TEST_F(CClickButtonTest, ThreeLeftClicksStepThroughHalfOneAndZero)
{
    EXPECT_EQ(click(kLButton), kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_EQ(button->getValue(), 0.5f);
    click(kLButton);
    EXPECT_EQ(button->getValue(), 1.0f);
    click(kLButton);
    EXPECT_EQ(button->getValue(), 0.0f);
    EXPECT_EQ(recorder.values, (std::vector<float>{0.5f, 1.0f, 0.0f}));
    // Plain changes: no edit gesture around them.
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"value 5", "value 5", "value 5"}));
}

TEST_F(CClickButtonTest, AValueOfPoint7StepsToOne)
{
    button->setValue(0.7f);
    click(kLButton);
    EXPECT_EQ(button->getValue(), 1.0f);
}

TEST_F(CClickButtonTest, MaximumOfTwoDoesNotChangeTheSteps)
{
    button->setMax(2.0f);
    click(kLButton);
    EXPECT_EQ(button->getValue(), 0.5f);
}

TEST_F(CClickButtonTest, RightClickChangesNothing)
{
    button->setValue(0.5f);
    EXPECT_EQ(click(kRButton), kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_EQ(button->getValue(), 0.5f);
    EXPECT_TRUE(recorder.events.empty());
}

TEST_F(CClickButtonTest, DrawsTheFrameOfItsState)
{
    const double frameHeight = image->getHeight() / 3;
    ASSERT_EQ(frameHeight, 18.0);
    for (const float value : {0.0f, 0.5f, 1.0f})
    {
        TestSurface surface(302, 250);
        button->setValue(value);
        button->draw(surface.getContext());
        const int frameIndex = static_cast<int>(2 * value);
        for (const auto& [x, y] : {std::pair{5, 9}, std::pair{22, 4}, std::pair{40, 14}})
            EXPECT_EQ(surface.pixel(130 + x, 151 + y),
                      TestSurface::pixelOf(image->getSurface(), x, frameIndex * 18 + y))
                << "value " << value << " at " << x << "," << y;
    }
}

TEST_F(CClickButtonTest, CopyHoldsItsOwnReferenceOnTheImage)
{
    CView* copy = button->newCopy();
    frame->removeView(button);
    EXPECT_TRUE(copy->isTypeOf("CClickButton"));
    EXPECT_EQ(static_cast<CClickButton*>(copy)->getBitmap()->getWidth(), 44.0);
    copy->forget();
}
