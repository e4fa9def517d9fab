#include "CSplashScreen.h"
#include "ControlFixture.h"
#include "TestSurface.h"

namespace
{
struct SplashTest : ControlFixture
{
    SplashTest() : image(new CBitmap(128))
    {
        splash = add(new CSplashScreen(CRect(70, 184, 225, 204), &recorder, 7, image, CRect(0, 0, 302, 214)));
    }
    ~SplashTest() override { image->forget(); }

    CBitmap* image;
    CSplashScreen* splash;
};
} // namespace

TEST_F(SplashTest, ClickShowsTheImageAsTheFramesModalView)
{
    CPoint p(100, 190);
    frame->onMouseDown(p, kLButton);
    EXPECT_EQ(splash->getValue(), 1.0f);
    ASSERT_NE(frame->getModalView(), nullptr);
    EXPECT_EQ(frame->getModalView()->getViewSize(), CRect(0, 0, 302, 214));
    EXPECT_EQ(recorder.values, std::vector<float>{1.0f});
    TestSurface surface(302, 250);
    surface.clear(kRedCColor);
    frame->paint(surface.getContext());
    EXPECT_EQ(surface.pixel(150, 100), TestSurface::pixelOf(image->getSurface(), 150, 100));
}

TEST_F(SplashTest, ClickOnTheSplashClosesItAndResetsTheValue)
{
    CPoint p(100, 190);
    frame->onMouseDown(p, kLButton);
    frame->onMouseUp(p, kLButton);
    CPoint anywhere(10, 10);
    frame->onMouseDown(anywhere, kLButton);
    EXPECT_EQ(frame->getModalView(), nullptr);
    EXPECT_EQ(splash->getValue(), 0.0f);
    EXPECT_EQ(frame->getNbViews(), 1);
    EXPECT_EQ(recorder.values, (std::vector<float>{1.0f, 0.0f}));
}

TEST_F(SplashTest, RightClickDoesNothing)
{
    CPoint p(100, 190);
    EXPECT_EQ(frame->onMouseDown(p, kRButton), kMouseEventNotHandled);
    EXPECT_EQ(frame->getModalView(), nullptr);
}

TEST_F(SplashTest, UnSplashWithoutOpenViewOnlyResetsTheValue)
{
    splash->setValue(1.0f);
    splash->unSplash();
    EXPECT_EQ(splash->getValue(), 0.0f);
    EXPECT_EQ(frame->getNbViews(), 1);
}
