#include "StereoEngine.h"

#include "ReferenceEngine.h"
#include "StereoMeter.h"
#include "TestSignals.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <vector>

using spatara::StereoEngine;

namespace
{

constexpr float kRate = 44100.0f;
constexpr size_t kSettle = 6 * 44100; // smoothing at rest: 15/16 in 277 ms, so many times over

struct Settings
{
    float depth = 0.0f;
    float width = 0.0f;
    float baseFrequency = 265.0f;
    float process = 1.0f;
    float phase = 0.0f;
    float mode = 0.0f;
};

// An engine resumed with the settings, so that it starts on its targets.
void prepare(StereoEngine& engine, const Settings& settings, float rate = kRate)
{
    engine.setDepth(settings.depth);
    engine.setWidth(settings.width);
    engine.setBaseFrequency(settings.baseFrequency);
    engine.setProcess(settings.process);
    engine.setPhase(settings.phase);
    engine.setMode(settings.mode);
    engine.resume(rate);
}

Stereo<float> silence(size_t frames)
{
    return {std::vector<float>(frames), std::vector<float>(frames)};
}

// Returns the delay position after each of the given number of one-sample blocks.
std::vector<double> glidePositions(StereoEngine& engine, size_t samples)
{
    std::vector<double> positions;
    float in = 0.0f, outL = 0.0f, outR = 0.0f;
    for (size_t n = 0; n < samples; ++n)
    {
        engine.process(&in, &in, &outL, &outR, 1);
        positions.push_back(engine.delayPosition());
    }
    return positions;
}

} // namespace

// --- bypass ------------------------------------------------------

TEST(StereoEngineBypass, OutputEqualsInputSampleForSample)
{
    StereoEngine engine;
    prepare(engine, {.depth = 2.0f, .width = 1.0f, .process = 0.0f, .phase = 1.0f, .mode = 2.0f});
    const Stereo<float> input = correlatedNoise(4096, 1);
    const Stereo<float> output = render(engine, input, 300);
    EXPECT_EQ(output.left, input.left);
    EXPECT_EQ(output.right, input.right);

    const Stereo<double> inputD = converted<double>(input);
    const Stereo<double> outputD = render(engine, inputD, 300);
    EXPECT_EQ(outputD.left, inputD.left);
    EXPECT_EQ(outputD.right, inputD.right);
}

TEST(StereoEngineBypass, MeterStillMoves)
{
    StereoEngine engine;
    prepare(engine, {.process = 0.0f});
    render(engine, correlatedNoise(44100, 2));
    EXPECT_GT(engine.sumEnvelope(), 0.1);
    EXPECT_GT(engine.differenceEnvelope(), 0.05);
    EXPECT_NE(engine.meter(), 0.0f);
    EXPECT_EQ(engine.meter(), spatara::stereoMeter(engine.sumEnvelope(), engine.differenceEnvelope()));
}

TEST(StereoEngineBypass, MonoDrivesMeterToPlusHalf)
{
    StereoEngine engine;
    prepare(engine, {.process = 0.0f});
    Stereo<float> input = correlatedNoise(8192, 3);
    input.right = input.left;
    render(engine, input);
    EXPECT_EQ(engine.meter(), 0.5f);
}

TEST(StereoEngineBypass, AntiPhaseDrivesMeterToMinusHalf)
{
    StereoEngine engine;
    prepare(engine, {.process = 0.0f});
    Stereo<float> input = correlatedNoise(8192, 4);
    for (size_t n = 0; n < input.left.size(); ++n)
        input.right[n] = -input.left[n];
    render(engine, input);
    EXPECT_EQ(engine.meter(), -0.5f);
}

TEST(StereoEngineBypass, SilenceGivesZeroMeter)
{
    StereoEngine engine;
    prepare(engine, {.process = 0.0f});
    render(engine, silence(8192));
    EXPECT_EQ(engine.meter(), 0.0f);
}

TEST(StereoEngineBypass, DoesNotAdvanceSmoothingOrDelay)
{
    StereoEngine engine;
    prepare(engine, {.process = 0.0f});
    const double position = engine.delayPosition();
    engine.setDepth(2.0f);
    engine.setWidth(1.0f);
    engine.setBaseFrequency(20.0f);
    render(engine, correlatedNoise(4096, 5));
    EXPECT_EQ(engine.smoothedDepth(), 0.0f);
    EXPECT_EQ(engine.smoothedWidth(), 0.0f);
    EXPECT_EQ(engine.delayPosition(), position);
}

