// What the audio thread gives a host through the built Spatara.so: the tail it announces, how it gets over
// a bad sample, and the floating-point mode it hands back.
#include "VstPluginHost.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>
#include <xmmintrin.h>

namespace
{
constexpr VstInt32 kMeterRequest = CCONST('Z', 'v', 'M', 't');
constexpr int kBlock = 512;

struct Setting
{
    float depth, baseFrequency, width, process, phase, mode; // normalised, as a host sends them
};

// Mode3 at 20 Hz, full depth and emphasis: the longest delay and the filter's extra sample.
constexpr Setting kLongestEcho{1.0f, 0.0f, 1.0f, 1.0f, 0.0f, 1.0f};

std::unique_ptr<VstPluginHost> startPlugin(const Setting& setting, float sampleRate = 44100.0f)
{
    std::string error;
    auto host = VstPluginHost::load(SPATARA_PLUGIN_PATH, error);
    if (!host) return nullptr;
    host->open();
    AEffect* e = host->effect();
    const float values[6] = {setting.depth,   setting.baseFrequency, setting.width,
                             setting.process, setting.phase,         setting.mode};
    for (int i = 0; i < 6; ++i)
        e->setParameter(e, i, values[i]);
    host->start(sampleRate, kBlock);
    return host;
}

template <typename Sample> struct Block
{
    std::vector<Sample> left = std::vector<Sample>(kBlock), right = std::vector<Sample>(kBlock);
};

// Partly correlated sines, different for every block number.
template <typename Sample> Block<Sample> music(int blockNumber)
{
    Block<Sample> block;
    for (int i = 0; i < kBlock; ++i)
    {
        const double t = static_cast<double>(blockNumber * kBlock + i);
        block.left[static_cast<std::size_t>(i)] = Sample(0.5 * std::sin(0.01 * t) + 0.1 * std::sin(0.31 * t));
        block.right[static_cast<std::size_t>(i)] = Sample(0.3 * std::sin(0.023 * t + 1.0));
    }
    return block;
}

template <typename Sample> Block<Sample> process(VstPluginHost& host, Block<Sample> in)
{
    Block<Sample> out;
    Sample* inputs[2] = {in.left.data(), in.right.data()};
    Sample* outputs[2] = {out.left.data(), out.right.data()};
    AEffect* e = host.effect();
    if constexpr (std::is_same_v<Sample, float>)
        e->processReplacing(e, inputs, outputs, kBlock);
    else
        e->processDoubleReplacing(e, inputs, outputs, kBlock);
    return out;
}

float meter(VstPluginHost& host)
{
    float value = -2.0f;
    host.dispatch(effVendorSpecific, kMeterRequest, 0, &value);
    return value;
}

// The last frame, counted from the first frame of the blocks, whose output is not exactly zero; -1 if none.
template <typename Sample> long lastSoundingFrame(const std::vector<Block<Sample>>& blocks)
{
    long last = -1;
    for (std::size_t b = 0; b < blocks.size(); ++b)
        for (int i = 0; i < kBlock; ++i)
            if (blocks[b].left[static_cast<std::size_t>(i)] != 0 ||
                blocks[b].right[static_cast<std::size_t>(i)] != 0)
                last = static_cast<long>(b) * kBlock + i;
    return last;
}

class BadSample : public ::testing::TestWithParam<double>
{
};

// One bad sample in block 2 of 200 (2.3 s at 44.1 kHz), then music again.
template <typename Sample> void checkBadSampleIsForgotten(const Setting& setting, double bad)
{
    auto plugin = startPlugin(setting), reference = startPlugin(setting);
    ASSERT_TRUE(plugin && reference);
    const int badBlock = 2;
    for (int b = 0; b < 200; ++b)
    {
        Block<Sample> in = music<Sample>(b);
        const Block<Sample> expected = process(*reference, in);
        if (b == badBlock) in.left[100] = Sample(bad);
        const Block<Sample> got = process(*plugin, in);
        // The delay of 20..1000 Hz is at most 2205 frames: five blocks after the bad one it has passed.
        if (b > badBlock + 5)
        {
            ASSERT_EQ(got.left, expected.left) << "block " << b;
            ASSERT_EQ(got.right, expected.right) << "block " << b;
        }
    }
    const float settled = meter(*reference);
    ASSERT_NE(settled, 0.0f);
    EXPECT_NEAR(meter(*plugin), settled, 1e-4);
}
} // namespace

