#pragma once

#include "StereoEngine.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

// Signals and a block-wise runner shared by the engine tests.

template <typename Sample> struct Stereo
{
    std::vector<Sample> left;
    std::vector<Sample> right;
};

// Noise whose channels share a common part, so that both balance envelopes carry signal.
inline Stereo<float> correlatedNoise(size_t frames, uint32_t seed)
{
    std::minstd_rand random(seed);
    std::uniform_real_distribution<float> noise(-0.5f, 0.5f);
    Stereo<float> signal{std::vector<float>(frames), std::vector<float>(frames)};
    for (size_t n = 0; n < frames; ++n)
    {
        const float common = noise(random);
        signal.left[n] = common + 0.4f * noise(random);
        signal.right[n] = common + 0.4f * noise(random);
    }
    return signal;
}

template <typename Sample> Stereo<Sample> converted(const Stereo<float>& signal)
{
    return {std::vector<Sample>(signal.left.begin(), signal.left.end()),
            std::vector<Sample>(signal.right.begin(), signal.right.end())};
}

// Runs the whole signal through the engine in blocks of the given size.
template <typename Sample>
Stereo<Sample> render(spatara::StereoEngine& engine, const Stereo<Sample>& input, size_t block = 512)
{
    const size_t frames = input.left.size();
    Stereo<Sample> output{std::vector<Sample>(frames), std::vector<Sample>(frames)};
    for (size_t start = 0; start < frames; start += block)
    {
        const auto count = static_cast<int32_t>(std::min(block, frames - start));
        engine.process(input.left.data() + start, input.right.data() + start, output.left.data() + start,
                       output.right.data() + start, count);
    }
    return output;
}
