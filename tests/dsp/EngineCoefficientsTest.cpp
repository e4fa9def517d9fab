#include "EngineCoefficients.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace spatara;

TEST(EngineCoefficients, SmoothingCoefficientAt44100)
{
    // 1 - 0.0625^(1 / 12215.7), the product 44100 * 277 being exact in single precision.
    EXPECT_FLOAT_EQ(smoothingCoefficient(44100.0f), 0.00022694353166829995f);
}

TEST(EngineCoefficients, SmoothingClosesFifteenSixteenthsIn277Milliseconds)
{
    for (const float rate : {44100.0f, 48000.0f, 96000.0f})
    {
        const double remaining = std::pow(1.0 - smoothingCoefficient(rate), rate * 0.277);
        EXPECT_NEAR(remaining, 1.0 / 16.0, 1e-5) << rate;
    }
}

TEST(EngineCoefficients, EnvelopeCoefficientAt44100)
{
    EXPECT_DOUBLE_EQ(envelopeCoefficient(44100.0f), 0.00010477866461189311);
}

TEST(EngineCoefficients, EnvelopeClosesFifteenSixteenthsIn600Milliseconds)
{
    for (const float rate : {44100.0f, 48000.0f, 96000.0f})
    {
        const double remaining = std::pow(1.0 - envelopeCoefficient(rate), rate * 0.6);
        EXPECT_NEAR(remaining, 1.0 / 16.0, 1e-9) << rate;
    }
}

TEST(EngineCoefficients, TargetPositionIsOnePeriodBackRoundedToAWholePosition)
{
    EXPECT_EQ(targetDelayPosition(44100.0f, 20.0f), 32768 - 2205);
    EXPECT_EQ(targetDelayPosition(44100.0f, 265.0f), 32601);  // 32768 - 166.415...
    EXPECT_EQ(targetDelayPosition(44100.0f, 1000.0f), 32723); // 32768 - 44.1
    EXPECT_EQ(targetDelayPosition(48000.0f, 20.0f), 32768 - 2400);
}

TEST(EngineCoefficients, TargetPositionNeverAsksForMoreThanTheLineHolds)
{
    EXPECT_EQ(targetDelayPosition(655360.0f, 20.0f), 1); // a period of exactly 32768 samples
    EXPECT_EQ(targetDelayPosition(1000000.0f, 20.0f), 1);
    EXPECT_EQ(targetDelayPosition(44100.0f, 0.0f), 1);
    EXPECT_EQ(targetDelayPosition(0.0f, 0.0f), 1);
    EXPECT_EQ(targetDelayPosition(std::numeric_limits<float>::quiet_NaN(), 20.0f), 1);
}

TEST(EngineCoefficients, TargetPositionNeverReadsTheSampleBeingWritten)
{
    EXPECT_EQ(targetDelayPosition(10.0f, 1000.0f), 32767); // a period of a hundredth of a sample
    EXPECT_EQ(targetDelayPosition(0.0f, 20.0f), 32767);
}
