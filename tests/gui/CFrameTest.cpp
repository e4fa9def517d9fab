#include "CFrame.h"
#include "ProbeView.h"
#include "RecordingListener.h"
#include "TestSurface.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <thread>

namespace
{
struct FrameFixture : ::testing::Test
{
    FrameFixture()
    {
        frame = new CFrame(CRect(0, 0, 100, 80), nullptr, &editor);
        left = new ProbeView(CRect(10, 10, 40, 40), kRedCColor);
        right = new ProbeView(CRect(50, 10, 90, 40), kBlueCColor);
        frame->addView(left);
        frame->addView(right);
    }
    ~FrameFixture() override { frame->forget(); }

    RecordingListener editor;
    CFrame* frame;
    ProbeView* left;
    ProbeView* right;
};
} // namespace

TEST_F(FrameFixture, PressGoesToTheViewUnderItAndMovesAndReleaseFollowIt)
{
    CPoint p(20, 20);
    EXPECT_EQ(frame->onMouseDown(p, kLButton), kMouseEventHandled);
    CPoint q(70, 20);
    frame->onMouseMoved(q, kLButton);
    frame->onMouseUp(q, kLButton);
    EXPECT_EQ(left->events, (std::vector<std::string>{"down", "moved", "up"}));
    EXPECT_TRUE(right->events.empty());
    EXPECT_EQ(left->lastPoint, q);
}

TEST_F(FrameFixture, MovesWithoutAPressGoToTheViewUnderThePointer)
{
    CPoint overRight(60, 20), overNothing(45, 60);
    EXPECT_EQ(frame->onMouseMoved(overRight, 0), kMouseEventHandled);
    EXPECT_EQ(frame->onMouseMoved(overNothing, 0), kMouseEventNotHandled);
    EXPECT_EQ(right->events, std::vector<std::string>{"moved"});
    EXPECT_TRUE(left->events.empty());
}

TEST_F(FrameFixture, PressOnNothingIsNotHandled)
{
    CPoint p(45, 60);
    EXPECT_EQ(frame->onMouseDown(p, kLButton), kMouseEventNotHandled);
    EXPECT_TRUE(left->events.empty());
    EXPECT_TRUE(right->events.empty());
}

TEST_F(FrameFixture, TopmostOverlappingChildGetsThePress)
{
    auto* cover = new ProbeView(CRect(0, 0, 30, 30), kGreenCColor);
    frame->addView(cover);
    CPoint p(20, 20);
    frame->onMouseDown(p, kLButton);
    EXPECT_EQ(cover->events, std::vector<std::string>{"down"});
    EXPECT_TRUE(left->events.empty());
}

TEST_F(FrameFixture, ChildThatDoesNotHandleLetsThePressThrough)
{
    auto* glass = new ProbeView(CRect(0, 0, 30, 30), kGreenCColor, kMouseEventNotHandled);
    frame->addView(glass);
    CPoint p(20, 20);
    frame->onMouseDown(p, kLButton);
    EXPECT_EQ(glass->events, std::vector<std::string>{"down"});
    EXPECT_EQ(left->events, std::vector<std::string>{"down"});
}

TEST_F(FrameFixture, WheelGoesToTheViewUnderThePointer)
{
    EXPECT_TRUE(frame->onWheel(CPoint(60, 20), kMouseWheelAxisY, 1.0f, 0));
    EXPECT_EQ(right->events, std::vector<std::string>{"wheel 1 1"});
    EXPECT_FALSE(frame->onWheel(CPoint(5, 70), kMouseWheelAxisY, 1.0f, 0));
}

TEST_F(FrameFixture, HoverEntersAndExitsViewsAsThePointerMoves)
{
    CPoint a(20, 20), b(60, 20), outside(5, 70);
    frame->platformOnMouseMoved(a, 0);
    frame->platformOnMouseMoved(b, 0);
    frame->platformOnMouseMoved(outside, 0);
    EXPECT_EQ(left->events, (std::vector<std::string>{"entered", "moved", "exited"}));
    EXPECT_EQ(right->events, (std::vector<std::string>{"entered", "moved", "exited"}));
    EXPECT_EQ(frame->getMouseOverView(), nullptr);
}

TEST_F(FrameFixture, PointerLeavingTheWindowExitsTheHoveredView)
{
    CPoint a(20, 20);
    frame->platformOnMouseMoved(a, 0);
    frame->platformOnMouseExited(a, 0);
    EXPECT_EQ(left->events, (std::vector<std::string>{"entered", "moved", "exited"}));
}

TEST_F(FrameFixture, SecondQuickPressAtTheSamePlaceIsADoubleClick)
{
    CPoint p(20, 20);
    frame->platformOnMouseDown(p, kLButton);
    EXPECT_FALSE(left->lastButtons & kDoubleClick);
    frame->platformOnMouseUp(p, kLButton);
    frame->platformOnMouseDown(p, kLButton);
    EXPECT_TRUE(left->lastButtons & kDoubleClick);
    frame->platformOnMouseUp(p, kLButton);
    // A third press starts a new pair.
    frame->platformOnMouseDown(p, kLButton);
    EXPECT_FALSE(left->lastButtons & kDoubleClick);
}

TEST_F(FrameFixture, SlowSecondPressIsNoDoubleClick)
{
    CPoint p(20, 20);
    frame->platformOnMouseDown(p, kLButton);
    frame->platformOnMouseUp(p, kLButton);
    std::this_thread::sleep_for(std::chrono::milliseconds(350));
    frame->platformOnMouseDown(p, kLButton);
    EXPECT_FALSE(left->lastButtons & kDoubleClick);
}

