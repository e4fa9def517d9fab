#include "CVuMeter.h"
#include "ControlFixture.h"
#include "TestSurface.h"

namespace
{
struct MeterTest : ::testing::Test
{
    MeterTest() : on(new CBitmap(135)), off(new CBitmap(136))
    {
        meter = new CVuMeter(CRect(0, 0, on->getWidth(), on->getHeight()), on, off, 182, kHorizontal);
        meter->setDecreaseStepValue(0.5f);
    }
    ~MeterTest() override
    {
        meter->forget();
        on->forget();
        off->forget();
    }
    bool litAt(const TestSurface& surface, int x) const
    {
        return surface.pixel(x, 5) == TestSurface::pixelOf(on->getSurface(), x, 5);
    }

    CBitmap* on;
    CBitmap* off;
    CVuMeter* meter;
};
} // namespace

TEST_F(MeterTest, SplitsLitAndUnlitImagesAtTheValue)
{
    meter->setValue(0.5f);
    TestSurface surface(182, 10);
    meter->draw(surface.getContext());
    EXPECT_TRUE(litAt(surface, 90));
    EXPECT_FALSE(litAt(surface, 92));
    EXPECT_EQ(surface.pixel(92, 5), TestSurface::pixelOf(off->getSurface(), 92, 5));
}

TEST_F(MeterTest, FallsBackByTheDecreaseStepPerDraw)
{
    TestSurface surface(182, 10);
    meter->setValue(1.0f);
    meter->draw(surface.getContext());
    EXPECT_TRUE(litAt(surface, 180));
    meter->setValue(0.0f);
    meter->draw(surface.getContext());
    EXPECT_TRUE(litAt(surface, 90));
    EXPECT_FALSE(litAt(surface, 92));
    meter->draw(surface.getContext());
    EXPECT_FALSE(litAt(surface, 0));
}

TEST_F(MeterTest, WithoutLitImageDrawsNothing)
{
    auto* bare = new CVuMeter(CRect(0, 0, 10, 10), nullptr, off, 10, kHorizontal);
    TestSurface surface(10, 10);
    surface.clear(kRedCColor);
    bare->setValue(1.0f);
    bare->draw(surface.getContext());
    EXPECT_EQ(surface.pixel(5, 5), kRedCColor);
    bare->forget();
}

TEST_F(MeterTest, KeepsItsOwnReferencesOnBothImages)
{
    EXPECT_EQ(on->getNbReference(), 2);
    EXPECT_EQ(off->getNbReference(), 2);
    EXPECT_EQ(meter->getOnBitmap(), on);
    EXPECT_EQ(meter->getOffBitmap(), off);
    EXPECT_EQ(meter->getNbLed(), 182);
}
