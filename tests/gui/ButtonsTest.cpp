#include "CKickButton.h"
#include "COnOffButton.h"
#include "CRockerSwitch.h"
#include "ControlFixture.h"
#include "TestSurface.h"

using ButtonsTest = ControlFixture;

TEST_F(ButtonsTest, OnOffButtonTogglesOnEachLeftClickAsASingleChangeWithoutAGesture)
{
    auto* bitmap = new CBitmap(137);
    auto* button = add(new COnOffButton(CRect(70, 151, 114, 169), &recorder, 3, bitmap));
    bitmap->forget();
    CPoint p(80, 160);
    EXPECT_EQ(frame->onMouseDown(p, kLButton), kMouseDownEventHandledButDontNeedMovedOrUpEvents);
    EXPECT_EQ(button->getValue(), 1.0f);
    frame->onMouseDown(p, kLButton);
    EXPECT_EQ(button->getValue(), 0.0f);
    EXPECT_EQ(recorder.values, (std::vector<float>{1.0f, 0.0f}));
    EXPECT_EQ(recorder.events, (std::vector<std::string>{"value 3", "value 3"}));
    EXPECT_EQ(frame->onMouseDown(p, kRButton), kMouseEventNotHandled);
    EXPECT_EQ(button->getValue(), 0.0f);
}

TEST_F(ButtonsTest, OnOffButtonDrawsTheLowerHalfWhenOn)
{
    auto* bitmap = new CBitmap(137);
    auto* button = add(new COnOffButton(CRect(0, 0, 44, 18), &recorder, 3, bitmap));
    TestSurface surface(44, 18);
    button->draw(surface.getContext());
    EXPECT_EQ(surface.pixel(7, 9), TestSurface::pixelOf(bitmap->getSurface(), 7, 9));
    button->setValue(1.0f);
    button->draw(surface.getContext());
    EXPECT_EQ(surface.pixel(7, 9), TestSurface::pixelOf(bitmap->getSurface(), 7, 18 + 9));
    EXPECT_NE(TestSurface::pixelOf(bitmap->getSurface(), 7, 9),
              TestSurface::pixelOf(bitmap->getSurface(), 7, 27));
    bitmap->forget();
}

TEST_F(ButtonsTest, KickButtonSendsOneOnPressAndZeroOnRelease)
{
    auto* button = add(new CKickButton(CRect(10, 10, 30, 24), &recorder, 1015, 14, nullptr));
    CPoint p(15, 15);
    EXPECT_EQ(frame->onMouseDown(p, kLButton), kMouseEventHandled);
    EXPECT_EQ(button->getValue(), 1.0f);
    frame->onMouseUp(p, kLButton);
    EXPECT_EQ(button->getValue(), 0.0f);
    EXPECT_EQ(recorder.values, (std::vector<float>{1.0f, 0.0f}));
    EXPECT_EQ(recorder.events,
              (std::vector<std::string>{"begin 1015", "value 1015", "value 1015", "end 1015"}));
}

TEST_F(ButtonsTest, KickButtonReleasesWhenDraggedOut)
{
    auto* button = add(new CKickButton(CRect(10, 10, 30, 24), &recorder, 1, 14, nullptr));
    CPoint p(15, 15), out(100, 100);
    frame->onMouseDown(p, kLButton);
    frame->onMouseMoved(out, kLButton);
    EXPECT_EQ(button->getValue(), 0.0f);
    frame->onMouseMoved(p, kLButton);
    EXPECT_EQ(button->getValue(), 1.0f);
    frame->onMouseUp(p, kLButton);
    EXPECT_EQ(button->getValue(), 0.0f);
}

TEST_F(ButtonsTest, KickButtonDrawsThePressedImageBelowTheOffset)
{
    auto* bitmap = new CBitmap(137);
    auto* button = add(new CKickButton(CRect(0, 0, 44, 18), &recorder, 1, 18, bitmap, CPoint(0, 0)));
    bitmap->forget();
    TestSurface surface(44, 18);
    button->setValue(1.0f);
    button->draw(surface.getContext());
    EXPECT_EQ(surface.pixel(7, 9), TestSurface::pixelOf(bitmap->getSurface(), 7, 27));
}

TEST_F(ButtonsTest, RockerSwitchSendsMinusOneLeftPlusOneRightAndZeroOnRelease)
{
    auto* rocker = add(new CRockerSwitch(CRect(219, 222, 250, 236), &recorder, 1001, 14, nullptr));
    EXPECT_EQ(rocker->getMin(), -1.0f);
    EXPECT_EQ(rocker->getMax(), 1.0f);
    CPoint left(225, 228), right(245, 228);
    frame->onMouseDown(left, kLButton);
    EXPECT_EQ(rocker->getValue(), -1.0f);
    frame->onMouseUp(left, kLButton);
    EXPECT_EQ(rocker->getValue(), 0.0f);
    frame->onMouseDown(right, kLButton);
    EXPECT_EQ(rocker->getValue(), 1.0f);
    frame->onMouseUp(right, kLButton);
    EXPECT_EQ(recorder.values, (std::vector<float>{-1.0f, 0.0f, 1.0f, 0.0f}));
}

TEST_F(ButtonsTest, RockerSwitchCentreLineCountsAsTheRightHalf)
{
    auto* rocker = add(new CRockerSwitch(CRect(219, 222, 250, 236), &recorder, 1001, 14, nullptr));
    CPoint centre(234.5, 228);
    frame->onMouseDown(centre, kLButton);
    EXPECT_EQ(rocker->getValue(), 1.0f);
    frame->onMouseUp(centre, kLButton);
}
