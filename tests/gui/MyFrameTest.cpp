#include "MyFrame.h"
#include "CHorizontalSlider.h"
#include "ProbeView.h"
#include "RecordingListener.h"
#include "TestSurface.h"

#include <gtest/gtest.h>

namespace
{
struct MyFrameTest : ::testing::Test
{
    MyFrameTest()
    {
        frame = new MyFrame(CRect(0, 0, 100, 80), nullptr, &editor);
        child = new ProbeView(CRect(10, 10, 40, 40), kRedCColor);
        frame->addView(child);
        modal = new ProbeView(CRect(50, 50, 70, 70), kGreenCColor);
    }
    ~MyFrameTest() override
    {
        frame->closeModal();
        frame->forget();
        modal->forget();
    }

    RecordingListener editor;
    MyFrame* frame;
    ProbeView* child;
    ProbeView* modal;
};
} // namespace

TEST_F(MyFrameTest, ModalViewTakesEveryClickEvenOutsideItsRectangle)
{
    frame->makeModal(modal);
    CPoint onChild(20, 20);
    EXPECT_EQ(frame->onMouseDown(onChild, kLButton), kMouseEventHandled);
    frame->onMouseMoved(onChild, kLButton);
    frame->onMouseUp(onChild, kLButton);
    EXPECT_EQ(modal->events, (std::vector<std::string>{"down", "moved", "up"}));
    // The point reaches it unchanged, in frame coordinates.
    EXPECT_EQ(modal->lastPoint, CPoint(20, 20));
    EXPECT_EQ(modal->lastButtons, kLButton);
    EXPECT_TRUE(child->events.empty());
}

TEST_F(MyFrameTest, ModalViewTakesTheWheelAndAnswersForIt)
{
    frame->makeModal(modal);
    EXPECT_TRUE(frame->onWheel(CPoint(20, 20), kMouseWheelAxisY, -1.0f, 0));
    EXPECT_EQ(modal->events, std::vector<std::string>{"wheel 1 -1"});
    EXPECT_TRUE(child->events.empty());
}

TEST_F(MyFrameTest, NoControlChangesValueWhileAModalViewIsHeld)
{
    auto* slider = new CHorizontalSlider(CRect(0, 50, 40, 60), &editor, 0, 0, 30, nullptr, nullptr);
    frame->addView(slider);
    frame->makeModal(modal);
    CPoint onSlider(20, 55);
    frame->onMouseDown(onSlider, kLButton);
    CPoint dragged(35, 55);
    frame->onMouseMoved(dragged, kLButton);
    frame->onMouseUp(dragged, kLButton);
    frame->onWheel(onSlider, kMouseWheelAxisY, 1.0f, 0);
    EXPECT_EQ(slider->getValue(), 0.0f);
    EXPECT_TRUE(editor.events.empty());
}

TEST_F(MyFrameTest, WithoutModalViewItRoutesLikeThePlainFrame)
{
    EXPECT_EQ(frame->getModal(), nullptr);
    CPoint onChild(20, 20), nowhere(90, 5);
    EXPECT_EQ(frame->onMouseDown(onChild, kLButton), kMouseEventHandled);
    frame->onMouseUp(onChild, kLButton);
    EXPECT_EQ(frame->onMouseDown(nowhere, kLButton), kMouseEventNotHandled);
    EXPECT_TRUE(frame->onWheel(CPoint(20, 20), kMouseWheelAxisY, 1.0f, 0));
    EXPECT_FALSE(frame->onWheel(CPoint(90, 5), kMouseWheelAxisY, 1.0f, 0));
    EXPECT_EQ(child->events, (std::vector<std::string>{"down", "up", "wheel 1 1"}));
}

TEST_F(MyFrameTest, WithoutModalViewThePlatformPressStillMakesDoubleClicks)
{
    CPoint onChild(20, 20);
    frame->platformOnMouseDown(onChild, kLButton);
    frame->platformOnMouseUp(onChild, kLButton);
    frame->platformOnMouseDown(onChild, kLButton);
    EXPECT_TRUE(child->lastButtons & kDoubleClick);
}

TEST_F(MyFrameTest, ModalViewIsDrawnLastOverTheChildren)
{
    auto* over = new ProbeView(CRect(50, 50, 70, 70), kBlueCColor);
    frame->addView(over);
    frame->makeModal(modal);
    TestSurface surface(100, 80);
    frame->paint(surface.getContext());
    EXPECT_EQ(surface.pixel(60, 60), kGreenCColor);
    EXPECT_EQ(surface.pixel(20, 20), kRedCColor);
}

TEST_F(MyFrameTest, UpdateWhollyOutsideTheModalViewDoesNotDrawIt)
{
    frame->makeModal(modal);
    TestSurface surface(100, 80);
    frame->drawRect(surface.getContext(), CRect(0, 0, 45, 45));
    EXPECT_EQ(modal->draws, 0);
    EXPECT_EQ(child->draws, 1);
}

