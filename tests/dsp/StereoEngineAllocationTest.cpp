// The audio thread must never allocate: every allocation of this test program is counted.

#include "StereoEngine.h"

#include "TestSignals.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <new>

namespace
{

std::atomic<long> allocations{0};

} // namespace

void* operator new(std::size_t size)
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    allocations.fetch_add(1, std::memory_order_relaxed);
    std::free(memory);
}

TEST(StereoEngineAudioThread, ProcessNeverAllocates)
{
    spatara::StereoEngine engine;
    engine.setDepth(1.0f);
    engine.setWidth(0.5f);
    engine.resume(44100.0f);
    const Stereo<float> input = correlatedNoise(2048, 20);
    const Stereo<double> inputD = converted<double>(input);
    Stereo<float> output{std::vector<float>(2048), std::vector<float>(2048)};
    Stereo<double> outputD{std::vector<double>(2048), std::vector<double>(2048)};

    const long before = allocations.load();
    // Every mode, on and off, with the scope closed and open (its ring filling up and overflowing).
    for (const bool scope : {false, true})
        for (const float mode : {0.0f, 1.0f, 2.0f})
            for (const float process : {1.0f, 0.0f})
            {
                engine.setScopeOpen(scope);
                engine.setMode(mode);
                engine.setProcess(process);
                engine.setBaseFrequency(100.0f + 300.0f * mode); // glide as well as rest
                engine.process(input.left.data(), input.right.data(), output.left.data(), output.right.data(),
                               2048);
                engine.process(inputD.left.data(), inputD.right.data(), outputD.left.data(),
                               outputD.right.data(), 2048);
                engine.process(input.left.data(), input.right.data(), output.left.data(), output.right.data(),
                               0);
            }
    EXPECT_EQ(allocations.load() - before, 0);

    // The counter itself works (a direct call, which unlike a new-expression may not be left out).
    void* probe = ::operator new(16);
    ::operator delete(probe);
    EXPECT_EQ(allocations.load() - before, 2);
}