// --- transparency ------------------------------------------------

class StereoEngineModes : public testing::TestWithParam<int>
{
};

INSTANTIATE_TEST_SUITE_P(EveryMode, StereoEngineModes, testing::Values(0, 1, 2));

TEST_P(StereoEngineModes, DepthZeroIsTransparentOnceSettled)
{
    StereoEngine engine;
    prepare(engine, {.depth = 2.0f, .width = 1.0f, .mode = float(GetParam())});
    engine.setDepth(0.0f);
    engine.setWidth(GetParam() == 0 ? 0.0f : 0.7f); // in mode 0 the width scales the side
    render(engine, correlatedNoise(kSettle, 6));
    // The denormal guard stops the single-precision glide a hair above zero, where it rests.
    EXPECT_LT(engine.smoothedDepth(), 1e-19f);

    const Stereo<float> input = correlatedNoise(8192, 7);
    const Stereo<float> output = render(engine, input);
    for (size_t n = 0; n < input.left.size(); ++n)
    {
        ASSERT_NEAR(output.left[n], input.left[n], 2e-7) << n;
        ASSERT_NEAR(output.right[n], input.right[n], 2e-7) << n;
    }
}

TEST(StereoEngineWidth, ModeZeroAtDepthZeroScalesTheSideByOnePlusThreeWidth)
{
    for (const float width : {0.0f, 0.5f, 1.0f})
    {
        StereoEngine engine;
        prepare(engine, {.depth = 0.0f, .width = width, .mode = 0.0f});
        const Stereo<float> input = correlatedNoise(4096, 8);
        const Stereo<float> output = render(engine, input);
        const float gain = 1.0f + 3.0f * width;
        for (size_t n = 0; n < input.left.size(); ++n)
        {
            ASSERT_NEAR(output.left[n] - output.right[n], gain * (input.left[n] - input.right[n]), 1e-6) << n;
            ASSERT_NEAR(output.left[n] + output.right[n], input.left[n] + input.right[n], 1e-6) << n;
        }
    }
}

// --- delay -------------------------------------------------------

struct PeriodCase
{
    float baseFrequency;
    int32_t delay; // one period at 44100 Hz, rounded up to whole samples
};

class StereoEngineDelay : public testing::TestWithParam<PeriodCase>
{
};

INSTANTIATE_TEST_SUITE_P(At44100, StereoEngineDelay,
                         testing::Values(PeriodCase{20.0f, 2205}, PeriodCase{265.0f, 167},
                                         PeriodCase{1000.0f, 45}));

TEST_P(StereoEngineDelay, ImpulseComesBackOnePeriodLater)
{
    const auto [baseFrequency, delay] = GetParam();
    StereoEngine engine;
    prepare(engine, {.depth = 2.0f, .width = 0.0f, .baseFrequency = baseFrequency, .mode = 1.0f});
    EXPECT_EQ(engine.targetDelayPosition(), StereoEngine::kDelayLength - delay);

    constexpr size_t kAt = 1000;
    Stereo<float> input = silence(4096);
    input.left[kAt] = 1.0f;
    input.right[kAt] = 1.0f;
    const Stereo<float> output = render(engine, input, 128);

    // Mode 1 adds 0.32 x depth of the delayed sum to the left and subtracts it from the right.
    const float echo = static_cast<float>(2.0 * (2.0 * 0.32));
    for (size_t n = 0; n < output.left.size(); ++n)
    {
        const float left = n == kAt ? 1.0f : (n == kAt + delay ? echo : 0.0f);
        const float right = n == kAt ? 1.0f : (n == kAt + delay ? -echo : 0.0f);
        ASSERT_EQ(output.left[n], left) << n;
        ASSERT_EQ(output.right[n], right) << n;
    }
}

TEST(StereoEngineDelay, PhaseInvertsTheDelayedPart)
{
    StereoEngine engine;
    prepare(engine, {.depth = 0.5f, .width = 0.0f, .baseFrequency = 20.0f, .phase = 1.0f, .mode = 2.0f});
    Stereo<float> input = silence(4096);
    input.left[10] = 1.0f; // side 0.5, mid 0.5
    const Stereo<float> output = render(engine, input);
    // Mode 2 adds the delayed side times depth (inverted here) to the left and subtracts it from the right.
    EXPECT_EQ(output.left[10 + 2205], -0.25f);
    EXPECT_EQ(output.right[10 + 2205], 0.25f);
}