TEST_F(FrameFixture, DirtyViewsAreRepaintedByIdleOnly)
{
    EXPECT_FALSE(frame->getInvalidRect().isEmpty()) << "adding views asks for their repaint";
    TestSurface surface(100, 80);
    frame->paint(surface.getContext());
    EXPECT_TRUE(frame->getInvalidRect().isEmpty());
    right->setDirty();
    EXPECT_TRUE(frame->getInvalidRect().isEmpty());
    frame->idle();
    EXPECT_EQ(frame->getInvalidRect(), CRect(50, 10, 90, 40));
    EXPECT_FALSE(right->isDirty());
}

TEST_F(FrameFixture, PaintDrawsBackgroundColourAndChildrenInTheirPlaces)
{
    frame->setBackgroundColor(kBlackCColor);
    TestSurface surface(100, 80);
    surface.clear(kWhiteCColor);
    frame->paint(surface.getContext());
    EXPECT_EQ(surface.pixel(20, 20), kRedCColor);
    EXPECT_EQ(surface.pixel(60, 20), kBlueCColor);
    EXPECT_EQ(surface.pixel(45, 60), kBlackCColor);
}

TEST_F(FrameFixture, PaintOfAnUpdateRectangleDrawsOnlyWhatItOverlaps)
{
    TestSurface surface(100, 80);
    frame->paint(surface.getContext(), CRect(0, 0, 45, 80));
    EXPECT_EQ(left->draws, 1);
    EXPECT_EQ(right->draws, 0);
}

TEST_F(FrameFixture, ModalViewTakesThePressesOnItAndOnlyThose)
{
    auto* modal = new ProbeView(CRect(0, 0, 30, 30), kGreenCColor);
    EXPECT_TRUE(frame->setModalView(modal));
    EXPECT_TRUE(frame->isChild(modal));
    auto* second = new ProbeView(CRect(), kGreenCColor);
    EXPECT_FALSE(frame->setModalView(second)) << "one modal view at a time";
    second->forget();
    CPoint onModal(20, 20), elsewhere(60, 20);
    frame->onMouseDown(onModal, kLButton);
    frame->onMouseDown(elsewhere, kLButton);
    EXPECT_EQ(modal->events, (std::vector<std::string>{"down"}));
    EXPECT_TRUE(left->events.empty());
    EXPECT_TRUE(right->events.empty());
    // Clearing it takes it out of the children without freeing it.
    modal->remember();
    EXPECT_TRUE(frame->setModalView(nullptr));
    EXPECT_FALSE(frame->isChild(modal));
    EXPECT_EQ(modal->getNbReference(), 2);
    modal->forget();
    modal->forget();
}

TEST_F(FrameFixture, FocusViewGetsTheKeysAndLetsGoOnAClickElsewhere)
{
    frame->setFocusView(left);
    VstKeyCode key;
    key.character = 'a';
    EXPECT_EQ(frame->platformOnKeyDown(key), 1);
    CPoint elsewhere(60, 20);
    frame->onMouseDown(elsewhere, kLButton);
    EXPECT_EQ(left->events, (std::vector<std::string>{"takeFocus", "key 97 0", "looseFocus"}));
    EXPECT_EQ(frame->getFocusView(), nullptr);
    EXPECT_EQ(frame->platformOnKeyDown(key), -1);
}

TEST_F(FrameFixture, LosingTheWindowFocusEndsTheFocusView)
{
    frame->setFocusView(right);
    frame->platformOnFocusLost();
    EXPECT_EQ(frame->getFocusView(), nullptr);
    EXPECT_EQ(right->events.back(), "looseFocus");
}

TEST_F(FrameFixture, RemovedViewIsForgottenByTheFrame)
{
    CPoint p(20, 20);
    frame->platformOnMouseMoved(p, 0);
    frame->setFocusView(left);
    frame->onMouseDown(p, kLButton);
    left->remember();
    frame->removeView(left, true);
    EXPECT_EQ(frame->getMouseOverView(), nullptr);
    EXPECT_EQ(frame->getFocusView(), nullptr);
    EXPECT_EQ(frame->onMouseUp(p, kLButton), kMouseEventNotHandled);
    EXPECT_EQ(left->getNbReference(), 1);
    left->forget();
}

TEST_F(FrameFixture, EditGesturesReachTheEditor)
{
    frame->beginEdit(3);
    frame->endEdit(3);
    EXPECT_EQ(editor.events, (std::vector<std::string>{"begin 3", "end 3"}));
    EXPECT_EQ(frame->getKnobMode(), 2);
}

TEST(CFrameClose, CloseFreesEveryView)
{
    auto* frame = new CFrame(CRect(0, 0, 50, 50), nullptr, nullptr);
    auto* view = new ProbeView(CRect(0, 0, 10, 10), kRedCColor);
    view->remember();
    frame->addView(view);
    EXPECT_EQ(view->getNbReference(), 2);
    frame->close();
    EXPECT_EQ(view->getNbReference(), 1);
    EXPECT_EQ(view->getFrame(), nullptr);
    view->forget();
}

TEST(CFrameWindow, WithoutADisplayTheFrameWorksUnseen)
{
    const char* display = std::getenv("DISPLAY");
    const std::string saved = display ? display : "";
    unsetenv("DISPLAY");
    auto* frame = new CFrame(CRect(0, 0, 50, 50), reinterpret_cast<void*>(0x1234), nullptr);
    if (!saved.empty()) setenv("DISPLAY", saved.c_str(), 1);
    EXPECT_EQ(frame->getPlatformWindow(), nullptr);
    auto* view = new ProbeView(CRect(0, 0, 10, 10), kRedCColor);
    frame->addView(view);
    frame->idle();
    TestSurface surface(50, 50);
    frame->paint(surface.getContext());
    EXPECT_EQ(surface.pixel(5, 5), kRedCColor);
    frame->close();
}
