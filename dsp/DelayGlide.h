#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace spatara
{

// The current read position of the delay lines, following the target position per sample so that a
// change of the base frequency never clicks. The position counts forward from the write index: a
// larger position is a shorter delay.
class DelayGlide
{
  public:
    void jumpTo(int32_t target) { position_ = target; }
    double position() const { return position_; }

    double next(int32_t target, float coefficient)
    {
        const double diff = target - position_;
        if (std::abs(diff) > 0.01)
        {
            // The delay may shorten by up to a whole sample per sample but lengthen by only half of
            // one. The asymmetry is deliberate; keep it.
            position_ += std::clamp(static_cast<double>(coefficient) * diff, -0.5, 1.0);
        }
        else
        {
            position_ = target;
        }
        return position_;
    }

    // At the target every further step keeps the position where it is.
    bool isSettled(int32_t target) const { return position_ == target; }

  private:
    double position_ = 0.0;
};

} // namespace spatara
