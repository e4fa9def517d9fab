// How the real plug-in routes its pins, and what a parameter change does to running audio, through the
// binary interface.
#include "VstPluginHost.h"

#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace
{
constexpr int kFrames = 2048;

std::unique_ptr<VstPluginHost> startPlugin(const VstHostAnswers& answers = VstHostAnswers())
{
    std::string error;
    auto host = VstPluginHost::load(SPATARA_PLUGIN_PATH, error, answers);
    if (!host) return nullptr;
    host->open();
    AEffect* e = host->effect();
    // "room space 4" as parameters: mode 3, full depth, a clearly audible delay.
    const float values[6] = {1.0f, 0.5f, 0.25f, 1.0f, 0.0f, 1.0f};
    for (int i = 0; i < 6; ++i)
        e->setParameter(e, i, values[i]);
    host->start(44100.0f, kFrames);
    return host;
}

struct Signal
{
    std::vector<float> left, right;
    explicit Signal(int offset = 0) : left(kFrames), right(kFrames)
    {
        for (int i = 0; i < kFrames; ++i)
        {
            left[static_cast<std::size_t>(i)] = 0.5f * std::sin(0.01f * static_cast<float>(i + offset));
            right[static_cast<std::size_t>(i)] =
                0.3f * std::sin(0.023f * static_cast<float>(i + offset) + 1.0f);
        }
    }
};

struct Result
{
    std::vector<float> left = std::vector<float>(kFrames), right = std::vector<float>(kFrames);
};

Result process(VstPluginHost& host, float* inL, float* inR)
{
    Result out;
    float* inputs[2] = {inL, inR};
    float* outputs[2] = {out.left.data(), out.right.data()};
    host.effect()->processReplacing(host.effect(), inputs, outputs, kFrames);
    return out;
}
} // namespace

TEST(ChannelRouting, SharedOutputBufferReceivesTheRightChannel)
{
    auto separate = startPlugin(), shared = startPlugin();
    ASSERT_TRUE(separate && shared);
    Signal in;
    const Result expected = process(*separate, in.left.data(), in.right.data());

    std::vector<float> both(kFrames);
    float* inputs[2] = {in.left.data(), in.right.data()};
    float* outputs[2] = {both.data(), both.data()};
    shared->effect()->processReplacing(shared->effect(), inputs, outputs, kFrames);
    EXPECT_EQ(both, expected.right);
    EXPECT_NE(expected.left, expected.right);
}

TEST(ChannelRouting, UnconnectedSecondInputReadsTheFirst)
{
    VstHostAnswers unconnected;
    unconnected.inputsConnected = false;
    auto reference = startPlugin(), plugin = startPlugin(unconnected);
    ASSERT_TRUE(reference && plugin);
    Signal in;
    const Result expected = process(*reference, in.left.data(), in.left.data());
    const Result got = process(*plugin, in.left.data(), in.right.data());
    EXPECT_EQ(got.left, expected.left);
    EXPECT_EQ(got.right, expected.right);
}

TEST(ChannelRouting, MonoArrangementReadsTheFirstInputTwice)
{
    auto reference = startPlugin(), plugin = startPlugin();
    ASSERT_TRUE(reference && plugin);
    VstSpeakerArrangement mono{}, stereo{};
    mono.numChannels = 1;
    stereo.numChannels = 2;
    ASSERT_EQ(plugin->dispatch(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&mono), &stereo), 1);
    Signal in;
    const Result expected = process(*reference, in.left.data(), in.left.data());
    const Result got = process(*plugin, in.left.data(), in.right.data());
    EXPECT_EQ(got.left, expected.left);
    EXPECT_EQ(got.right, expected.right);
}

TEST(ChannelRouting, InPlaceProcessingGivesTheSameResult)
{
    auto reference = startPlugin(), plugin = startPlugin();
    ASSERT_TRUE(reference && plugin);
    Signal in, inPlace;
    const Result expected = process(*reference, in.left.data(), in.right.data());
    float* buffers[2] = {inPlace.left.data(), inPlace.right.data()};
    plugin->effect()->processReplacing(plugin->effect(), buffers, buffers, kFrames);
    EXPECT_EQ(inPlace.left, expected.left);
    EXPECT_EQ(inPlace.right, expected.right);
}

TEST(ModeChange, SettingTheSameModeLeavesTheDelayLinesAlone)
{
    auto reference = startPlugin(), plugin = startPlugin();
    ASSERT_TRUE(reference && plugin);
    Signal first(0), second(kFrames);
    process(*reference, first.left.data(), first.right.data());
    process(*plugin, first.left.data(), first.right.data());
    plugin->effect()->setParameter(plugin->effect(), 5, 0.9f); // still mode 2
    const Result expected = process(*reference, second.left.data(), second.right.data());
    const Result got = process(*plugin, second.left.data(), second.right.data());
    EXPECT_EQ(got.left, expected.left);
    EXPECT_EQ(got.right, expected.right);
}

TEST(ModeChange, ChangingTheModeClearsTheDelayLines)
{
    auto reference = startPlugin(), plugin = startPlugin();
    ASSERT_TRUE(reference && plugin);
    Signal first(0), second(kFrames);
    process(*reference, first.left.data(), first.right.data());
    process(*plugin, first.left.data(), first.right.data());
    // Away and back: the same mode as the reference, but the delayed past is gone.
    plugin->effect()->setParameter(plugin->effect(), 5, 0.5f);
    plugin->effect()->setParameter(plugin->effect(), 5, 1.0f);
    const Result expected = process(*reference, second.left.data(), second.right.data());
    const Result got = process(*plugin, second.left.data(), second.right.data());
    EXPECT_NE(got.left, expected.left);
}
