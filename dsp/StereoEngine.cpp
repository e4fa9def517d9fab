#include "StereoEngine.h"

#include "EngineCoefficients.h"
#include "Flush.h"
#include "StereoMeter.h"

#include <cmath>

namespace spatara
{

namespace
{

constexpr auto kRelaxed = std::memory_order_relaxed;

// The whole part of a mode value; anything from 2 up (and NaN) is mode 2.
int wholeMode(float mode)
{
    return mode < 1.0f ? 0 : (mode < 2.0f ? 1 : 2);
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
    clearState();
    aimDelay();
    // A resumed effect starts at its targets instead of gliding to them.
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
    clearRequested_.store(false, kRelaxed);
    lineA_.clear();
    lineB_.clear();
    sumEnvelope_.reset();
    differenceEnvelope_.reset();
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
    if (clearRequested_.exchange(false, std::memory_order_acquire))
    {
        lineA_.clear();
        lineB_.clear();
    }

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

    // Also after an empty block, so the meter always reflects the envelopes.
    meter_.store(stereoMeter(sumEnvelope_.value(), differenceEnvelope_.value()), kRelaxed);
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
        sumEnvelope.follow(static_cast<double>(std::abs(left + right)), envelopeCoefficient);
        differenceEnvelope.follow(static_cast<double>(std::abs(left - right)), envelopeCoefficient);
    }
    sumEnvelope_ = sumEnvelope;
    differenceEnvelope_ = differenceEnvelope;
}

template <int Mode, typename Sample>
void StereoEngine::enhance(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR, int32_t frames,
                           BlockTargets targets)
{
    // Most blocks run with depth, width and delay at rest on their targets. The smoothing steps would
    // then change nothing, bit for bit, so such a block takes a loop without them.
    const bool gliding = !depth_.isSettled(targets.depth, smoothingCoefficient_) ||
                         !width_.isSettled(targets.width, smoothingCoefficient_) ||
                         !glide_.isSettled(targets.delayPosition);
    if (gliding)
        enhanceBlock<Mode, true>(inL, inR, outL, outR, frames, targets);
    else
        enhanceBlock<Mode, false>(inL, inR, outL, outR, frames, targets);
}

template <int Mode, bool Gliding, typename Sample>
void StereoEngine::enhanceBlock(const Sample* inL, const Sample* inR, Sample* outL, Sample* outR,
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
    const Sample sign = targets.sign;

    float d = depth.value();
    float w = width.value();
    int32_t whole = static_cast<int32_t>(glide.position());
    double frac = glide.position() - whole;

    for (int32_t n = 0; n < frames; ++n)
    {
        const Sample left = inL[n];
        const Sample right = inR[n];
        if constexpr (Gliding)
        {
            d = depth.next(depthTarget, smoothing);
            w = width.next(widthTarget, smoothing);
            const double position = glide.next(positionTarget, smoothing);
            whole = static_cast<int32_t>(position);
            frac = position - whole;
        }
        const int32_t readIndex = (whole + writeIndex) & kDelayMask;
        Sample outLeft;
        Sample outRight;
        if constexpr (Mode == 0)
        {
            // Width: the side is raised 1 to 4 times, and the delayed difference of the two lines
            // (twice the raised side) widens the image further.
            const Sample sum = left + right;
            const Sample side = flushCoarse((Sample(w) * Sample(3) + Sample(1)) * (left - right));
            lineA_.write(writeIndex, static_cast<float>(sign * (sum + side)));
            lineB_.write(writeIndex, static_cast<float>(sign * (sum - side)));
            const Sample a = static_cast<Sample>(lineA_.read(readIndex, frac));
            const Sample b = static_cast<Sample>(lineB_.read(readIndex, frac));
            const Sample gain = Sample(d) * Sample(0.75);
            outLeft = flushCoarse(((a - b) * gain + (sum + side)) * Sample(0.5));
            outRight = flushCoarse(((b - a) * gain + (sum - side)) * Sample(0.5));
        }
        else
        {
            // Emphasis: a first difference y - w p of the delayed sum (mode 1) or side (mode 2).
            constexpr double kGain = Mode == 1 ? 0.32 : 1.0;
            Sample mid{};
            Sample side{};
            if constexpr (Mode == 1)
            {
                lineA_.write(writeIndex, static_cast<float>(left + right));
            }
            else
            {
                mid = flushCoarse(Sample(0.5) * (left + right));
                side = flushCoarse(Sample(0.5) * (left - right));
                lineA_.write(writeIndex, static_cast<float>(side));
            }
            const Sample delayed = static_cast<Sample>(lineA_.read(readIndex, frac));
            const Sample before = Sample(previous);
            previous = static_cast<float>(delayed);
            // The emphasis is flushed and scaled in double precision, then continues in the block's own.
            const Sample emphasis =
                static_cast<Sample>(flushFine(static_cast<double>((delayed - before * Sample(w)) * sign)) *
                                    (static_cast<double>(d) * kGain));
            if constexpr (Mode == 1)
            {
                outLeft = flushCoarse(left + emphasis);
                outRight = flushCoarse(right - emphasis);
            }
            else
            {
                outLeft = flushCoarse(emphasis + mid + side);
                outRight = flushCoarse(mid - emphasis - side);
            }
        }

        // Left first: when both outputs are one buffer it must end up holding the right channel.
        outL[n] = outLeft;
        outR[n] = outRight;
        writeIndex = (writeIndex + 1) & kDelayMask;
        sumEnvelope.follow(static_cast<double>(std::abs(outLeft + outRight)), envelopeCoefficient);
        differenceEnvelope.follow(static_cast<double>(std::abs(outLeft - outRight)), envelopeCoefficient);
    }

    depth_ = depth;
    width_ = width;
    glide_ = glide;
    sumEnvelope_ = sumEnvelope;
    differenceEnvelope_ = differenceEnvelope;
    previousDelayed_ = previous;
    writeIndex_ = writeIndex;
}

} // namespace spatara