TEST(StereoEngineGlide, BaseFrequencyChangeGlidesWithinTheLimits)
{
    StereoEngine engine;
    prepare(engine, {.depth = 1.0f, .baseFrequency = 265.0f, .mode = 1.0f});
    for (const float baseFrequency : {20.0f, 1000.0f, 265.0f})
    {
        engine.setBaseFrequency(baseFrequency);
        const double target = engine.targetDelayPosition();
        double previous = engine.delayPosition();
        const double start = previous;
        for (const double position : glidePositions(engine, 3 * 44100))
        {
            const double step = position - previous;
            ASSERT_GE(step, -0.5);                      // lengthening
            ASSERT_LE(step, 1.0);                       // shortening
            ASSERT_GE((target - previous) * step, 0.0); // always towards the target
            previous = position;
        }
        EXPECT_NE(start, target);
        EXPECT_EQ(engine.delayPosition(), target);
    }
}

TEST(StereoEngineGlide, LengtheningReachesItsLimitOfHalfASamplePerSample)
{
    StereoEngine engine;
    prepare(engine, {.baseFrequency = 1000.0f, .mode = 1.0f}, 8000.0f); // delay 8 samples
    // A much higher rate at suspend re-aims the delay (600 samples) but keeps the slow glide rate.
    engine.suspend(600000.0f);
    double previous = engine.delayPosition();
    const std::vector<double> positions = glidePositions(engine, 20000);
    int atLimit = 0;
    for (const double position : positions)
    {
        ASSERT_GE(position - previous, -0.5);
        atLimit += position - previous == -0.5;
        previous = position;
    }
    EXPECT_EQ(positions[0], 32760.0 - 0.5);
    EXPECT_GT(atLimit, 300);
    EXPECT_EQ(positions.back(), 32768.0 - 600.0);
}

TEST(StereoEngineGlide, ShorteningReachesItsLimitOfOneSamplePerSample)
{
    StereoEngine engine;
    prepare(engine, {.baseFrequency = 20.0f, .mode = 1.0f}, 8000.0f); // delay 400 samples
    engine.suspend(240000.0f);                                        // aims at 12000 samples
    glidePositions(engine, 4000);
    EXPECT_EQ(engine.delayPosition(), 32368.0 - 2000.0); // 4000 steps of half a sample
    engine.suspend(8000.0f);                             // back to 400 samples, 2000 positions ahead
    double previous = engine.delayPosition();
    const std::vector<double> positions = glidePositions(engine, 20000);
    int atLimit = 0;
    for (const double position : positions)
    {
        ASSERT_LE(position - previous, 1.0);
        atLimit += position - previous == 1.0;
        previous = position;
    }
    EXPECT_EQ(positions[0], 30368.0 + 1.0);
    EXPECT_GT(atLimit, 1000);
    EXPECT_EQ(positions.back(), 32368.0);
}

// --- buffers -----------------------------------------------------

TEST(StereoEngineBuffers, SharedOutputBufferReceivesTheRightChannel)
{
    for (const float process : {1.0f, 0.0f})
    {
        const Settings settings{.depth = 1.5f, .width = 0.3f, .process = process, .mode = 2.0f};
        StereoEngine separate, shared;
        prepare(separate, settings);
        prepare(shared, settings);
        const Stereo<float> input = correlatedNoise(4096, 9);
        const Stereo<float> expected = render(separate, input);
        std::vector<float> buffer(input.left.size());
        shared.process(input.left.data(), input.right.data(), buffer.data(), buffer.data(), 4096);
        EXPECT_EQ(buffer, expected.right);
        EXPECT_NE(buffer, expected.left);
        EXPECT_EQ(shared.meter(), separate.meter());
    }
}

