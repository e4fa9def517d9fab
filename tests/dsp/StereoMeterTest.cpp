#include "StereoMeter.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using spatara::stereoMeter;

TEST(StereoMeter, EqualEnvelopesGiveZero)
{
    EXPECT_EQ(stereoMeter(0.5, 0.5), 0.0f);
    EXPECT_EQ(stereoMeter(0.002, 0.002), 0.0f);
}

TEST(StereoMeter, IsLogBaseSixteenOfFourTimesTheRatioMinusHalf)
{
    EXPECT_EQ(stereoMeter(2.0, 1.0), 0.25f);
    EXPECT_EQ(stereoMeter(1.0, 2.0), -0.25f);
    EXPECT_EQ(stereoMeter(4.0, 1.0), 0.5f);
    EXPECT_EQ(stereoMeter(1.0, 4.0), -0.5f);
    EXPECT_FLOAT_EQ(stereoMeter(3.0, 1.0), static_cast<float>(std::log(12.0) / std::log(16.0) - 0.5));
}

TEST(StereoMeter, IsLimitedToPlusMinusHalf)
{
    EXPECT_EQ(stereoMeter(16.0, 1.0), 0.5f);
    EXPECT_EQ(stereoMeter(1.0, 16.0), -0.5f);
    EXPECT_EQ(stereoMeter(1000.0, 0.0011), 0.5f);
}

TEST(StereoMeter, SmallDifferenceEnvelopeSitsAtPlusHalf)
{
    EXPECT_EQ(stereoMeter(0.5, 0.001), 0.5f);
    EXPECT_EQ(stereoMeter(0.0005, 0.0005), 0.5f); // both below 0.001, the sum above 0.00001
    EXPECT_EQ(stereoMeter(0.00002, 0.0), 0.5f);
}

TEST(StereoMeter, SumAtTheThresholdFallsBackToPlusHalfEvenAgainstALargeDifference)
{
    EXPECT_EQ(stereoMeter(0.001, 0.5), 0.5f);
}

TEST(StereoMeter, SmallSumEnvelopeSitsAtMinusHalf)
{
    EXPECT_EQ(stereoMeter(0.00001, 0.5), -0.5f);
    EXPECT_EQ(stereoMeter(0.0, 0.0000002), -0.5f);
}

TEST(StereoMeter, NearSilenceGivesZero)
{
    EXPECT_EQ(stereoMeter(0.0, 0.0), 0.0f);
    EXPECT_EQ(stereoMeter(0.00001, 0.0000001), 0.0f);
}

TEST(StereoMeter, NaNIsPassedThrough)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(std::isnan(stereoMeter(infinity, infinity)));
}