TEST_F(MyFrameTest, UpdateThatOnlyTouchesTheModalViewsEdgeDrawsIt)
{
    frame->makeModal(modal);
    TestSurface surface(100, 80);
    // Right edge of the update at x 50, the modal view's left edge.
    frame->drawRect(surface.getContext(), CRect(0, 0, 50, 60));
    EXPECT_EQ(modal->draws, 1);
    // Below it: the update's top at y 70, the modal view's bottom.
    frame->drawRect(surface.getContext(), CRect(55, 70, 65, 80));
    EXPECT_EQ(modal->draws, 2);
    // One pixel away: no draw.
    frame->drawRect(surface.getContext(), CRect(71, 0, 100, 80));
    EXPECT_EQ(modal->draws, 2);
}

TEST_F(MyFrameTest, ZeroSizeUpdateDrawsNothingAndLeavesTheClip)
{
    frame->makeModal(modal);
    frame->setBackgroundColor(kWhiteCColor);
    TestSurface surface(100, 80);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    context->setClipRect(CRect(5, 5, 60, 60));
    frame->drawRect(context, CRect(10, 10, 10, 50));
    frame->drawRect(context, CRect(10, 10, 50, 10));
    CRect clip;
    EXPECT_EQ(context->getClipRect(clip), CRect(5, 5, 60, 60));
    EXPECT_EQ(child->draws, 0);
    EXPECT_EQ(modal->draws, 0);
    EXPECT_EQ(surface.pixel(20, 20), kBlackCColor);
    EXPECT_EQ(context->getNbReference(), 1);
}

TEST_F(MyFrameTest, DrawingRestoresTheClipAndTheContextReference)
{
    TestSurface surface(100, 80);
    auto* context = surface.getContext();
    context->setClipRect(CRect(0, 0, 90, 70));
    frame->drawRect(context, CRect(0, 0, 50, 50));
    CRect clip;
    EXPECT_EQ(context->getClipRect(clip), CRect(0, 0, 90, 70));
    EXPECT_EQ(context->getNbReference(), 1);
}

TEST_F(MyFrameTest, UpdateIsBoundedByTheClipThatWasSet)
{
    frame->setBackgroundColor(kWhiteCColor);
    TestSurface surface(100, 80);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    context->setClipRect(CRect(0, 0, 20, 20));
    frame->drawRect(context, CRect(0, 0, 100, 80));
    EXPECT_EQ(surface.pixel(15, 15), kRedCColor);
    EXPECT_EQ(surface.pixel(30, 30), kBlackCColor);
}

TEST_F(MyFrameTest, CloseModalWithNoneHeldStillInvalidatesTheFrame)
{
    TestSurface surface(100, 80);
    frame->paint(surface.getContext());
    ASSERT_TRUE(frame->getInvalidRect().isEmpty());
    frame->closeModal();
    EXPECT_EQ(frame->getInvalidRect(), CRect(0, 0, 100, 80));
}

TEST_F(MyFrameTest, CloseModalClearsTheViewAndRepaintsWhereItWas)
{
    frame->makeModal(modal);
    TestSurface surface(100, 80);
    frame->paint(surface.getContext());
    frame->closeModal();
    EXPECT_EQ(frame->getModal(), nullptr);
    EXPECT_TRUE(frame->getInvalidRect().rectOverlap(modal->getViewSize()));
}

TEST_F(MyFrameTest, MakeModalNeitherAttachesNorRepaints)
{
    TestSurface surface(100, 80);
    frame->paint(surface.getContext());
    frame->makeModal(modal);
    EXPECT_EQ(frame->getModal(), modal);
    EXPECT_FALSE(frame->isChild(modal));
    EXPECT_TRUE(frame->getInvalidRect().isEmpty());
}

TEST_F(MyFrameTest, IdleRepaintsTheWholeFrameWhileAModalViewIsHeld)
{
    TestSurface surface(100, 80);
    frame->paint(surface.getContext());
    frame->idle();
    EXPECT_TRUE(frame->getInvalidRect().isEmpty());
    frame->makeModal(modal);
    frame->idle();
    EXPECT_EQ(frame->getInvalidRect(), CRect(0, 0, 100, 80));
}

TEST_F(MyFrameTest, IdleRepaintsDirtyViews)
{
    TestSurface surface(100, 80);
    frame->paint(surface.getContext());
    child->setDirty();
    frame->idle();
    EXPECT_EQ(frame->getInvalidRect(), CRect(10, 10, 40, 40));
}

TEST_F(MyFrameTest, GetsFocusDefaultsToTrueAndIsStored)
{
    EXPECT_TRUE(frame->getGetsFocus());
    frame->setGetsFocus(false);
    EXPECT_FALSE(frame->getGetsFocus());
}