TEST(StereoEngineBuffers, InPlaceProcessingMatchesSeparateBuffers)
{
    const Settings settings{.depth = 1.0f, .width = 0.6f, .mode = 0.0f};
    StereoEngine separate, inPlace;
    prepare(separate, settings);
    prepare(inPlace, settings);
    Stereo<float> buffers = correlatedNoise(4096, 10);
    const Stereo<float> expected = render(separate, buffers);
    inPlace.process(buffers.left.data(), buffers.right.data(), buffers.left.data(), buffers.right.data(),
                    4096);
    EXPECT_EQ(buffers.left, expected.left);
    EXPECT_EQ(buffers.right, expected.right);
}

TEST(StereoEngineBuffers, OneInputBufferForBothChannelsIsMono)
{
    const Settings settings{.depth = 1.0f, .width = 0.6f, .mode = 1.0f};
    StereoEngine copied, shared;
    prepare(copied, settings);
    prepare(shared, settings);
    Stereo<float> input = correlatedNoise(4096, 11);
    input.right = input.left;
    const Stereo<float> expected = render(copied, input);
    Stereo<float> output = silence(4096);
    shared.process(input.left.data(), input.left.data(), output.left.data(), output.right.data(), 4096);
    EXPECT_EQ(output.left, expected.left);
    EXPECT_EQ(output.right, expected.right);
}

// --- blocks ------------------------------------------------------

TEST(StereoEngineBlocks, EmptyBlockLeavesDelayStateUnchangedAndRecomputesTheMeter)
{
    const Settings settings{.depth = 1.0f, .width = 0.5f, .mode = 1.0f};
    StereoEngine plain, interrupted;
    prepare(plain, settings);
    prepare(interrupted, settings);
    // Mid-glide, so that any step taken by the empty block would show.
    plain.setBaseFrequency(40.0f);
    interrupted.setBaseFrequency(40.0f);
    plain.setDepth(2.0f);
    interrupted.setDepth(2.0f);

    const Stereo<float> input = correlatedNoise(8192, 12);
    Stereo<float> expected = silence(8192), output = silence(8192);
    for (size_t start = 0; start < 8192; start += 512)
    {
        plain.process(&input.left[start], &input.right[start], &expected.left[start], &expected.right[start],
                      512);
        interrupted.process(&input.left[start], &input.right[start], &output.left[start],
                            &output.right[start], 512);
        const double position = interrupted.delayPosition();
        const float depth = interrupted.smoothedDepth();
        interrupted.process(&input.left[start], &input.right[start], &output.left[start],
                            &output.right[start], 0);
        ASSERT_EQ(interrupted.delayPosition(), position);
        ASSERT_EQ(interrupted.smoothedDepth(), depth);
        ASSERT_EQ(interrupted.meter(),
                  spatara::stereoMeter(interrupted.sumEnvelope(), interrupted.differenceEnvelope()));
    }
    EXPECT_NE(interrupted.delayPosition(), interrupted.targetDelayPosition()); // still gliding
    EXPECT_EQ(output.left, expected.left);
    EXPECT_EQ(output.right, expected.right);
}

template <typename Sample> void expectSameResultForAnyBlockSize(int mode)
{
    const Settings settings{.depth = 0.5f, .width = 0.5f, .phase = 1.0f, .mode = float(mode)};
    StereoEngine single, whole;
    prepare(single, settings);
    prepare(whole, settings);
    const Stereo<Sample> input = converted<Sample>(correlatedNoise(40000, 13));
    // Frame by frame against whole blocks at rest, then the same while gliding.
    for (int round = 0; round < 2; ++round)
    {
        EXPECT_EQ(render(single, input, 1).left, render(whole, input, 4096).left);
        EXPECT_EQ(render(single, input, 1).right, render(whole, input, 4096).right);
        single.setDepth(1.8f);
        whole.setDepth(1.8f);
    }
}

TEST_P(StereoEngineModes, ResultDoesNotDependOnTheBlockSize)
{
    expectSameResultForAnyBlockSize<float>(GetParam());
    expectSameResultForAnyBlockSize<double>(GetParam());
}

TEST(StereoEngineBlocks, DelayStaysWithinTheLineAtExtremeSampleRates)
{
    StereoEngine engine;
    // A period of 50000 samples would not fit: the longest delay the line holds is used instead.
    prepare(engine, {.depth = 2.0f, .width = 0.0f, .baseFrequency = 20.0f, .mode = 1.0f}, 1000000.0f);
    EXPECT_EQ(engine.targetDelayPosition(), 1);
    Stereo<float> input = silence(40000);
    input.left[5] = 1.0f;
    const Stereo<float> output = render(engine, input);
    EXPECT_EQ(output.left[5 + 32767], static_cast<float>(1.0 * (2.0 * 0.32)));
    size_t echoes = 0;
    for (const float sample : output.left)
        echoes += sample != 0.0f;
    EXPECT_EQ(echoes, 2u); // the impulse and its one echo
}

