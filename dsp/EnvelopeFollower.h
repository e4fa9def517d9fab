#pragma once

#include "Flush.h"

#include <limits>

namespace spatara
{

// One-pole follower of a magnitude in double precision; the balance meter compares two of them.
class EnvelopeFollower
{
  public:
    void reset() { value_ = 0.0; }
    double value() const { return value_; }

    void follow(double magnitude, double coefficient)
    {
        // A NaN or infinite sample counts as silence: once inside the recursion it would stay there for good.
        if (!(magnitude <= std::numeric_limits<double>::max())) magnitude = 0.0;
        value_ = flushFine(value_ + (magnitude - value_) * coefficient);
    }

  private:
    double value_ = 0.0;
};

} // namespace spatara
