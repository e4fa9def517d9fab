// One instance of the built Spatara.so driven the way a busy host drives it: the audio thread processing,
// an automation thread moving every parameter, and a third thread saving and restoring the chunk, all at
// once. Built a second time with ThreadSanitizer (scripts/tsan), where any data race fails the run.
#include "VstPluginHost.h"

#include <atomic>
#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace
{
constexpr int kBlock = 256;
constexpr int kChunkRoundTrips = 150;

template <typename Sample> bool processBlock(AEffect* e, long blockNumber)
{
    std::vector<Sample> inL(kBlock), inR(kBlock), outL(kBlock), outR(kBlock);
    for (int i = 0; i < kBlock; ++i)
    {
        const double t = static_cast<double>(blockNumber * kBlock + i);
        inL[static_cast<std::size_t>(i)] = Sample(0.5 * std::sin(0.01 * t));
        inR[static_cast<std::size_t>(i)] = Sample(0.3 * std::sin(0.023 * t + 1.0));
    }
    Sample* inputs[2] = {inL.data(), inR.data()};
    Sample* outputs[2] = {outL.data(), outR.data()};
    if constexpr (sizeof(Sample) == sizeof(float))
        e->processReplacing(e, inputs, outputs, kBlock);
    else
        e->processDoubleReplacing(e, inputs, outputs, kBlock);
    for (int i = 0; i < kBlock; ++i)
        if (!std::isfinite(outL[static_cast<std::size_t>(i)]) ||
            !std::isfinite(outR[static_cast<std::size_t>(i)]))
            return false;
    return true;
}
} // namespace

TEST(ThreadsOnOneInstance, AudioAutomationAndChunkThreadsRunTogetherCleanly)
{
    std::string error;
    auto host = VstPluginHost::load(SPATARA_PLUGIN_PATH, error);
    ASSERT_TRUE(host) << error;
    host->open();
    host->start(44100.0f, kBlock);
    AEffect* e = host->effect();

    std::atomic<bool> go{false}, stop{false};
    std::atomic<long> blocks{0}, changes{0}, badBlocks{0};

    std::thread audio(
        [&]
        {
            while (!go.load())
                std::this_thread::yield();
            for (long n = 0; !stop.load(); ++n)
            {
                const bool finite = n % 2 ? processBlock<double>(e, n) : processBlock<float>(e, n);
                if (!finite) ++badBlocks;
                ++blocks;
            }
        });
    std::thread automation(
        [&]
        {
            while (!go.load())
                std::this_thread::yield();
            for (long n = 0; !stop.load(); ++n)
            {
                const int index = static_cast<int>(n % 6);
                e->setParameter(e, index, static_cast<float>((n * 37) % 101) / 100.0f);
                e->getParameter(e, index);
                ++changes;
            }
        });

    go = true;
    int refused = 0, shortChunks = 0;
    for (int round = 0; round < kChunkRoundTrips; ++round)
    {
        void* data = nullptr;
        const VstIntPtr size = host->dispatch(effGetChunk, 0, 0, &data);
        if (size != 13729 || !data)
        {
            ++shortChunks;
            continue;
        }
        std::vector<char> saved(static_cast<char*>(data), static_cast<char*>(data) + size);
        if (host->dispatch(effSetChunk, 0, size, saved.data()) != 0) ++refused;
        char name[64] = {};
        host->dispatch(effGetProgramNameIndexed, round % 38, 0, name);
    }
    // Both other threads have had their share of the time the chunk thread ran.
    while (blocks.load() < 20 || changes.load() < 20)
        std::this_thread::yield();
    stop = true;
    audio.join();
    automation.join();

    EXPECT_EQ(shortChunks, 0);
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(badBlocks.load(), 0);
}
