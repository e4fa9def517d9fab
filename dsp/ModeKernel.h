#pragma once

#include "Flush.h"

namespace spatara
{

// The arithmetic of one mode for one frame, split into what goes into the delay lines and what comes
// out once the delayed values are known. The split lets a block run the halves as separate passes
// over many frames; run back to back they are the plain per-frame algorithm.
template <int Mode, typename Sample> class ModeKernel
{
  public:
    ModeKernel(float depth, float width, float sign) : depth_(depth), width_(width), sign_(sign) {}

    // Mode 0 writes to lines A and B, modes 1 and 2 to A only (b is left alone).
    void lineInputs(Sample left, Sample right, float& a, float& b) const
    {
        if constexpr (Mode == 0)
        {
            const Sample sum = left + right;
            const Sample side = widenedSide(left, right);
            a = static_cast<float>(sign_ * (sum + side));
            b = static_cast<float>(sign_ * (sum - side));
        }
        else if constexpr (Mode == 1)
        {
            a = static_cast<float>(left + right);
        }
        else
        {
            a = static_cast<float>(halfSide(left, right));
        }
    }

    // delayedA and delayedB: this frame's reads of the lines; before: the previous frame's read of
    // line A as the engine keeps it (single precision). Modes 1 and 2 ignore delayedB, mode 0 before.
    void outputs(Sample left, Sample right, Sample delayedA, Sample delayedB, Sample before, Sample& outLeft,
                 Sample& outRight) const
    {
        if constexpr (Mode == 0)
        {
            // Width: the side raised 1 to 4 times, widened further by the delayed difference of the
            // two lines (twice the raised side).
            const Sample sum = left + right;
            const Sample side = widenedSide(left, right);
            const Sample gain = Sample(depth_) * Sample(0.75);
            outLeft = flushCoarse(((delayedA - delayedB) * gain + (sum + side)) * Sample(0.5));
            outRight = flushCoarse(((delayedB - delayedA) * gain + (sum - side)) * Sample(0.5));
        }
        else if constexpr (Mode == 1)
        {
            const Sample e = emphasis(delayedA, before);
            outLeft = flushCoarse(left + e);
            outRight = flushCoarse(right - e);
        }
        else
        {
            const Sample e = emphasis(delayedA, before);
            const Sample mid = flushCoarse(Sample(0.5) * (left + right));
            const Sample side = halfSide(left, right);
            outLeft = flushCoarse(e + mid + side);
            outRight = flushCoarse(mid - e - side);
        }
    }

  private:
    Sample widenedSide(Sample left, Sample right) const
    {
        return flushCoarse((Sample(width_) * Sample(3) + Sample(1)) * (left - right));
    }

    static Sample halfSide(Sample left, Sample right) { return flushCoarse(Sample(0.5) * (left - right)); }

    // A first difference y - w p of the delayed sum (mode 1) or side (mode 2), emphasising its highs.
    // It is flushed and scaled in double precision, then continues in the block's own precision.
    Sample emphasis(Sample delayed, Sample before) const
    {
        constexpr double kGain = Mode == 1 ? 0.32 : 1.0;
        const double difference = static_cast<double>((delayed - before * Sample(width_)) * sign_);
        return static_cast<Sample>(flushFine(difference) * (static_cast<double>(depth_) * kGain));
    }

    float depth_;
    float width_;
    Sample sign_;
};

} // namespace spatara
