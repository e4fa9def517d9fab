// The about area and the about screen it opens over the frame.
#include "CAbout.h"
#include "CBitmap.h"
#include "CSplashScreenMyView.h"
#include "MyFrame.h"
#include "RecordingListener.h"
#include "TestSurface.h"

#include <gtest/gtest.h>

namespace
{
struct CAboutTest : ::testing::Test
{
    CAboutTest()
        : frame(new MyFrame(CRect(0, 0, 302, 250), nullptr, &recorder)), image(new CBitmap(140)),
          about(new CAbout(CRect(70, 184, 225, 204), &recorder, 7, image, CRect(31, 32, 271, 182),
                           CPoint(0, 0), CPoint(0, 12)))
    {
        frame->addView(about);
    }
    ~CAboutTest() override
    {
        frame->forget();
        image->forget();
    }
    CMouseEventResult click(double x, double y, long buttons = kLButton)
    {
        CPoint where(x, y);
        return frame->onMouseDown(where, CButtonState(buttons));
    }

    RecordingListener recorder;
    MyFrame* frame;
    CBitmap* image;
    CAbout* about;
};
} // namespace

TEST_F(CAboutTest, LeftClickShowsTheScreenWithoutTellingTheListener)
{
    EXPECT_EQ(click(100, 190), kMouseEventHandled);
    EXPECT_EQ(about->getValue(), 1.0f);
    CView* screen = frame->getModalView();
    ASSERT_NE(screen, nullptr);
    EXPECT_TRUE(screen->isTypeOf("CSplashScreenMyView"));
    EXPECT_EQ(screen->getViewSize(), CRect(31, 32, 271, 182));
    EXPECT_TRUE(recorder.events.empty());
}

TEST_F(CAboutTest, RightClickOpensNothing)
{
    EXPECT_EQ(click(100, 190, kRButton), kMouseEventNotHandled);
    EXPECT_EQ(about->getValue(), 0.0f);
    EXPECT_EQ(frame->getModalView(), nullptr);
}

TEST_F(CAboutTest, AnyLeftClickOnTheScreenClosesIt)
{
    for (const auto& [x, y] : {std::pair{32.0, 33.0}, std::pair{150.0, 100.0}, std::pair{270.0, 181.0}})
    {
        click(100, 190);
        ASSERT_NE(frame->getModalView(), nullptr);
        // A right click leaves it open.
        EXPECT_EQ(click(x, y, kRButton), kMouseEventNotHandled);
        ASSERT_NE(frame->getModalView(), nullptr);
        EXPECT_EQ(click(x, y), kMouseEventHandled);
        EXPECT_EQ(frame->getModalView(), nullptr);
        EXPECT_EQ(about->getValue(), 0.0f);
        EXPECT_EQ(frame->getNbViews(), 1);
    }
}

TEST_F(CAboutTest, ControlsBeneathTheScreenGetNoClicksAndAClickBesideItClosesIt)
{
    click(100, 190);
    // The about area lies outside the screen: the click goes to the screen, which closes, and the about
    // control beneath does not open it again.
    EXPECT_EQ(click(100, 190), kMouseEventHandled);
    EXPECT_EQ(about->getValue(), 0.0f);
    EXPECT_EQ(frame->getModalView(), nullptr);
    EXPECT_EQ(frame->getNbViews(), 1);
}

TEST_F(CAboutTest, ScreenDrawsTheImageWithFourLinesOfText)
{
    click(100, 190);
    CView* screen = frame->getModalView();
    TestSurface surface(302, 250);
    screen->draw(surface.getContext());
    // Rows of the screen (from its top) that the text changed against the bare image.
    auto rowChanged = [&](int row)
    {
        for (int x = 0; x < 240; ++x)
            if (surface.pixel(31 + x, 32 + row) != TestSurface::pixelOf(image->getSurface(), x, row))
                return true;
        return false;
    };
    // Boxes of 15 px at 12, 29, 46 and 83: text in each, none between the third and the fourth.
    for (const int box : {12, 29, 46, 83})
    {
        bool inked = false;
        for (int row = box; row < box + 15; ++row)
            inked = inked || rowChanged(row);
        EXPECT_TRUE(inked) << "box at " << box;
    }
    for (int row = 63; row < 81; ++row)
        EXPECT_FALSE(rowChanged(row)) << "row " << row;
    EXPECT_EQ(TestSurface::pixelOf(image->getSurface(), 5, 140), surface.pixel(36, 172));
}

TEST_F(CAboutTest, TheScreensColoursAreTheProductsOwn)
{
    EXPECT_EQ(kDarkBlueCColor, MakeCColor(45, 45, 120, 255));
    EXPECT_EQ(kDarkGreyCColor, MakeCColor(60, 60, 60, 255));
}
