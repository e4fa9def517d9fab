#pragma once

#include "Flush.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace spatara
{

// What one block of output adds to the correlation: the sums of left times right and of the squares.
struct CorrelationSums
{
    double product = 0.0;
    double left = 0.0;
    double right = 0.0;

    // The block's output as the engine left it. Four sums of each kind run side by side, so that the
    // additions do not wait for each other. A NaN or infinite sample counts as silence in both channels, as
    // it does for the balance meter: a block whose sums come out so is summed again, sample by sample.
    template <typename Sample> void add(const Sample* outL, const Sample* outR, int32_t frames)
    {
        double p[4] = {0.0, 0.0, 0.0, 0.0};
        double l2[4] = {0.0, 0.0, 0.0, 0.0};
        double r2[4] = {0.0, 0.0, 0.0, 0.0};
        int32_t n = 0;
        for (; n + 4 <= frames; n += 4)
            for (int k = 0; k < 4; ++k)
                accumulate(outL[n + k], outR[n + k], p[k], l2[k], r2[k]);
        for (; n < frames; ++n)
            accumulate(outL[n], outR[n], p[0], l2[0], r2[0]);
        const double blockProduct = (p[0] + p[1]) + (p[2] + p[3]);
        const double blockLeft = (l2[0] + l2[1]) + (l2[2] + l2[3]);
        const double blockRight = (r2[0] + r2[1]) + (r2[2] + r2[3]);
        if (std::isfinite(blockProduct) && std::isfinite(blockLeft) && std::isfinite(blockRight))
        {
            product += blockProduct;
            left += blockLeft;
            right += blockRight;
            return;
        }
        for (n = 0; n < frames; ++n)
            if (std::isfinite(static_cast<double>(outL[n])) && std::isfinite(static_cast<double>(outR[n])))
                accumulate(outL[n], outR[n], product, left, right);
    }

  private:
    template <typename Sample> static void accumulate(Sample l, Sample r, double& p, double& l2, double& r2)
    {
        const auto left = static_cast<double>(l);
        const auto right = static_cast<double>(r);
        p += left * right;
        l2 += left * left;
        r2 += right * right;
    }
};

// The phase correlation of two channels: the mean of left times right over the root of the means of their
// squares. +1 is mono, 0 unrelated channels, -1 one channel inverted. Each block's sums join one-pole
// averages at its end, weighted as the same averages frame by frame would weigh the block as a whole. In
// double precision, like the balance envelopes.
class CorrelationFollower
{
  public:
    void reset() { *this = CorrelationFollower(); }

    // Folds a block of frames into the averages; coefficient is the one-pole coefficient of one frame.
    void follow(const CorrelationSums& sums, int32_t frames, double coefficient)
    {
        if (frames <= 0) return;
        const double kept = std::pow(1.0 - coefficient, frames);
        const double fresh = (1.0 - kept) / frames;
        product_ = flushFine(product_ * kept + sums.product * fresh);
        leftPower_ = flushFine(leftPower_ * kept + sums.left * fresh);
        rightPower_ = flushFine(rightPower_ * kept + sums.right * fresh);
    }

    // -1..+1; 0 while either channel is silent.
    double value() const
    {
        const double power = std::sqrt(leftPower_ * rightPower_);
        if (!(power > kQuiet)) return 0.0;
        return std::clamp(product_ / power, -1.0, 1.0);
    }

  private:
    // Below this mean power (about -200 dB) a channel counts as silent.
    static constexpr double kQuiet = 1e-20;
    double product_ = 0.0;
    double leftPower_ = 0.0;
    double rightPower_ = 0.0;
};

} // namespace spatara
