#include "CBitmap.h"
#include "BitmapIds.h"
#include "EmbeddedResource.h"
#include "TestSurface.h"

#include <gtest/gtest.h>

TEST(CBitmap, BackgroundResourceIsEmbeddedWithItsSize)
{
    auto* bitmap = new CBitmap(128);
    EXPECT_TRUE(bitmap->isLoaded());
    EXPECT_EQ(bitmap->getWidth(), 302);
    EXPECT_EQ(bitmap->getHeight(), 250);
    EXPECT_EQ(bitmap->getResourceNumber(), 128);
    bitmap->forget();
}

TEST(CBitmap, EveryNamedBitmapIsEmbedded)
{
    for (const int32_t id :
         {kBackgroundBitmap,      kUnusedHandleBitmap,  kSliderHandleBitmap,        kMeterOnBitmap,
          kMeterOffBitmap,        kProcessButtonBitmap, kPhaseButtonBitmap,         kModeButtonBitmap,
          kAboutScreenBitmap,     kManualButtonBitmap,  kDefaultPresetButtonBitmap, kDefaultBankButtonBitmap,
          kRecallAButtonBitmap,   kRecallBButtonBitmap, kLoadBankButtonBitmap,      kSaveBankButtonBitmap,
          kStoreAButtonBitmap,    kStoreBButtonBitmap,  kStepRockerBitmap,          kLoadPresetButtonBitmap,
          kSavePresetButtonBitmap})
        EXPECT_NE(spatara::findEmbeddedResource(id), nullptr) << id;
}

TEST(CBitmap, MissingResourceHasZeroSizeAndDrawsNothing)
{
    EXPECT_EQ(spatara::findEmbeddedResource(4711), nullptr);
    auto* bitmap = new CBitmap(4711);
    EXPECT_FALSE(bitmap->isLoaded());
    EXPECT_EQ(bitmap->getWidth(), 0);
    EXPECT_EQ(bitmap->getHeight(), 0);
    TestSurface surface(10, 10);
    surface.clear(kRedCColor);
    bitmap->draw(surface.getContext(), CRect(0, 0, 10, 10));
    EXPECT_EQ(surface.pixel(5, 5), kRedCColor);
    bitmap->forget();
}

TEST(CBitmap, ReferencesAreCounted)
{
    auto* bitmap = new CBitmap(134);
    EXPECT_EQ(bitmap->getNbReference(), 1);
    bitmap->remember();
    EXPECT_EQ(bitmap->getNbReference(), 2);
    bitmap->forget();
    EXPECT_EQ(bitmap->getNbReference(), 1);
    bitmap->forget();
}

TEST(CBitmap, DrawsThePartAtTheOffsetIntoTheRectangle)
{
    auto* bitmap = new CBitmap(128);
    TestSurface surface(40, 40);
    surface.clear(kRedCColor);
    bitmap->draw(surface.getContext(), CRect(10, 10, 30, 30), CPoint(100, 60));
    // The pixel drawn at (10 + i, 10 + j) is the bitmap's pixel (100 + i, 60 + j).
    EXPECT_EQ(surface.pixel(10, 10), TestSurface::pixelOf(bitmap->getSurface(), 100, 60));
    EXPECT_EQ(surface.pixel(29, 25), TestSurface::pixelOf(bitmap->getSurface(), 119, 75));
    // Outside the rectangle nothing changes.
    EXPECT_EQ(surface.pixel(9, 10), kRedCColor);
    EXPECT_EQ(surface.pixel(30, 30), kRedCColor);
    bitmap->forget();
}

TEST(CBitmap, AlphaBlendsWithWhatIsBelow)
{
    auto* bitmap = new CBitmap(128);
    TestSurface surface(4, 4);
    surface.clear(kWhiteCColor);
    bitmap->draw(surface.getContext(), CRect(0, 0, 4, 4), CPoint(150, 120), 0.5f);
    const CColor source = TestSurface::pixelOf(bitmap->getSurface(), 151, 121);
    const CColor mixed = surface.pixel(1, 1);
    EXPECT_NEAR(mixed.red, (source.red + 255) / 2.0, 1.5);
    EXPECT_NEAR(mixed.blue, (source.blue + 255) / 2.0, 1.5);
    bitmap->forget();
}
