// The balance meter's drawing: ballistics and segments.
#include "CVuMeter1.h"
#include "CBitmap.h"
#include "TestSurface.h"

#include <gtest/gtest.h>

namespace
{
struct CVuMeter1Test : ::testing::Test
{
    CVuMeter1Test()
        : lit(new CBitmap(135)), unlit(new CBitmap(136)),
          meter(new CVuMeter1(CRect(0, 0, 182, 10), lit, unlit, 182, kHorizontal))
    {
        meter->setDecreaseStepValue(0.5f);
    }
    ~CVuMeter1Test() override
    {
        meter->forget();
        lit->forget();
        unlit->forget();
    }
    // Redraws the meter; answers the first column drawn from the unlit image (182 when none).
    int drawAndFindSplit()
    {
        TestSurface surface(182, 10);
        meter->draw(surface.getContext());
        for (int x = 0; x < 182; ++x)
            if (surface.pixel(x, 5) != TestSurface::pixelOf(lit->getSurface(), x, 5))
            {
                EXPECT_EQ(surface.pixel(x, 5), TestSurface::pixelOf(unlit->getSurface(), x, 5)) << "at " << x;
                return x;
            }
        return 182;
    }

    CBitmap* lit;
    CBitmap* unlit;
    CVuMeter1* meter;
};
} // namespace

TEST_F(CVuMeter1Test, LitAndUnlitImagesDifferInEveryColumn)
{
    for (int x = 0; x < 182; ++x)
        ASSERT_NE(TestSurface::pixelOf(lit->getSurface(), x, 5),
                  TestSurface::pixelOf(unlit->getSurface(), x, 5))
            << "at " << x;
}

TEST_F(CVuMeter1Test, HalfOf182SegmentsSplitsAtColumn91)
{
    meter->setValue(0.5f);
    EXPECT_EQ(drawAndFindSplit(), 91);
}

TEST_F(CVuMeter1Test, SplitFollowsWholeSegments)
{
    // 182 × 0.3 + 0.5 = 55.1: 55 segments of one pixel each.
    meter->setValue(0.3f);
    EXPECT_EQ(drawAndFindSplit(), 55);
}

TEST_F(CVuMeter1Test, FallsByHalfPerRedrawAndRisesAtOnce)
{
    meter->setValue(1.0f);
    EXPECT_EQ(drawAndFindSplit(), 182);
    meter->setValue(0.0f);
    EXPECT_TRUE(meter->isDirty());
    EXPECT_EQ(drawAndFindSplit(), 91);
    // Still falling: it wants the next redraw although the value holds still.
    EXPECT_TRUE(meter->isDirty());
    EXPECT_EQ(drawAndFindSplit(), 0);
    EXPECT_FALSE(meter->isDirty());
    meter->setValue(1.0f);
    EXPECT_EQ(drawAndFindSplit(), 182);
}

TEST_F(CVuMeter1Test, WithoutALitImageNothingIsDrawn)
{
    auto* bare = new CVuMeter1(CRect(0, 0, 182, 10), nullptr, unlit, 182, kHorizontal);
    bare->setValue(0.5f);
    TestSurface surface(182, 10);
    surface.clear(kRedCColor);
    bare->draw(surface.getContext());
    EXPECT_EQ(surface.pixel(0, 5), kRedCColor);
    EXPECT_EQ(surface.pixel(150, 5), kRedCColor);
    bare->forget();
}

TEST_F(CVuMeter1Test, AnswersAsAMeter)
{
    EXPECT_TRUE(meter->isTypeOf("CVuMeter"));
}
