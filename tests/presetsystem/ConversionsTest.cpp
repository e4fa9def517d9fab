#include "MidiNames.h"
#include "ParamConversion.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace
{
std::string cc(float value)
{
    char text[16];
    std::memset(text, 'x', sizeof(text));
    spatara::convertCC(value, text);
    return text;
}
} // namespace

TEST(ControllerNames, ZeroIsBankSelectMsb)
{
    EXPECT_EQ(cc(0.0f), "bank sel MSB");
}

TEST(ControllerNames, TheCentreOfSlotTenIsPan)
{
    EXPECT_EQ(cc(spatara::long2float(10, 130)), "pan");
}

TEST(ControllerNames, Slot128IsNotAssigned)
{
    EXPECT_EQ(cc(spatara::long2float(128, 130)), "not assigned");
}

TEST(ControllerNames, OneIsTheBlankSlot)
{
    EXPECT_EQ(cc(1.0f), "");
}

TEST(ControllerNames, UnnamedControllersAreNumbered)
{
    EXPECT_EQ(cc(spatara::long2float(3, 130)), "control 3");
    EXPECT_EQ(cc(spatara::long2float(9, 130)), "control 9");
    EXPECT_EQ(cc(spatara::long2float(12, 130)), "control 12");
    EXPECT_EQ(cc(spatara::long2float(119, 130)), "control 119");
}

TEST(ControllerNames, EveryNameFitsThirteenBytes)
{
    for (int slot = 0; slot < kNumControllerSlots; ++slot)
        EXPECT_LT(std::strlen(spatara::ccname(slot)), 13u) << slot;
    EXPECT_STREQ(spatara::ccname(127), "poly mode on");
    EXPECT_STREQ(spatara::ccname(64), "sustain");
    EXPECT_STREQ(spatara::ccname(43), "express. LSB");
}

TEST(ParamConversion, ContToLongCapsAtTheLastStepButNotBelowZero)
{
    EXPECT_EQ(spatara::paramContToLong(0.5f, 10), 5);
    EXPECT_EQ(spatara::paramContToLong(1.0f, 10), 9);
    EXPECT_EQ(spatara::paramContToLong(-0.25f, 10), -2);
}

TEST(ParamConversion, LongToContGivesTheCentreOfTheStep)
{
    EXPECT_FLOAT_EQ(spatara::paramLongToCont(2, 10), 0.25f);
}

TEST(ParamConversion, Long2FloatAndFloat2LongRoundTrip)
{
    for (long i = 0; i < 130; ++i)
        EXPECT_EQ(spatara::float2long(spatara::long2float(i, 130), 130), i);
    EXPECT_EQ(spatara::float2long(1.0f, 130), 129);
    EXPECT_EQ(spatara::float2long(5.0f, 130), 129);
}

TEST(ParamConversion, SwapBytesReversesFourBytes)
{
    unsigned char bytes[4] = {1, 2, 3, 4};
    spatara::mySwapBytes(bytes);
    EXPECT_EQ(bytes[0], 4);
    EXPECT_EQ(bytes[1], 3);
    EXPECT_EQ(bytes[2], 2);
    EXPECT_EQ(bytes[3], 1);
}
