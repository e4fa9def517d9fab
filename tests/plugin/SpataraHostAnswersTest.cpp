#include "FactoryPresets.h"
#include "Spatara.h"
#include "SpataraFixture.h"

#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace
{
using SpataraHostAnswers = SpataraFixture;

VstSpeakerArrangement arrangement(VstInt32 channels)
{
    VstSpeakerArrangement a{};
    a.numChannels = channels;
    return a;
}
} // namespace

TEST_F(SpataraHostAnswers, CanDoDoesNotConsultItsBase)
{
    char midi[] = "receiveVstMidiEvent";
    EXPECT_EQ(effect.canDo(midi), 0);
    char unknown[] = "somethingElse";
    EXPECT_EQ(effect.canDo(unknown), 0);
    char yes[] = "1in2out";
    EXPECT_EQ(effect.canDo(yes), 1);
}

TEST_F(SpataraHostAnswers, InputPropertiesOfPinTwoAreRefused)
{
    VstPinProperties pin{};
    EXPECT_FALSE(effect.getInputProperties(2, &pin));
    EXPECT_TRUE(effect.getInputProperties(1, &pin));
    EXPECT_STREQ(pin.label, "My 2 In");
}

TEST_F(SpataraHostAnswers, TwoInOneOutIsRefusedAndLeavesBothStereo)
{
    auto mono = arrangement(1), stereo = arrangement(2);
    ASSERT_TRUE(effect.setSpeakerArrangement(&mono, &stereo));
    EXPECT_FALSE(effect.hasStereoInput());
    EXPECT_FALSE(effect.setSpeakerArrangement(&stereo, &mono));
    EXPECT_TRUE(effect.hasStereoInput());
    EXPECT_TRUE(effect.hasStereoOutput());
}

TEST_F(SpataraHostAnswers, GetVuTwiceIsZeroBothTimes)
{
    EXPECT_EQ(effect.getVu(), 0.0f);
    EXPECT_EQ(effect.getVu(), 0.0f);
}

TEST_F(SpataraHostAnswers, ConstructionAsksForVersionLatencyAndEndsOnPresetZero)
{
    EXPECT_FALSE(host.requestsOf(audioMasterGetOutputLatency).empty());
    EXPECT_EQ(effect.getPresetNo(), 0);
    EXPECT_EQ(effect.getProgram(), 0);
    EXPECT_NE(effect.getEditor(), nullptr) << "the editor object lives as long as the effect";
}

TEST_F(SpataraHostAnswers, AFreshEffectStartsOnInit)
{
    char name[32] = {};
    effect.getProgramName(name);
    EXPECT_STREQ(name, "init");
    EXPECT_EQ(display(kDepth), "0.0");
    EXPECT_EQ(effect.getParameterValue(kBaseFreq), 265.0f);
    EXPECT_EQ(display(kBaseFreq), "265.00");
    EXPECT_EQ(effect.getParameter(kWidth), 0.0f);
    EXPECT_EQ(display(kProcess), "On");
    EXPECT_EQ(display(kPhase), "Off");
    EXPECT_EQ(display(kMode), "Mode1");
}

TEST_F(SpataraHostAnswers, EnahncedSpace3IsTwentyPointFifteenHertz)
{
    effect.setPresetNo(7);
    char name[32] = {};
    effect.getProgramName(name);
    EXPECT_STREQ(name, "enahnced space 3");
    EXPECT_FLOAT_EQ(effect.getParameterValue(kBaseFreq), 20.153125f);
    EXPECT_EQ(display(kBaseFreq), "20.15");
}

TEST_F(SpataraHostAnswers, ModeValueOneHalfIsMode2AndOneIsMode3)
{
    effect.setPresetNo(5); // enhanced space 1, mode 0.5
    EXPECT_EQ(effect.getParameterValue(kMode), 1.0f);
    EXPECT_EQ(display(kMode), "Mode2");
    effect.setPresetNo(9); // room space 1, mode 1.0
    EXPECT_EQ(effect.getParameterValue(kMode), 2.0f);
    EXPECT_EQ(display(kMode), "Mode3");
}

TEST_F(SpataraHostAnswers, EveryFactoryPresetIsInstalled)
{
    for (int n = 0; n < kNumPresets; ++n)
    {
        EXPECT_STREQ(effect.preset(n).name, kFactoryPresets[n].name) << n;
        EXPECT_EQ(effect.preset(n).values[kProcess], 1.0f) << n;
        EXPECT_EQ(effect.preset(n).values[kPhase], 0.0f) << n;
    }
    EXPECT_STREQ(effect.preset(29).name, "over heads");
    EXPECT_EQ(effect.preset(29).values[kWidth], 0.4f);
    for (int n = 30; n < kNumPresets; ++n)
        EXPECT_STREQ(effect.preset(n).name, "init");
}

TEST_F(SpataraHostAnswers, AnOutOfRangePresetValueKeepsTheEffectsValue)
{
    effect.setParameter(kWidth, 0.3f);
    effect.preset(12).values[kWidth] = 1.5f;
    effect.setPresetNo(12);
    EXPECT_EQ(effect.getParameter(kWidth), 0.3f);
    EXPECT_EQ(effect.getParameter(kDepth), 1.0f);
    EXPECT_EQ(effect.getParameter(kBaseFreq), 0.5f);
    EXPECT_EQ(effect.getParameter(kMode), 1.0f);
}
