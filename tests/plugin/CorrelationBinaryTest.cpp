// The correlation meter through the built Spatara.so, as a host reads it with the 'ZvCr' request: known
// signals through the effect switched off (so the output is the input) read what they must.
#include "StartedPluginTest.h"

#include <cmath>
#include <cstdint>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace
{
constexpr VstInt32 kCorrelationRequest = ('Z' << 24) | ('v' << 16) | ('C' << 8) | 'r';
constexpr VstInt32 kMeterRequest = ('Z' << 24) | ('v' << 16) | ('M' << 8) | 't';
constexpr VstInt32 kBlock = 512;
constexpr int kTwoSeconds = 2 * 44100 / kBlock;

// Noise from a seed of its own, -0.5..0.5.
struct Noise
{
    std::uint32_t seed;
    float next()
    {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<float>(seed >> 8) / 16777216.0f - 0.5f;
    }
};

class Correlation : public StartedPluginTest
{
  protected:
    void SetUp() override
    {
        StartedPluginTest::SetUp();
        // Off, the effect hands its input on: the output's correlation is the input's.
        host->effect()->setParameter(host->effect(), 3, 0.0f);
    }

    // Blocks of frames whose left and right samples come from signal(frame).
    void play(int blocks, const std::function<void(long frame, float& left, float& right)>& signal)
    {
        std::vector<float> left(kBlock), right(kBlock), outLeft(kBlock), outRight(kBlock);
        for (int b = 0; b < blocks; ++b)
        {
            for (int i = 0; i < kBlock; ++i)
                signal(frame++, left[i], right[i]);
            float* inputs[2] = {left.data(), right.data()};
            float* outputs[2] = {outLeft.data(), outRight.data()};
            host->effect()->processReplacing(host->effect(), inputs, outputs, kBlock);
        }
    }
    float read(VstInt32 request)
    {
        float value = std::numeric_limits<float>::quiet_NaN();
        EXPECT_EQ(host->dispatch(effVendorSpecific, request, 0, &value), 1);
        return value;
    }
    float correlation() { return read(kCorrelationRequest); }

    static float tone(long frame)
    {
        return 0.5f * static_cast<float>(std::sin(2 * M_PI * 440.0 * frame / 44100.0));
    }

    long frame = 0;
};
} // namespace

TEST_F(Correlation, IdenticalChannelsReadPlusOne)
{
    play(kTwoSeconds, [](long f, float& l, float& r) { l = r = tone(f); });
    EXPECT_NEAR(correlation(), 1.0f, 0.01f);
}

TEST_F(Correlation, OneChannelInvertedReadsMinusOne)
{
    play(kTwoSeconds, [](long f, float& l, float& r) { l = tone(f), r = -tone(f); });
    EXPECT_NEAR(correlation(), -1.0f, 0.01f);
}

TEST_F(Correlation, IndependentNoiseReadsNearZero)
{
    Noise a{1}, b{987654321};
    play(kTwoSeconds, [&](long, float& l, float& r) { l = a.next(), r = b.next(); });
    EXPECT_NEAR(correlation(), 0.0f, 0.1f);
}

TEST_F(Correlation, OneSilentChannelOrSilenceReadsZero)
{
    play(kTwoSeconds, [](long f, float& l, float& r) { l = tone(f), r = 0.0f; });
    EXPECT_EQ(correlation(), 0.0f);
    play(kTwoSeconds, [](long, float& l, float& r) { l = r = 0.0f; });
    EXPECT_EQ(correlation(), 0.0f);
}

TEST_F(Correlation, ANaNBurstIsForgottenAsTheBalanceMeterForgetsIt)
{
    play(kTwoSeconds, [](long f, float& l, float& r) { l = r = tone(f); });
    const float balanceBefore = read(kMeterRequest);
    // A burst of bad samples: NaN in both channels, then infinities of opposite signs.
    const long start = frame;
    play(2,
         [start](long f, float& l, float& r)
         {
             l = r = tone(f);
             if (f - start < 300)
                 l = r = std::numeric_limits<float>::quiet_NaN();
             else if (f - start < 600)
                 l = std::numeric_limits<float>::infinity(), r = -l;
         });
    EXPECT_TRUE(std::isfinite(correlation()));
    play(kTwoSeconds, [](long f, float& l, float& r) { l = r = tone(f); });
    EXPECT_NEAR(correlation(), 1.0f, 0.01f);
    EXPECT_NEAR(read(kMeterRequest), balanceBefore, 1e-3f);
}

TEST_F(Correlation, ReadsTheOutputNotTheInput)
{
    // Mono in, spread out by the second mode: it adds a delayed part of the sum to one channel and takes it
    // from the other.
    AEffect* e = host->effect();
    e->setParameter(e, 3, 1.0f);
    e->setParameter(e, 0, 1.0f);
    e->setParameter(e, 2, 1.0f);
    e->setParameter(e, 5, 0.5f);
    Noise n{42};
    play(kTwoSeconds, [&](long, float& l, float& r) { l = r = n.next(); });
    EXPECT_LT(correlation(), 0.9f);
}
