#include "CParamDisplay.h"
#include "CTextLabel.h"
#include "ControlFixture.h"
#include "TestSurface.h"

#include <cstring>

namespace
{
void captionConvert(float value, char* text)
{
    std::strcpy(text, value >= 1.0f ? "M" : "S");
}

// Columns [from, to) of row y that hold dark ink.
int darkPixels(const TestSurface& surface, int fromX, int toX, int fromY, int toY)
{
    int count = 0;
    for (int y = fromY; y < toY; ++y)
        for (int x = fromX; x < toX; ++x)
            if (surface.pixel(x, y).red < 60) ++count;
    return count;
}
} // namespace

TEST(CParamDisplay, DrawsItsBackgroundFromTheBackOffset)
{
    auto* background = new CBitmap(128);
    auto* display = new CParamDisplay(CRect(10, 10, 50, 27), background, kNoTextStyle);
    display->setBackOffset(CPoint(258, 59));
    TestSurface surface(60, 40);
    surface.clear(kRedCColor);
    display->draw(surface.getContext());
    EXPECT_EQ(surface.pixel(10, 10), TestSurface::pixelOf(background->getSurface(), 258, 59));
    EXPECT_EQ(surface.pixel(49, 26), TestSurface::pixelOf(background->getSurface(), 297, 75));
    EXPECT_EQ(surface.pixel(50, 26), kRedCColor);
    display->forget();
    background->forget();
}

TEST(CParamDisplay, ShowsTheValueThroughTheInstalledConverter)
{
    auto* display = new CParamDisplay(CRect(0, 0, 40, 17));
    display->setBackColor(kWhiteCColor);
    display->setFontColor(kBlackCColor);
    display->setStyle(kNoFrame);
    display->setStringConvert(captionConvert);
    EXPECT_EQ(display->getStringConvert(), &captionConvert);
    TestSurface mSurface(40, 17), sSurface(40, 17);
    display->setValue(1.0f);
    display->draw(mSurface.getContext());
    display->setValue(0.0f);
    display->draw(sSurface.getContext());
    // "M" is wider than "S": the converter decided what was drawn.
    EXPECT_GT(darkPixels(mSurface, 0, 40, 0, 17), darkPixels(sSurface, 0, 40, 0, 17));
    EXPECT_GT(darkPixels(sSurface, 0, 40, 0, 17), 5);
    display->forget();
}

TEST(CParamDisplay, AlignmentPlacesTheText)
{
    for (CHoriTxtAlign align : {kLeftText, kRightText})
    {
        auto* display = new CParamDisplay(CRect(0, 0, 60, 17), nullptr, kNoFrame);
        display->setBackColor(kWhiteCColor);
        display->setFontColor(kBlackCColor);
        display->setHoriAlign(align);
        display->setStringConvert(captionConvert);
        TestSurface surface(60, 17);
        display->draw(surface.getContext());
        const int leftInk = darkPixels(surface, 0, 30, 0, 17);
        const int rightInk = darkPixels(surface, 30, 60, 0, 17);
        if (align == kLeftText)
        {
            EXPECT_TRUE(leftInk > 0 && rightInk == 0);
        }
        else
        {
            EXPECT_TRUE(rightInk > 0 && leftInk == 0);
        }
        display->forget();
    }
}

TEST(CParamDisplay, FrameIsDrawnUnlessNoFrameStyle)
{
    for (int32_t style : {0, static_cast<int32_t>(kNoFrame)})
    {
        auto* display = new CParamDisplay(CRect(0, 0, 20, 20), nullptr, style);
        display->setBackColor(kWhiteCColor);
        display->setFrameColor(kRedCColor);
        display->setStringConvert([](float, char* text) { text[0] = 0; });
        TestSurface surface(20, 20);
        display->draw(surface.getContext());
        EXPECT_EQ(surface.pixel(0, 10), style ? kWhiteCColor : kRedCColor);
        EXPECT_EQ(surface.pixel(10, 10), kWhiteCColor);
        display->forget();
    }
}

TEST(CParamDisplay, TransparentDisplayLeavesWhatIsBelow)
{
    auto* display = new CParamDisplay(CRect(0, 0, 20, 20));
    display->setTransparency(true);
    display->setStringConvert([](float, char* text) { text[0] = 0; });
    TestSurface surface(20, 20);
    surface.clear(kBlueCColor);
    display->draw(surface.getContext());
    EXPECT_EQ(surface.pixel(0, 0), kBlueCColor);
    EXPECT_EQ(surface.pixel(10, 10), kBlueCColor);
    display->forget();
}

TEST(CParamDisplay, WithoutConverterShowsTwoDecimals)
{
    auto* withText = new CParamDisplay(CRect(0, 0, 60, 17), nullptr, kNoFrame);
    withText->setBackColor(kWhiteCColor);
    withText->setFontColor(kBlackCColor);
    withText->setValue(0.25f);
    TestSurface surface(60, 17);
    withText->draw(surface.getContext());
    EXPECT_GT(darkPixels(surface, 0, 60, 0, 17), 10);
    withText->forget();
}

TEST(CTextLabel, DrawsItsTextAndBecomesDirtyWhenItChanges)
{
    auto* label = new CTextLabel(CRect(0, 0, 80, 17), "preset");
    label->setBackColor(kWhiteCColor);
    label->setFontColor(kBlackCColor);
    label->setStyle(kNoFrame);
    EXPECT_STREQ(label->getText(), "preset");
    TestSurface surface(80, 17);
    label->draw(surface.getContext());
    EXPECT_GT(darkPixels(surface, 0, 80, 0, 17), 10);
    EXPECT_FALSE(label->isDirty());
    label->setText("other");
    EXPECT_TRUE(label->isDirty());
    EXPECT_STREQ(label->getText(), "other");
    label->forget();
}