// --- precision ---------------------------------------------------

TEST_P(StereoEngineModes, SingleAndDoublePrecisionAgree)
{
    const Settings settings{.depth = 1.2f, .width = 0.4f, .phase = 1.0f, .mode = float(GetParam())};
    StereoEngine single, dual;
    prepare(single, settings);
    prepare(dual, settings);
    const Stereo<float> input = correlatedNoise(3 * 44100, 14);
    const Stereo<double> inputD = converted<double>(input);
    Stereo<float> output = silence(input.left.size());
    Stereo<double> outputD{std::vector<double>(input.left.size()), std::vector<double>(input.left.size())};
    for (size_t start = 0; start < input.left.size(); start += 512)
    {
        if (start == 44100 / 512 * 512)
        {
            // Glide while comparing.
            for (StereoEngine* engine : {&single, &dual})
            {
                engine->setBaseFrequency(700.0f);
                engine->setDepth(2.0f);
                engine->setWidth(0.9f);
            }
        }
        const auto count = static_cast<int32_t>(std::min<size_t>(512, input.left.size() - start));
        single.process(&input.left[start], &input.right[start], &output.left[start], &output.right[start],
                       count);
        dual.process(&inputD.left[start], &inputD.right[start], &outputD.left[start], &outputD.right[start],
                     count);
    }
    for (size_t n = 0; n < input.left.size(); ++n)
    {
        ASSERT_NEAR(output.left[n], outputD.left[n], 1e-6) << n;
        ASSERT_NEAR(output.right[n], outputD.right[n], 1e-6) << n;
    }
    EXPECT_NEAR(single.meter(), dual.meter(), 1e-6);
}

TEST_P(StereoEngineModes, MatchesTheReferenceModelBitForBit)
{
    const int mode = GetParam();
    StereoEngine engine;
    prepare(engine,
            {.depth = 0.8f, .width = 0.3f, .baseFrequency = 120.0f, .phase = 1.0f, .mode = float(mode)});
    ReferenceEngine reference(kRate, 0.8f, 0.3f, 120.0f, 1.0f, mode);

    constexpr size_t kBlock = 256;
    const Stereo<float> input = correlatedNoise(1400 * kBlock, 15); // about 8 s, whole blocks
    Stereo<float> output = silence(input.left.size());
    for (size_t start = 0; start < input.left.size(); start += kBlock)
    {
        // A change now and then: the engine glides for a while, then rests again.
        if (start % (2 * 44100) < kBlock && start > 0)
        {
            const float step = static_cast<float>(start / (2 * 44100));
            engine.setDepth(0.5f * step);
            reference.setDepth(0.5f * step);
            engine.setWidth(1.0f - 0.25f * step);
            reference.setWidth(1.0f - 0.25f * step);
            engine.setBaseFrequency(20.0f + 300.0f * step);
            reference.setBaseFrequency(20.0f + 300.0f * step);
        }
        engine.process(&input.left[start], &input.right[start], &output.left[start], &output.right[start],
                       kBlock);
        for (size_t n = start; n < start + kBlock; ++n)
        {
            float left = 0.0f, right = 0.0f;
            reference.process(input.left[n], input.right[n], left, right);
            ASSERT_EQ(output.left[n], left) << n;
            ASSERT_EQ(output.right[n], right) << n;
        }
    }
    EXPECT_EQ(engine.sumEnvelope(), reference.sumEnvelope());
    EXPECT_EQ(engine.differenceEnvelope(), reference.differenceEnvelope());
}

// --- mode changes ------------------------------------------------

namespace
{

// Sends an impulse, lets mode changes happen before its echo is due, and reports whether the echo came.
bool echoSurvives(float mode, const std::vector<float>& changes)
{
    StereoEngine engine;
    prepare(engine, {.depth = 2.0f, .width = 0.0f, .baseFrequency = 265.0f, .mode = mode}); // delay 167
    Stereo<float> input = silence(512);
    input.left[0] = 1.0f;
    Stereo<float> output = silence(512);
    engine.process(input.left.data(), input.right.data(), output.left.data(), output.right.data(), 100);
    for (const float change : changes)
        engine.setMode(change);
    engine.process(&input.left[100], &input.right[100], &output.left[100], &output.right[100], 412);
    return output.left[167] != 0.0f;
}

} // namespace

