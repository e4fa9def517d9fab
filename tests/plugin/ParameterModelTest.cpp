#include "ParameterTable.h"
#include "Spatara.h"
#include "SpataraFixture.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace
{
using ParameterModel = SpataraFixture;
} // namespace

TEST_F(ParameterModel, ModeThresholdsAre033And067)
{
    effect.setParameter(kMode, 0.33f);
    EXPECT_EQ(effect.getParameterValue(kMode), 1.0f);
    effect.setParameter(kMode, 0.67f);
    EXPECT_EQ(effect.getParameterValue(kMode), 2.0f);
    effect.setParameter(kMode, 0.3299f);
    EXPECT_EQ(effect.getParameterValue(kMode), 0.0f);
    // A value that fails both comparisons reads as the last mode; the effect itself never takes a NaN.
    EXPECT_EQ(spatara::parameterInfo(kMode).toEngine(NAN), 2.0f);
    effect.setParameter(kMode, NAN);
    EXPECT_EQ(effect.getParameterValue(kMode), 0.0f);
}

TEST_F(ParameterModel, ProcessSwitchesAtOneHalf)
{
    effect.setParameter(kProcess, 0.5f);
    EXPECT_EQ(effect.getParameterValue(kProcess), 1.0f);
    effect.setParameter(kProcess, 0.4999f);
    EXPECT_EQ(effect.getParameterValue(kProcess), 0.0f);
}

TEST_F(ParameterModel, BaseFrequencySpansTwentyToAThousandHertz)
{
    effect.setParameter(kBaseFreq, 0.0f);
    EXPECT_EQ(effect.getParameterValue(kBaseFreq), 20.0f);
    EXPECT_EQ(display(kBaseFreq), "20.00");
    effect.setParameter(kBaseFreq, 1.0f);
    EXPECT_EQ(effect.getParameterValue(kBaseFreq), 1000.0f);
    EXPECT_EQ(display(kBaseFreq), "1000.00");
}

TEST_F(ParameterModel, DepthIsTwiceTheSquare)
{
    effect.setParameter(kDepth, 0.5f);
    EXPECT_EQ(effect.getParameterValue(kDepth), 0.5f);
    EXPECT_EQ(display(kDepth), "50.0");
    effect.setParameter(kDepth, 1.0f);
    EXPECT_EQ(effect.getParameterValue(kDepth), 2.0f);
}

TEST_F(ParameterModel, WidthDisplayDependsOnTheMode)
{
    effect.setParameter(kWidth, 0.5f);
    effect.setParameter(kMode, 0.0f);
    EXPECT_EQ(display(kWidth), "250.0");
    effect.setParameter(kMode, 0.5f);
    EXPECT_EQ(display(kWidth), "250.0");
    effect.setParameter(kMode, 1.0f);
    EXPECT_EQ(display(kWidth), "50.0");
}

TEST_F(ParameterModel, WidthDisplayRisesInModeOneAndFallsInModeTwo)
{
    effect.setParameter(kWidth, 0.0f);
    effect.setParameter(kMode, 0.0f);
    EXPECT_EQ(display(kWidth), "100.0");
    effect.setParameter(kMode, 0.5f);
    EXPECT_EQ(display(kWidth), "400.0");
    effect.setParameter(kWidth, 1.0f);
    EXPECT_EQ(display(kWidth), "100.0");
    effect.setParameter(kMode, 0.0f);
    EXPECT_EQ(display(kWidth), "400.0");
}

TEST_F(ParameterModel, SetParameterStoresIntoTheCurrentPreset)
{
    effect.setPresetNo(4);
    effect.setParameter(kDepth, 0.25f);
    EXPECT_EQ(effect.preset(4).values[kDepth], 0.25f);
    EXPECT_EQ(effect.getParameter(kDepth), 0.25f);
}

TEST_F(ParameterModel, ApplyingAPresetDoesNotWriteBack)
{
    // An out-of-range value in the table must stay in the table: setPresetNo skips it and must not
    // overwrite it with the effect's own value through the write-back.
    effect.preset(6).values[kWidth] = 1.5f;
    effect.setPresetNo(6);
    EXPECT_EQ(effect.preset(6).values[kWidth], 1.5f);
}

TEST_F(ParameterModel, UnknownIndexesAnswerZeroBlankAndUndef)
{
    EXPECT_EQ(effect.getParameter(6), 0.0f);
    EXPECT_EQ(effect.getParameterValue(6), 0.0f);
    EXPECT_EQ(display(6), "UNDEF");
    char label[16] = {};
    effect.getParameterLabel(6, label);
    EXPECT_STREQ(label, " ");
    EXPECT_FALSE(effect.canParameterBeAutomated(6));
    EXPECT_TRUE(effect.isDummy(6));
    EXPECT_TRUE(effect.isDummyOld(-1));
    EXPECT_FALSE(effect.isDummy(5));
    EXPECT_FALSE(effect.isDummyOld(0));
}
