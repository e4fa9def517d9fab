#include "ValueConverters.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace
{
template <typename Converter> std::string text(Converter convert, float value)
{
    char buffer[64];
    std::fill(std::begin(buffer), std::end(buffer), 'x');
    convert(value, buffer);
    return buffer;
}
} // namespace

TEST(StrictStringConvert, TruncatesTowardZero)
{
    EXPECT_EQ(text(spatara::strictStringConvert, 2.9f), "2");
    EXPECT_EQ(text(spatara::strictStringConvert, -0.5f), "0");
    EXPECT_EQ(text(spatara::stepStringConvert, 2.9f), "2");
    EXPECT_EQ(text(spatara::stepStringConvert, -3.7f), "-3");
}

TEST(PercentStringConvert, TruncatesAndGoesAbove100)
{
    EXPECT_EQ(text(spatara::percentStringConvert, 0.505f), "50%");
    EXPECT_EQ(text(spatara::percentStringConvert, 1.0f), "100%");
    EXPECT_EQ(text(spatara::percentStringConvert, 2.5f), "250%");
    EXPECT_EQ(text(spatara::percentStringConvert, 0.999f), "99%");
    EXPECT_EQ(text(spatara::percentStringConvert, -0.004f), "0%");
}

TEST(DampStringConvert, ClosedPercentOrThru)
{
    EXPECT_EQ(text(spatara::dampStringConvert, 0.0001f), "closed");
    EXPECT_EQ(text(spatara::dampStringConvert, 0.99999f), "99%");
    EXPECT_EQ(text(spatara::dampStringConvert, 1.0f), "thru");
    EXPECT_EQ(text(spatara::dampStringConvert, 0.5f), "50%");
    EXPECT_EQ(text(spatara::dampStringConvert, NAN), "thru");
}

TEST(ParameterNameStringConvert, PicksTheCaptionByWholePart)
{
    EXPECT_EQ(text(spatara::parameterNameStringConvert, 0.0f), "S");
    EXPECT_EQ(text(spatara::parameterNameStringConvert, 1.0f), "M");
    EXPECT_EQ(text(spatara::parameterNameStringConvert, 2.0f), "depth");
    EXPECT_EQ(text(spatara::parameterNameStringConvert, 3.0f), "freq");
    EXPECT_EQ(text(spatara::parameterNameStringConvert, 4.0f), "emph");
    EXPECT_EQ(text(spatara::parameterNameStringConvert, 5.9f), "width");
    EXPECT_EQ(text(spatara::parameterNameStringConvert, 6.0f), "");
    EXPECT_EQ(text(spatara::parameterNameStringConvert, -0.5f), "S");
}

TEST(FrequencyStringConvert, KilohertzRow)
{
    EXPECT_EQ(text(spatara::frequencyStringConvert, 1000.0f), "1.0kHz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 1234.0f), "1.2kHz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 1050.0f), "1.0kHz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 20000.0f), "20.0kHz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 19999.9f), "19.9kHz");
}

TEST(FrequencyStringConvert, HertzRows)
{
    EXPECT_EQ(text(spatara::frequencyStringConvert, 999.99f), "999Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 440.7f), "440Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 10.0f), "10Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 9.99f), "9.9Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 5.55f), "5.5Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 1.05f), "1.0Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 0.5f), "0.50Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 0.15f), "0.150Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 0.05f), "0.50Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 0.205f), "0.20Hz");
}

TEST(FrequencyStringConvert, TheBaseFrequencyRange)
{
    EXPECT_EQ(text(spatara::frequencyStringConvert, 20.0f), "20Hz");
    EXPECT_EQ(text(spatara::frequencyStringConvert, 265.0f), "265Hz");
}

TEST(DBStringConvert, DecibelsTruncated)
{
    EXPECT_EQ(text(spatara::dBStringConvert, 1e-8f), "-oo dB");
    EXPECT_EQ(text(spatara::dBStringConvert, 1.0f), "0 dB");
    EXPECT_EQ(text(spatara::dBStringConvert, 0.5f), "-6 dB");
    EXPECT_EQ(text(spatara::dBStringConvert, 2.0f), "6 dB");
    EXPECT_EQ(text(spatara::dBStringConvert, 0.001f), "-59 dB");
    EXPECT_EQ(text(spatara::dBStringConvert, 0.0f), "-oo dB");
}
