#include "StereoEngine.h"

#include "DenormalGuard.h"
#include "EngineCoefficients.h"
#include "Flush.h"
#include "StereoMeter.h"

#include <algorithm>
#include <cmath>

namespace spatara
{

namespace
{

constexpr auto kRelaxed = std::memory_order_relaxed;

// Frames per chunk of the passes taken by blocks at rest.
constexpr int32_t kChunk = 64;

// The whole part of a mode value; anything from 2 up (and NaN) is mode 2.
int wholeMode(float mode)
{
    return mode < 1.0f ? 0 : (mode < 2.0f ? 1 : 2);
}

// Both balance envelopes follow every output frame.
template <typename Sample>
void followBalance(EnvelopeFollower& sum, EnvelopeFollower& difference, Sample left, Sample right,
                   double coefficient)
{
    sum.follow(static_cast<double>(std::abs(left + right)), coefficient);
    difference.follow(static_cast<double>(std::abs(left - right)), coefficient);
}

// A chunk's frames into the delay lines (b only in mode 0). The lines are reached through their own
// pointers, which the caller keeps clear of the inputs, so the pass can run several frames at once.
template <int Mode, typename Sample>
void writeChunk(ModeKernel<Mode, Sample> kernel, const Sample* inL, const Sample* inR, float* __restrict a,
                float* __restrict b)
{
    for (int32_t n = 0; n < kChunk; ++n)
    {
        float toA = 0.0f;
        float toB = 0.0f;
        kernel.lineInputs(inL[n], inR[n], toA, toB);
        a[n] = toA;
        if constexpr (Mode == 0) b[n] = toB;
    }
}

// A chunk's reads of one delay line, starting at line[0], interpolated as frame by frame.
template <typename Sample>
void readChunk(const float* __restrict line, double frac, Sample* __restrict delayed)
{
    for (int32_t n = 0; n < kChunk; ++n)
        delayed[n] = static_cast<Sample>(DelayLine::interpolate(line[n], line[n + 1], frac));
}

} // namespace

// What the audio thread reads from the shared targets, once per block.
struct StereoEngine::BlockTargets
{
    float depth;
    float width;
    int32_t delayPosition;
    float sign;
};

StereoEngine::StereoEngine()
{
    resume(sampleRate_.load(kRelaxed));
}

// --- parameter targets ----------------------------------------------------------------------------------

void StereoEngine::setDepth(float realDepth)
{
    depthTarget_.store(realDepth, kRelaxed);
}

void StereoEngine::setBaseFrequency(float hz)
{
    baseFrequency_.store(hz, kRelaxed);
    aimDelay();
}

void StereoEngine::setWidth(float width)
{
    widthTarget_.store(width, kRelaxed);
}

void StereoEngine::setProcess(float process)
{
    process_.store(process, kRelaxed);
}

void StereoEngine::setPhase(float phase)
{
    phase_.store(phase, kRelaxed);
}

void StereoEngine::setMode(float mode)
{
    const float previous = mode_.exchange(mode, kRelaxed);
    // What one mode left in the lines means nothing to another, so a new mode starts from silence.
    if (wholeMode(mode) != wholeMode(previous)) clearRequested_.store(true, std::memory_order_release);
}

// --- life cycle -----------------------------------------------------------------------------------------

void StereoEngine::resume(float sampleRate)
{
    sampleRate_.store(sampleRate, kRelaxed);
    smoothingCoefficient_ = smoothingCoefficient(sampleRate);
    envelopeCoefficient_ = envelopeCoefficient(sampleRate);
    correlationCoefficient_ = correlationCoefficient(sampleRate);
    scopeStride_ = scopeStride(sampleRate);
    scopeSkip_ = 0;
    clearState();
    aimDelay();
    // A resumed effect starts at its targets instead of gliding to them.
    jumpRequested_.store(false, kRelaxed);
    jumpToTargets();
}

void StereoEngine::jumpToTargets()
{
    depth_.jumpTo(depthTarget_.load(kRelaxed));
    width_.jumpTo(widthTarget_.load(kRelaxed));
    glide_.jumpTo(targetPosition_.load(kRelaxed));
}

void StereoEngine::suspend(float sampleRate)
{
    sampleRate_.store(sampleRate, kRelaxed);
    clearState();
    aimDelay();
}

void StereoEngine::clearState()
{
    meter_.store(0.0f, kRelaxed);
    correlationMeter_.store(0.0f, kRelaxed);
    clearRequested_.store(false, kRelaxed);
    lineA_.clear();
    lineB_.clear();
    sumEnvelope_.reset();
    differenceEnvelope_.reset();
    correlation_.reset();
    previousDelayed_ = 0.0f;
    writeIndex_ &= kDelayMask;
}

void StereoEngine::aimDelay()
{
    targetPosition_.store(
        spatara::targetDelayPosition(sampleRate_.load(kRelaxed), baseFrequency_.load(kRelaxed)), kRelaxed);
}

// --- processing -----------------------------------------------------------------------------------------

void StereoEngine::process(const float* inL, const float* inR, float* outL, float* outR, int32_t frames)
{
    processBlock(inL, inR, outL, outR, frames);
}

void StereoEngine::process(const double* inL, const double* inR, double* outL, double* outR, int32_t frames)
{
    processBlock(inL, inR, outL, outR, frames);
}

template <typename Sample>
void StereoEngine::processBlock(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR,
                                int32_t frames)
{
    const DenormalGuard flushDenormals;
    if (clearRequested_.exchange(false, std::memory_order_acquire))
    {
        lineA_.clear();
        lineB_.clear();
    }
    if (jumpRequested_.exchange(false, std::memory_order_acquire)) jumpToTargets();

    if (process_.load(kRelaxed) < 0.5f)
    {
        bypass(inL, inR, outL, outR, frames);
    }
    else
    {
        const BlockTargets targets{depthTarget_.load(kRelaxed), widthTarget_.load(kRelaxed),
                                   targetPosition_.load(kRelaxed),
                                   phase_.load(kRelaxed) < 0.5f ? 1.0f : -1.0f};
        switch (wholeMode(mode_.load(kRelaxed)))
        {
        case 0:
            enhance<0>(inL, inR, outL, outR, frames, targets);
            break;
        case 1:
            enhance<1>(inL, inR, outL, outR, frames, targets);
            break;
        default:
            enhance<2>(inL, inR, outL, outR, frames, targets);
            break;
        }
    }

    // Also after an empty block, so the meters always reflect the envelopes.
    meter_.store(stereoMeter(sumEnvelope_.value(), differenceEnvelope_.value()), kRelaxed);
    // The correlation reads the finished output in a pass of its own, which the processor runs far quicker
    // than the same sums inside the loops above. A host that gave one buffer for both outputs keeps only the
    // right channel, a mono output, and reads +1 for it.
    CorrelationSums sums;
    sums.add(outL, outR, frames);
    correlation_.follow(sums, frames, correlationCoefficient_);
    correlationMeter_.store(static_cast<float>(correlation_.value()), kRelaxed);
    if (scopeOpen_.load(kRelaxed)) handToScope(outL, outR, frames);
}

template <typename Sample>
void StereoEngine::handToScope(const Sample* outL, const Sample* outR, int32_t frames)
{
    int32_t n = scopeSkip_;
    for (; n < frames; n += scopeStride_)
    {
        const auto left = static_cast<float>(outL[n]);
        const auto right = static_cast<float>(outR[n]);
        // Bad samples are no points; a full ring drops the point, the editor catches up.
        if (std::isfinite(left) && std::isfinite(right)) scopeRing_.push(left, right);
    }
    scopeSkip_ = n - frames;
}

template <typename Sample>
void StereoEngine::bypass(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR, int32_t frames)
{
    EnvelopeFollower sumEnvelope = sumEnvelope_;
    EnvelopeFollower differenceEnvelope = differenceEnvelope_;
    const double envelopeCoefficient = envelopeCoefficient_;
    for (int32_t n = 0; n < frames; ++n)
    {
        const Sample left = inL[n];
        const Sample right = inR[n];
        outL[n] = left;
        outR[n] = right;
        // The meter keeps moving in bypass so the user can compare the untouched image.
        followBalance(sumEnvelope, differenceEnvelope, left, right, envelopeCoefficient);
    }
    sumEnvelope_ = sumEnvelope;
    differenceEnvelope_ = differenceEnvelope;
}

template <int Mode, typename Sample>
void StereoEngine::enhance(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR, int32_t frames,
                           BlockTargets targets)
{
    const bool gliding = !depth_.isSettled(targets.depth, smoothingCoefficient_) ||
                         !width_.isSettled(targets.width, smoothingCoefficient_) ||
                         !glide_.isSettled(targets.delayPosition);
    if (gliding)
    {
        enhanceFrames<Mode, true>(inL, inR, outL, outR, frames, targets);
        return;
    }

    // Most blocks run with depth, width and delay at rest on their targets, where a smoothing step
    // changes nothing, bit for bit. Such a block goes in chunks of separate passes, each free of the
    // others' latency; frames where a chunk would straddle the end of the lines, or would read what
    // it writes itself (delays near the full line), go frame by frame.
    const ModeKernel<Mode, Sample> kernel(depth_.value(), width_.value(), targets.sign);
    const int32_t whole = static_cast<int32_t>(glide_.position());
    const double frac = glide_.position() - whole;
    for (int32_t done = 0; done < frames;)
    {
        const int32_t readIndex = (whole + writeIndex_) & kDelayMask;
        const bool chunkFits = frames - done >= kChunk && whole >= kChunk &&
                               writeIndex_ <= kDelayLength - kChunk && readIndex < kDelayLength - kChunk;
        const int32_t count = std::min(kChunk, frames - done);
        if (chunkFits)
            enhanceChunk(inL + done, inR + done, outL + done, outR + done, kernel, whole, frac);
        else
            enhanceFrames<Mode, false>(inL + done, inR + done, outL + done, outR + done, count, targets);
        done += count;
    }
}

template <int Mode, bool Gliding, typename Sample>
void StereoEngine::enhanceFrames(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR,
                                 int32_t frames, BlockTargets targets)
{
    // The state lives in locals for the block: as far as the compiler knows the output pointers could
    // alias the engine's own floats, which would push every per-sample update through memory.
    ParameterSmoother depth = depth_;
    ParameterSmoother width = width_;
    DelayGlide glide = glide_;
    EnvelopeFollower sumEnvelope = sumEnvelope_;
    EnvelopeFollower differenceEnvelope = differenceEnvelope_;
    float previous = previousDelayed_;
    int32_t writeIndex = writeIndex_;
    const float smoothing = smoothingCoefficient_;
    const double envelopeCoefficient = envelopeCoefficient_;
    const float depthTarget = targets.depth;
    const float widthTarget = targets.width;
    const int32_t positionTarget = targets.delayPosition;

    ModeKernel<Mode, Sample> kernel(depth.value(), width.value(), targets.sign);
    int32_t whole = static_cast<int32_t>(glide.position());
    double frac = glide.position() - whole;

    for (int32_t n = 0; n < frames; ++n)
    {
        const Sample left = inL[n];
        const Sample right = inR[n];
        if constexpr (Gliding)
        {
            const float d = depth.next(depthTarget, smoothing);
            const float w = width.next(widthTarget, smoothing);
            kernel = ModeKernel<Mode, Sample>(d, w, targets.sign);
            const double position = glide.next(positionTarget, smoothing);
            whole = static_cast<int32_t>(position);
            frac = position - whole;
        }
        const int32_t readIndex = (whole + writeIndex) & kDelayMask;

        float toA = 0.0f;
        float toB = 0.0f;
        kernel.lineInputs(left, right, toA, toB);
        lineA_.write(writeIndex, toA);
        const Sample delayedA = static_cast<Sample>(lineA_.read(readIndex, frac));
        Sample delayedB{};
        if constexpr (Mode == 0)
        {
            lineB_.write(writeIndex, toB);
            delayedB = static_cast<Sample>(lineB_.read(readIndex, frac));
        }
        Sample outLeft;
        Sample outRight;
        kernel.outputs(left, right, delayedA, delayedB, Sample(previous), outLeft, outRight);
        previous = static_cast<float>(delayedA);

        // Left first: when both outputs are one buffer it must end up holding the right channel.
        outL[n] = outLeft;
        outR[n] = outRight;
        writeIndex = (writeIndex + 1) & kDelayMask;
        followBalance(sumEnvelope, differenceEnvelope, outLeft, outRight, envelopeCoefficient);
    }

    depth_ = depth;
    width_ = width;
    glide_ = glide;
    sumEnvelope_ = sumEnvelope;
    differenceEnvelope_ = differenceEnvelope;
    previousDelayed_ = previous;
    writeIndex_ = writeIndex;
}

template <int Mode, typename Sample>
void StereoEngine::enhanceChunk(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR,
                                ModeKernel<Mode, Sample> kernel, int32_t whole, double frac)
{
    const int32_t readIndex = (whole + writeIndex_) & kDelayMask;
    writeChunk(kernel, inL, inR, lineA_.data() + writeIndex_, lineB_.data() + writeIndex_);

    // delayedA[0] is the previous frame's read of line A, as the engine keeps it between frames.
    alignas(16) Sample delayedA[kChunk + 1];
    alignas(16) Sample delayedB[kChunk] = {};
    delayedA[0] = Sample(previousDelayed_);
    readChunk(lineA_.data() + readIndex, frac, delayedA + 1);
    if constexpr (Mode == 0) readChunk(lineB_.data() + readIndex, frac, delayedB);

    alignas(16) Sample left[kChunk];
    alignas(16) Sample right[kChunk];
    for (int32_t n = 0; n < kChunk; ++n)
        kernel.outputs(inL[n], inR[n], delayedA[n + 1], delayedB[n], Sample(static_cast<float>(delayedA[n])),
                       left[n], right[n]);
    previousDelayed_ = static_cast<float>(delayedA[kChunk]);
    writeIndex_ = (writeIndex_ + kChunk) & kDelayMask;

    EnvelopeFollower sumEnvelope = sumEnvelope_;
    EnvelopeFollower differenceEnvelope = differenceEnvelope_;
    const double envelopeCoefficient = envelopeCoefficient_;
    for (int32_t n = 0; n < kChunk; ++n)
    {
        // Left first: when both outputs are one buffer it must end up holding the right channel.
        outL[n] = left[n];
        outR[n] = right[n];
        followBalance(sumEnvelope, differenceEnvelope, left[n], right[n], envelopeCoefficient);
    }
    sumEnvelope_ = sumEnvelope;
    differenceEnvelope_ = differenceEnvelope;
}

} // namespace spatara
