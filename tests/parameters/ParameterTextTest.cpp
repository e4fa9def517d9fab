// The display's number-to-text: rounding, the eight-character field and the refusal of huge values.
#include "ParameterText.h"

#include <gtest/gtest.h>
#include <string>

namespace
{
std::string text(float value, int decimals)
{
    char buffer[32] = {};
    spatara::float2string2(value, decimals, buffer);
    return buffer;
}
} // namespace

TEST(FloatToString, RoundsHalfAwayFromZeroAtTheThreshold)
{
    EXPECT_EQ(text(1.26f, 1), "1.3");
    EXPECT_EQ(text(1.24f, 1), "1.2");
    EXPECT_EQ(text(-1.26f, 1), "-1.3");
    EXPECT_EQ(text(42.049999f, 2), "42.05");
}

TEST(FloatToString, ZeroDecimalsCutsAtThePoint)
{
    EXPECT_EQ(text(12.0f, 0), "12");
    EXPECT_EQ(text(0.0f, 0), "0");
}

TEST(FloatToString, FillsAnEightCharacterField)
{
    EXPECT_EQ(text(1.5f, 6), "1.500000");
    EXPECT_EQ(text(-1.5f, 6), "-1.50000");
    EXPECT_EQ(text(12345678.0f, 2), "12345678.");
}

TEST(FloatToString, HugeValuesSaySo)
{
    EXPECT_EQ(text(1.0e9f, 1), "Huge!");
    EXPECT_EQ(text(-1.0e8f, 1), "Huge!");
    EXPECT_EQ(text(-9999999.0f, 0), "-9999999");
}

TEST(FloatToString, RoundKeepsTheAddedUnit)
{
    EXPECT_NEAR(spatara::round(1.26, 1), 1.36, 1e-12);
}
