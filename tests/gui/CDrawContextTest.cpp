#include "TestSurface.h"

#include <gtest/gtest.h>

TEST(CDrawContext, FillRectCoversExactlyTheRectangle)
{
    TestSurface surface(20, 20);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    context->setFillColor(kRedCColor);
    context->fillRect(CRect(5, 5, 10, 8));
    EXPECT_EQ(surface.pixel(5, 5), kRedCColor);
    EXPECT_EQ(surface.pixel(9, 7), kRedCColor);
    EXPECT_EQ(surface.pixel(10, 7), kBlackCColor);
    EXPECT_EQ(surface.pixel(9, 8), kBlackCColor);
}

TEST(CDrawContext, FrameRectDrawsOnePixelInsideTheEdge)
{
    TestSurface surface(20, 20);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    context->setFrameColor(kWhiteCColor);
    context->drawRect(CRect(2, 2, 12, 12));
    EXPECT_EQ(surface.pixel(2, 2), kWhiteCColor);
    EXPECT_EQ(surface.pixel(11, 6), kWhiteCColor);
    EXPECT_EQ(surface.pixel(6, 11), kWhiteCColor);
    EXPECT_EQ(surface.pixel(6, 6), kBlackCColor);
    EXPECT_EQ(surface.pixel(12, 6), kBlackCColor);
}

TEST(CDrawContext, OnePixelLinesAreCrisp)
{
    TestSurface surface(20, 20);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    context->setFrameColor(kGreyCColor);
    context->drawLine(CPoint(0, 5), CPoint(20, 5));
    EXPECT_EQ(surface.pixel(10, 5), kGreyCColor);
    EXPECT_EQ(surface.pixel(10, 4), kBlackCColor);
    EXPECT_EQ(surface.pixel(10, 6), kBlackCColor);
    context->moveTo(CPoint(3, 0));
    context->lineTo(CPoint(3, 20));
    EXPECT_EQ(surface.pixel(3, 12), kGreyCColor);
}

TEST(CDrawContext, ClipRectIsKeptAndLimitsDrawing)
{
    TestSurface surface(20, 20);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    CRect clip;
    EXPECT_EQ(context->getClipRect(clip), CRect(0, 0, 20, 20));
    context->setClipRect(CRect(0, 0, 10, 10));
    EXPECT_EQ(context->getClipRect(clip), CRect(0, 0, 10, 10));
    context->setFillColor(kWhiteCColor);
    context->fillRect(CRect(0, 0, 20, 20));
    EXPECT_EQ(surface.pixel(9, 9), kWhiteCColor);
    EXPECT_EQ(surface.pixel(10, 10), kBlackCColor);
    context->resetClipRect();
    EXPECT_EQ(context->getClipRect(clip), CRect(0, 0, 20, 20));
}

namespace
{
// The left- and rightmost columns that hold ink of the string.
std::pair<int, int> inkColumns(const TestSurface& surface, int width, int height)
{
    int first = -1, last = -1;
    for (int x = 0; x < width; ++x)
        for (int y = 0; y < height; ++y)
            if (surface.pixel(x, y).red > 128)
            {
                if (first < 0) first = x;
                last = x;
                break;
            }
    return {first, last};
}
} // namespace

TEST(CDrawContext, StringsAlignLeftCentreAndRight)
{
    for (CHoriTxtAlign align : {kLeftText, kCenterText, kRightText})
    {
        TestSurface surface(100, 20);
        surface.clear(kBlackCColor);
        auto* context = surface.getContext();
        context->setFont(kNormalFont);
        context->setFontColor(kWhiteCColor);
        context->drawString("Mid", CRect(0, 0, 100, 20), align);
        const auto [first, last] = inkColumns(surface, 100, 20);
        ASSERT_GE(first, 0);
        if (align == kLeftText)
        {
            EXPECT_LE(first, 2);
        }
        else if (align == kRightText)
        {
            EXPECT_GE(last, 96);
        }
        else
        {
            EXPECT_NEAR((first + last) / 2.0, 50.0, 2.0);
        }
    }
}

TEST(CDrawContext, TextThatIsNotUtf8IsDrawnWithReplacementCharactersAndDrawingGoesOn)
{
    TestSurface surface(200, 40);
    surface.clear(kBlackCColor);
    auto* context = surface.getContext();
    context->setFont(kNormalFont);
    context->setFontColor(kWhiteCColor);
    // 22 letters and the first byte of an "é" whose second byte was cut away.
    const char* broken = "abcdefghijklmnopqrstuv\xC3";
    const double width = context->getStringWidth(broken);
    EXPECT_GT(width, context->getStringWidth("abcdefghijklmnopqrstuv"));
    EXPECT_EQ(width, context->getStringWidth("abcdefghijklmnopqrstuv\xEF\xBF\xBD"));
    context->drawString(broken, CRect(0, 0, 200, 20), kLeftText);
    // Whatever comes after still draws.
    context->setFillColor(kRedCColor);
    context->drawRect(CRect(0, 25, 200, 40), kDrawFilled);
    EXPECT_EQ(surface.pixel(100, 30), kRedCColor);
    context->drawString("after", CRect(0, 20, 200, 40), kLeftText);
    EXPECT_EQ(cairo_status(context->getCairo()), CAIRO_STATUS_SUCCESS);
}

TEST(CDrawContext, StringWidthGrowsWithFontSize)
{
    TestSurface surface(10, 10);
    auto* context = surface.getContext();
    context->setFont(kNormalFontSmall);
    const double small = context->getStringWidth("depth");
    context->setFont(kNormalFontBig);
    const double big = context->getStringWidth("depth");
    EXPECT_GT(small, 10.0);
    EXPECT_GT(big, small);
    EXPECT_EQ(context->getFontSize(), 14.0);
}

TEST(CDrawContext, NamedFontsHaveTheClassicSizes)
{
    EXPECT_EQ(kNormalFontBig->getSize(), 14);
    EXPECT_EQ(kNormalFont->getSize(), 12);
    EXPECT_EQ(kNormalFontSmall->getSize(), 11);
    EXPECT_EQ(kNormalFontSmaller->getSize(), 10);
    EXPECT_EQ(kNormalFontVerySmall->getSize(), 9);
    EXPECT_EQ(kNormalFont->getName(), "sans-serif");
}
