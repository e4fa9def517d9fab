#pragma once

#include "CorrelationFollower.h"
#include "DelayGlide.h"
#include "DelayLine.h"
#include "EnvelopeFollower.h"
#include "ModeKernel.h"
#include "ParameterSmoother.h"
#include "ScopeRing.h"
#include "StrictArithmetic.h"

#include <atomic>
#include <cstdint>

namespace spatara
{

// The stereo enhancement engine: adds a delayed, filtered part of the signal to one channel and
// subtracts it from the other, in one of three modes, and keeps the balance meter.
//
// Threads: the setters and meter() may be called from any thread at any time; resume() and
// suspend() from the host's UI thread, never while process() runs; process() from the audio thread.
class StereoEngine
{
  public:
    static constexpr int32_t kDelayLength = DelayLine::kLength, kDelayMask = DelayLine::kMask;

    StereoEngine(); // allocates the two delay lines, the only allocation the engine makes
    StereoEngine(const StereoEngine&) = delete;
    StereoEngine& operator=(const StereoEngine&) = delete;

    // --- parameter targets (real values), any thread, lock-free -------------------------------------

    void setDepth(float realDepth);  // 2v^2, 0..2
    void setBaseFrequency(float hz); // 20..1000 Hz; the delay is one period of it
    void setWidth(float width);      // 0..1
    void setProcess(float process);  // 0/1, below 0.5 bypasses
    void setPhase(float phase);      // 0/1, at 0.5 and above the delayed part is inverted
    void setMode(float mode);        // 0/1/2; a change of mode clears both delay lines

    // --- life cycle, host UI thread, never while process() runs ----------------------------------------

    // Recomputes the coefficients for the sample rate, clears the state and starts without gliding.
    void resume(float sampleRate);
    // Clears the state and re-aims the delay, leaving coefficients and smoothed values as they are.
    void suspend(float sampleRate);
    // The next block starts at the targets instead of gliding to them, as a resumed effect does: for hosts
    // that hand over their values with the first block after switching the effect on. Any thread.
    void jumpAtNextBlock() { jumpRequested_.store(true, std::memory_order_release); }

    // --- processing, audio thread ----------------------------------------------------------------------

    // outR may be outL: the right result is written after the left one, so that buffer ends up
    // holding the right channel. inR may be inL (mono); inputs may be the outputs (in place).
    void process(const float* inL, const float* inR, float* outL, float* outR, int32_t frames);
    void process(const double* inL, const double* inR, double* outL, double* outR, int32_t frames);

    float meter() const { return meter_.load(std::memory_order_relaxed); } // -0.5..0.5
    // The output's phase correlation, -1..+1 (0 in silence), any thread.
    float correlation() const { return correlationMeter_.load(std::memory_order_relaxed); }

    // --- the scope: while it is open the audio thread hands on every so many output frames, at least 2,000
    // a second at any rate (about 4,000); closed, it does nothing for it. Editor's thread.
    void setScopeOpen(bool open) { scopeOpen_.store(open, std::memory_order_relaxed); }
    // Up to maxPoints of the points handed on since the last call, oldest first, into pairs (left, right,
    // …); how many.
    uint32_t readScope(float* pairs, uint32_t maxPoints) { return scopeRing_.pop(pairs, maxPoints); }

    // --- inspection, for tests; not while process() runs -----------------------------------------------

    double delayPosition() const { return glide_.position(); }
    int32_t targetDelayPosition() const { return targetPosition_.load(std::memory_order_relaxed); }
    float smoothedDepth() const { return depth_.value(); }
    float smoothedWidth() const { return width_.value(); }
    double sumEnvelope() const { return sumEnvelope_.value(); }
    double differenceEnvelope() const { return differenceEnvelope_.value(); }

  private:
    struct BlockTargets;

    template <typename Sample>
    void processBlock(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR, int32_t frames);
    template <typename Sample>
    void bypass(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR, int32_t frames);
    template <int Mode, typename Sample>
    void enhance(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR, int32_t frames,
                 BlockTargets targets);
    template <int Mode, bool Gliding, typename Sample>
    void enhanceFrames(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR, int32_t frames,
                       BlockTargets targets);
    template <int Mode, typename Sample>
    void enhanceChunk(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR,
                      ModeKernel<Mode, Sample> kernel, int32_t whole, double frac);

    void clearState();
    void aimDelay();
    void jumpToTargets();
    template <typename Sample> void handToScope(const Sample* outL, const Sample* outR, int32_t frames);

    // Targets, written by any thread and read once per block by the audio thread.
    std::atomic<float> depthTarget_{0.0f};
    std::atomic<float> baseFrequency_{265.0f};
    std::atomic<float> widthTarget_{0.0f};
    std::atomic<float> process_{1.0f};
    std::atomic<float> phase_{0.0f};
    std::atomic<float> mode_{0.0f};
    std::atomic<float> sampleRate_{44100.0f};
    std::atomic<int32_t> targetPosition_{0};
    // A mode change asks the audio thread to clear the delay lines at its next block: clearing them
    // from the caller's thread would race with the running process().
    std::atomic<bool> clearRequested_{false};
    std::atomic<bool> jumpRequested_{false};
    std::atomic<float> meter_{0.0f};
    std::atomic<float> correlationMeter_{0.0f};
    std::atomic<bool> scopeOpen_{false};
    ScopeRing scopeRing_;

    // Audio-thread state.
    float smoothingCoefficient_ = 0.0f; // depth, width and delay all glide at the same rate
    double envelopeCoefficient_ = 0.0;
    double correlationCoefficient_ = 0.0;
    int32_t scopeStride_ = 1; // frames per point handed to the scope
    int32_t scopeSkip_ = 0;   // frames still to skip before the next point
    ParameterSmoother depth_;
    ParameterSmoother width_;
    DelayGlide glide_;
    EnvelopeFollower sumEnvelope_;
    EnvelopeFollower differenceEnvelope_;
    CorrelationFollower correlation_;
    float previousDelayed_ = 0.0f;
    int32_t writeIndex_ = 0;
    DelayLine lineA_;
    DelayLine lineB_; // mode 0 only
};

} // namespace spatara
