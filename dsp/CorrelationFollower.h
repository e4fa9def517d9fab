#pragma once

#include "Flush.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace spatara
{

// The phase correlation of two channels: the mean of left times right over the root of the means of their
// squares, each mean a one-pole average. +1 is mono, 0 unrelated channels, -1 one channel inverted. In
// double precision, like the balance envelopes beside it.
class CorrelationFollower
{
  public:
    void reset() { product_ = leftPower_ = rightPower_ = 0.0; }

    void follow(double left, double right, double coefficient)
    {
        // A NaN or infinite sample counts as silence in both channels, as it does for the balance meter.
        if (!(std::fabs(left) <= std::numeric_limits<double>::max()) ||
            !(std::fabs(right) <= std::numeric_limits<double>::max()))
            left = right = 0.0;
        product_ = flushFine(product_ + (left * right - product_) * coefficient);
        leftPower_ = flushFine(leftPower_ + (left * left - leftPower_) * coefficient);
        rightPower_ = flushFine(rightPower_ + (right * right - rightPower_) * coefficient);
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
