#pragma once

#include "Flush.h"

#include <bit>
#include <cstdint>

namespace spatara
{

// One-pole follower that glides a parameter (depth, width) towards its target, one step per sample.
// It runs in single precision in both processing precisions, so both give the same control curve.
class ParameterSmoother
{
  public:
    void jumpTo(float target) { value_ = target; }
    float value() const { return value_; }

    float next(float target, float coefficient)
    {
        value_ = flushCoarse(value_ + (target - value_) * coefficient);
        return value_;
    }

    // True when one more step towards the target would leave the value bit for bit as it is: the
    // follower then stays there for as long as the target does, and the block may skip the steps.
    bool isSettled(float target, float coefficient) const
    {
        ParameterSmoother probe = *this;
        return std::bit_cast<uint32_t>(probe.next(target, coefficient)) == std::bit_cast<uint32_t>(value_);
    }

  private:
    float value_ = 0.0f;
};

} // namespace spatara
