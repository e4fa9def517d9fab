// Nanoseconds per stereo sample frame of the stereo enhancement engine, per mode, bypass and
// precision, beside a floor kernel: the two balance envelopes alone. Every output sample feeds those
// two recursions, so no correct engine can run faster than they do.

#include "RatioReporter.h"

#include "EngineCoefficients.h"
#include "EnvelopeFollower.h"
#include "StereoEngine.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <iostream>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace
{

constexpr float kSampleRate = 44100.0f;
const int kBlocks[] = {64, 512, 4096};

// Partly correlated stereo noise, so that both envelopes carry signal, at full level or scaled down to
// the denormal range of the sample type (below 1.2e-38 for float, 2.2e-308 for double).
template <typename Sample>
void fillStereoNoise(std::vector<Sample>& left, std::vector<Sample>& right, bool denormal = false)
{
    std::minstd_rand random(1234);
    std::uniform_real_distribution<float> noise(-0.5f, 0.5f);
    const Sample scale = denormal ? std::numeric_limits<Sample>::denorm_min() * Sample(1 << 20) : Sample(1);
    for (size_t n = 0; n < left.size(); ++n)
    {
        const float common = noise(random);
        left[n] = Sample(common + 0.3f * noise(random)) * scale;
        right[n] = Sample(common + 0.3f * noise(random)) * scale;
    }
}

void setFramesCounter(benchmark::State& state, int block)
{
    // An inverted rate of block * 1e-9 per iteration reads directly as nanoseconds per frame.
    state.counters["ns_per_frame"] = benchmark::Counter(
        block * 1e-9, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

struct Variant
{
    const char* name;
    float mode;
    bool bypass;
    bool gliding;  // targets moved every block, so the smoothing never rests
    bool denormal; // input in the denormal range of the sample type
    bool scope;    // the scope open, its points read after every block as the editor reads them
};

template <typename Sample> void engineBlock(benchmark::State& state, Variant variant, int block)
{
    std::vector<Sample> inL(block), inR(block), outL(block), outR(block);
    fillStereoNoise(inL, inR, variant.denormal);

    spatara::StereoEngine engine;
    engine.setDepth(1.0f);
    engine.setBaseFrequency(265.0f);
    engine.setWidth(0.5f);
    engine.setPhase(0.0f);
    engine.setProcess(variant.bypass ? 0.0f : 1.0f);
    engine.setMode(variant.mode);
    engine.resume(kSampleRate);

    engine.setScopeOpen(variant.scope);
    std::vector<float> points(2 * spatara::ScopeRing::kCapacity);
    bool flip = false;
    for (auto _ : state)
    {
        if (variant.gliding)
        {
            flip = !flip;
            engine.setDepth(flip ? 0.5f : 1.5f);
            engine.setWidth(flip ? 0.2f : 0.8f);
            engine.setBaseFrequency(flip ? 200.0f : 300.0f);
        }
        engine.process(inL.data(), inR.data(), outL.data(), outR.data(), block);
        if (variant.scope) engine.readScope(points.data(), spatara::ScopeRing::kCapacity);
        benchmark::DoNotOptimize(outL.data());
        benchmark::DoNotOptimize(outR.data());
        benchmark::ClobberMemory();
    }
    setFramesCounter(state, block);
}

void envelopeFloor(benchmark::State& state, int block)
{
    std::vector<float> left(block), right(block);
    fillStereoNoise(left, right);
    const double coefficient = spatara::envelopeCoefficient(kSampleRate);
    spatara::EnvelopeFollower sum;
    spatara::EnvelopeFollower difference;

    for (auto _ : state)
    {
        for (int n = 0; n < block; ++n)
        {
            sum.follow(static_cast<double>(std::abs(left[n] + right[n])), coefficient);
            difference.follow(static_cast<double>(std::abs(left[n] - right[n])), coefficient);
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(difference);
        benchmark::ClobberMemory();
    }
    setFramesCounter(state, block);
}

void registerBenchmarks()
{
    for (int block : kBlocks)
        benchmark::RegisterBenchmark(("floor/" + std::to_string(block)).c_str(), envelopeFloor, block);

    const Variant variants[] = {{"mode0", 0.0f, false, false, false, false},
                                {"mode1", 1.0f, false, false, false, false},
                                {"mode2", 2.0f, false, false, false, false},
                                {"bypass", 0.0f, true, false, false, false},
                                {"mode0-gliding", 0.0f, false, true, false, false},
                                {"mode1-gliding", 1.0f, false, true, false, false},
                                {"mode2-gliding", 2.0f, false, true, false, false},
                                {"mode0-denormal", 0.0f, false, false, true, false},
                                {"mode1-denormal", 1.0f, false, false, true, false},
                                {"mode2-denormal", 2.0f, false, false, true, false},
                                {"bypass-denormal", 0.0f, true, false, true, false},
                                {"mode0-gliding-denormal", 0.0f, false, true, true, false},
                                {"mode1-gliding-denormal", 1.0f, false, true, true, false},
                                {"mode2-gliding-denormal", 2.0f, false, true, true, false},
                                {"mode0-scope", 0.0f, false, false, false, true},
                                {"mode1-scope", 1.0f, false, false, false, true},
                                {"mode2-scope", 2.0f, false, false, false, true},
                                {"bypass-scope", 0.0f, true, false, false, true}};
    const auto name = [](const Variant& variant, const char* precision, int block)
    { return std::string(variant.name) + '-' + precision + '/' + std::to_string(block); };
    for (const Variant& variant : variants)
    {
        for (int block : kBlocks)
            benchmark::RegisterBenchmark(name(variant, "float", block).c_str(), engineBlock<float>, variant,
                                         block);
        for (int block : kBlocks)
            benchmark::RegisterBenchmark(name(variant, "double", block).c_str(), engineBlock<double>, variant,
                                         block);
    }
}

} // namespace

int main(int argc, char** argv)
{
    registerBenchmarks();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.printTable(std::cout);
    reporter.printComparison(std::cout, "-denormal",
                             "ns per frame of denormal input (ratio to the same row with normal input)");
    reporter.printComparison(std::cout, "-scope",
                             "ns per frame with the scope open (ratio to the same row with it closed)");
    benchmark::Shutdown();
    return 0;
}
