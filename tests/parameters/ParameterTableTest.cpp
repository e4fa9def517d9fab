// The one table of parameter facts: what every edition reads about the six parameters.
#include "ParameterTable.h"

#include <cctype>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <string>

using spatara::parameterInfo;
using spatara::ParameterKind;

namespace
{
std::string display(SpataraParameter index, float normalised, float mode)
{
    char text[64] = {};
    parameterInfo(index).display(normalised, mode, text);
    return text;
}
} // namespace

TEST(ParameterTable, NamesAndSymbolsAreTheHostVisibleOnes)
{
    const char* const names[] = {"depth", "baseFreq", "wdth/emph", "process", "phase", "mode"};
    const char* const symbols[] = {"depth", "baseFreq", "wdth_emph", "process", "phase", "mode"};
    for (int i = 0; i < kNumParameters; ++i)
    {
        EXPECT_STREQ(parameterInfo(i).name, names[i]);
        EXPECT_STREQ(parameterInfo(i).symbol, symbols[i]);
    }
}

TEST(ParameterTable, SymbolsAreUniqueIdentifiers)
{
    std::set<std::string> seen;
    for (int i = 0; i < kNumParameters; ++i)
    {
        const std::string symbol = parameterInfo(i).symbol;
        ASSERT_FALSE(symbol.empty());
        EXPECT_FALSE(std::isdigit(static_cast<unsigned char>(symbol[0]))) << symbol;
        for (char c : symbol)
            EXPECT_TRUE(std::isalnum(static_cast<unsigned char>(c)) || c == '_') << symbol;
        EXPECT_TRUE(seen.insert(symbol).second) << symbol;
    }
}

TEST(ParameterTable, UnitsAndRangesAreTheOnesUsersRead)
{
    EXPECT_STREQ(parameterInfo(kDepth).unit, "%");
    EXPECT_EQ(parameterInfo(kDepth).minimum, 0.0f);
    EXPECT_EQ(parameterInfo(kDepth).maximum, 100.0f);
    EXPECT_STREQ(parameterInfo(kBaseFreq).unit, "Hz");
    EXPECT_EQ(parameterInfo(kBaseFreq).minimum, 20.0f);
    EXPECT_EQ(parameterInfo(kBaseFreq).maximum, 1000.0f);
    EXPECT_STREQ(parameterInfo(kWidth).unit, "%");
    EXPECT_EQ(parameterInfo(kWidth).maximum, 100.0f);
    EXPECT_EQ(parameterInfo(kProcess).kind, ParameterKind::Toggle);
    EXPECT_EQ(parameterInfo(kPhase).kind, ParameterKind::Toggle);
    EXPECT_EQ(parameterInfo(kMode).kind, ParameterKind::Enumeration);
    EXPECT_EQ(parameterInfo(kMode).minimum, 0.0f);
    EXPECT_EQ(parameterInfo(kMode).maximum, 2.0f);
    ASSERT_EQ(parameterInfo(kMode).valueNameCount, 3);
    EXPECT_STREQ(parameterInfo(kMode).valueNames[0], "Mode1");
    EXPECT_STREQ(parameterInfo(kMode).valueNames[2], "Mode3");
}

TEST(ParameterTable, UnitValuesAreTheNormalisedOnesScaled)
{
    EXPECT_EQ(parameterInfo(kDepth).toUnit(0.5f), 50.0f);
    EXPECT_EQ(parameterInfo(kBaseFreq).toUnit(0.0125f), spatara::frequencyFromNormalised(0.0125f));
    EXPECT_EQ(parameterInfo(kBaseFreq).toUnit(1.0f), 1000.0f);
    EXPECT_EQ(parameterInfo(kWidth).toUnit(0.25f), 25.0f);
    EXPECT_EQ(parameterInfo(kProcess).toUnit(0.7f), 1.0f);
    EXPECT_EQ(parameterInfo(kMode).toUnit(0.5f), 1.0f);
    EXPECT_EQ(parameterInfo(kMode).fromUnit(2.0f), 1.0f);
    EXPECT_EQ(parameterInfo(kPhase).fromUnit(1.0f), 1.0f);
}

TEST(ParameterTable, UnitValuesOutsideTheRangeAreClampedIntoIt)
{
    EXPECT_EQ(parameterInfo(kDepth).fromUnit(150.0f), 1.0f);
    EXPECT_EQ(parameterInfo(kBaseFreq).fromUnit(5.0f), 0.0f);
    EXPECT_EQ(parameterInfo(kMode).fromUnit(7.0f), 1.0f);
    // A host may send anything: not even a number lands at the bottom of the range.
    for (int i = 0; i < kNumParameters; ++i)
        EXPECT_EQ(parameterInfo(i).fromUnit(std::nanf("")), 0.0f);
}

TEST(ParameterTable, DisplaysAreTheVstDisplays)
{
    EXPECT_EQ(display(kDepth, 0.5f, 0.0f), "50.0");
    EXPECT_EQ(display(kBaseFreq, 1.0f, 0.0f), "1000.00");
    EXPECT_EQ(display(kWidth, 0.5f, 0.0f), "250.0");
    EXPECT_EQ(display(kWidth, 0.0f, 1.0f), "400.0");
    EXPECT_EQ(display(kWidth, 0.5f, 2.0f), "50.0");
    EXPECT_EQ(display(kProcess, 0.5f, 0.0f), "On");
    EXPECT_EQ(display(kPhase, 0.2f, 0.0f), "Off");
    EXPECT_EQ(display(kMode, 0.5f, 1.0f), "Mode2");
}
