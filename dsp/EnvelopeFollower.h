#pragma once

#include "Flush.h"

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
        value_ = flushFine(value_ + (magnitude - value_) * coefficient);
    }

  private:
    double value_ = 0.0;
};

} // namespace spatara