TEST(StereoEngineModeChange, SameModeLeavesTheDelayLinesUntouched)
{
    EXPECT_TRUE(echoSurvives(1.0f, {}));
    EXPECT_TRUE(echoSurvives(1.0f, {1.0f}));
    EXPECT_TRUE(echoSurvives(1.0f, {1.5f})); // same whole part
    EXPECT_TRUE(echoSurvives(0.0f, {0.0f}));
    EXPECT_TRUE(echoSurvives(2.0f, {2.0f}));
}

TEST(StereoEngineModeChange, OtherModeClearsBothDelayLines)
{
    // Away and back again before the next block: only the clearing can remove the echo.
    EXPECT_FALSE(echoSurvives(1.0f, {2.0f, 1.0f}));
    EXPECT_FALSE(echoSurvives(0.0f, {1.0f, 0.0f})); // mode 0 uses both lines
    EXPECT_FALSE(echoSurvives(2.0f, {0.0f, 2.0f}));
}

// --- life cycle --------------------------------------------------

TEST(StereoEngineLifeCycle, ResumeStartsOnTheTargetsWithoutGliding)
{
    StereoEngine engine;
    prepare(engine, {.depth = 1.0f, .width = 0.5f, .baseFrequency = 100.0f});
    EXPECT_EQ(engine.smoothedDepth(), 1.0f);
    EXPECT_EQ(engine.smoothedWidth(), 0.5f);
    EXPECT_EQ(engine.targetDelayPosition(), 32768 - 441);
    EXPECT_EQ(engine.delayPosition(), 32768.0 - 441.0);
}

TEST(StereoEngineLifeCycle, ResumeClearsTheStateAndTheMeter)
{
    StereoEngine engine;
    prepare(engine, {.depth = 2.0f, .mode = 1.0f});
    Stereo<float> input = correlatedNoise(4096, 16);
    render(engine, input);
    ASSERT_NE(engine.meter(), 0.0f);
    engine.resume(kRate);
    EXPECT_EQ(engine.meter(), 0.0f);
    EXPECT_EQ(engine.sumEnvelope(), 0.0);
    EXPECT_EQ(engine.differenceEnvelope(), 0.0);
    // Silence in, silence out: nothing of the earlier signal is left in the lines.
    const Stereo<float> output = render(engine, silence(4096));
    EXPECT_EQ(output.left, std::vector<float>(4096, 0.0f));
}

TEST(StereoEngineLifeCycle, SuspendReaimsTheDelayButKeepsSmoothedValuesAndPosition)
{
    StereoEngine engine;
    prepare(engine, {.depth = 1.0f, .width = 0.5f, .baseFrequency = 265.0f, .mode = 1.0f});
    render(engine, correlatedNoise(4096, 17));
    engine.setDepth(2.0f);
    engine.setBaseFrequency(20.0f);
    engine.suspend(48000.0f);
    EXPECT_EQ(engine.targetDelayPosition(), 32768 - 2400);
    EXPECT_EQ(engine.delayPosition(), 32601.0);
    EXPECT_EQ(engine.smoothedDepth(), 1.0f);
    EXPECT_EQ(engine.meter(), 0.0f);
    EXPECT_EQ(engine.sumEnvelope(), 0.0);
    const Stereo<float> output = render(engine, silence(4096));
    EXPECT_EQ(output.left, std::vector<float>(4096, 0.0f));
}

TEST(StereoEngineLifeCycle, SmoothingClosesFifteenSixteenthsOfAStepIn277Milliseconds)
{
    StereoEngine engine;
    prepare(engine, {.depth = 0.0f, .mode = 2.0f});
    engine.setDepth(1.0f);
    render(engine, silence(12216)); // 277 ms at 44100 Hz
    EXPECT_NEAR(engine.smoothedDepth(), 15.0f / 16.0f, 1e-4);
}