TEST(TailSize, IsTheLongestDelayAndTheEmphasisSampleAtTheCurrentSampleRate)
{
    auto plugin = startPlugin(kLongestEcho, 44100.0f);
    ASSERT_TRUE(plugin);
    EXPECT_EQ(plugin->dispatch(effGetTailSize), 2205 + 1); // 50 ms at 20 Hz
    plugin->stop();
    plugin->start(96000.0f, kBlock);
    EXPECT_EQ(plugin->dispatch(effGetTailSize), 4800 + 1);
}

TEST(TailSize, CoversTheLastSoundingFrameOfTheLongestEcho)
{
    for (float rate : {44100.0f, 48000.0f, 96000.0f})
    {
        auto plugin = startPlugin(kLongestEcho, rate);
        ASSERT_TRUE(plugin);
        const long tail = static_cast<long>(plugin->dispatch(effGetTailSize));
        std::vector<Block<float>> out;
        Block<float> impulse;
        impulse.left[kBlock - 1] = 1.0f; // the input's last sounding frame
        out.push_back(process(*plugin, impulse));
        for (int b = 0; b < 20; ++b)
            out.push_back(process(*plugin, Block<float>()));
        // The echo sounds for exactly the announced tail after the input has stopped.
        EXPECT_EQ(lastSoundingFrame(out) - (kBlock - 1), tail) << rate;
    }
}

TEST_P(BadSample, IsForgottenByMeterAndOutputInEveryModeAndBypass)
{
    const double bad = GetParam();
    for (float mode : {0.0f, 0.5f, 1.0f})
    {
        SCOPED_TRACE(mode);
        checkBadSampleIsForgotten<float>({0.8f, 0.3f, 0.6f, 1.0f, 0.0f, mode}, bad);
        checkBadSampleIsForgotten<double>({0.8f, 0.3f, 0.6f, 1.0f, 0.0f, mode}, bad);
    }
    SCOPED_TRACE("bypass");
    checkBadSampleIsForgotten<float>({0.8f, 0.3f, 0.6f, 0.0f, 0.0f, 0.0f}, bad);
    checkBadSampleIsForgotten<double>({0.8f, 0.3f, 0.6f, 0.0f, 0.0f, 0.0f}, bad);
}

INSTANTIATE_TEST_SUITE_P(NaNAndInfinities, BadSample,
                         testing::Values(std::numeric_limits<double>::quiet_NaN(),
                                         std::numeric_limits<double>::infinity(),
                                         -std::numeric_limits<double>::infinity()),
                         [](const testing::TestParamInfo<double>& info) {
                             return std::isnan(info.param) ? "NaN"
                                    : info.param > 0       ? "PlusInfinity"
                                                           : "MinusInfinity";
                         });

TEST(FloatingPointMode, TheHostsModeIsRestoredAfterEveryProcessCall)
{
    auto plugin = startPlugin({0.8f, 0.3f, 0.6f, 1.0f, 0.0f, 0.0f});
    ASSERT_TRUE(plugin);
    const unsigned hostMode = _mm_getcsr();
    constexpr unsigned kControlBits = ~0x3fu; // everything but the sticky exception flags
    constexpr unsigned kFlushToZero = 0x8000, kDenormalsAreZero = 0x0040;
    // A host that flushes itself, and one that does not, with a rounding mode of its own.
    for (unsigned mode : {(hostMode | kFlushToZero | kDenormalsAreZero) & kControlBits,
                          (hostMode & ~(kFlushToZero | kDenormalsAreZero) & kControlBits) | 0x2000u})
    {
        _mm_setcsr(mode);
        process(*plugin, music<float>(0));
        const unsigned afterFloat = _mm_getcsr() & kControlBits;
        _mm_setcsr(mode);
        process(*plugin, music<double>(1));
        const unsigned afterDouble = _mm_getcsr() & kControlBits;
        _mm_setcsr(hostMode);
        EXPECT_EQ(afterFloat, mode);
        EXPECT_EQ(afterDouble, mode);
    }
}