TEST(StereoEngineLifeCycle, EnvelopesCloseFifteenSixteenthsIn600Milliseconds)
{
    StereoEngine engine;
    prepare(engine, {.process = 0.0f});
    const Stereo<float> input{std::vector<float>(26460, 0.5f), std::vector<float>(26460, 0.25f)};
    render(engine, input);
    EXPECT_NEAR(engine.sumEnvelope(), 0.75 * 15.0 / 16.0, 1e-5);
    EXPECT_NEAR(engine.differenceEnvelope(), 0.25 * 15.0 / 16.0, 1e-5);
}

TEST(StereoEngineGlide, AJumpAskedForStartsTheNextBlockOnTheTargetsAndLaterChangesGlideAgain)
{
    StereoEngine engine;
    prepare(engine, {.depth = 0.2f, .width = 0.1f, .baseFrequency = 265.0f, .mode = 1.0f});
    engine.setDepth(1.5f);
    engine.setWidth(0.8f);
    engine.setBaseFrequency(50.0f);
    engine.jumpAtNextBlock();
    glidePositions(engine, 1);
    EXPECT_EQ(engine.smoothedDepth(), 1.5f);
    EXPECT_EQ(engine.smoothedWidth(), 0.8f);
    EXPECT_EQ(engine.delayPosition(), engine.targetDelayPosition());

    // Asked once, jumped once: the next change glides.
    engine.setDepth(0.5f);
    glidePositions(engine, 1);
    EXPECT_GT(engine.smoothedDepth(), 0.5f);
    EXPECT_LT(engine.smoothedDepth(), 1.5f);
}

TEST(StereoEngineGlide, AResumeAnswersAJumpAskedForBeforeIt)
{
    StereoEngine engine;
    prepare(engine, {.depth = 0.2f});
    engine.jumpAtNextBlock();
    engine.resume(kRate);
    engine.setDepth(1.0f);
    glidePositions(engine, 1);
    EXPECT_LT(engine.smoothedDepth(), 1.0f) << "the resume already started the engine on its targets";
}

// --- the scope -----------------------------------------------------

namespace
{
// Points the scope gets from a second of the signal in blocks of 512, read after each block as the editor
// reads at its idle.
std::vector<float> scopePoints(StereoEngine& engine, float rate, const std::function<float(long)>& left,
                               const std::function<float(long)>& right)
{
    std::vector<float> points;
    std::vector<float> inL(512), inR(512), outL(512), outR(512), pairs(2 * 4096);
    for (long done = 0; done < static_cast<long>(rate); done += 512)
    {
        for (int i = 0; i < 512; ++i)
        {
            inL[i] = left(done + i);
            inR[i] = right(done + i);
        }
        engine.process(inL.data(), inR.data(), outL.data(), outR.data(), 512);
        const uint32_t taken = engine.readScope(pairs.data(), 4096);
        points.insert(points.end(), pairs.begin(), pairs.begin() + 2 * taken);
    }
    return points;
}
} // namespace

TEST(StereoEngineScope, OpenItGetsTwoThousandPointsASecondOrMoreAtEveryRate)
{
    for (const float rate : {8000.0f, 44100.0f, 96000.0f, 384000.0f})
    {
        StereoEngine engine;
        prepare(engine, {.process = 0.0f}, rate);
        engine.setScopeOpen(true);
        const auto points = scopePoints(
            engine, rate, [](long f) { return std::sin(0.01f * f); },
            [](long f) { return std::sin(0.01f * f); });
        EXPECT_GE(points.size() / 2, 2000u) << rate;
        EXPECT_LE(points.size() / 2, 4100u) << rate;
        // The effect off, each point is the input's: the same in both channels.
        for (std::size_t i = 0; i < points.size(); i += 2)
            ASSERT_EQ(points[i], points[i + 1]) << rate;
    }
}

TEST(StereoEngineScope, ClosedItGetsNothingAndBadSamplesAreNoPoints)
{
    StereoEngine engine;
    prepare(engine, {.process = 0.0f});
    const auto one = [](long) { return 0.5f; };
    EXPECT_TRUE(scopePoints(engine, kRate, one, one).empty());
    engine.setScopeOpen(true);
    const auto points = scopePoints(
        engine, kRate, [](long f) { return f % 2 ? NAN : 0.5f; }, one);
    ASSERT_FALSE(points.empty());
    for (const float value : points)
        ASSERT_EQ(value, 0.5f);
}
