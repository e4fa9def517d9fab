#pragma once

#include <cstdint>
#include <memory>

namespace spatara
{

// A circular buffer of 32768 single-precision samples. The power-of-two length lets every index wrap
// with a mask instead of a division or a bounds test; callers pass indexes already masked.
class DelayLine
{
  public:
    static constexpr int32_t kLength = 32768;
    static constexpr int32_t kMask = kLength - 1;

    DelayLine(); // allocates the buffer, cleared
    DelayLine(const DelayLine&) = delete;
    DelayLine& operator=(const DelayLine&) = delete;

    void clear();

    void write(int32_t index, float sample) { samples_[index] = sample; }
    float at(int32_t index) const { return samples_[index]; }

    // Linear interpolation between index and the sample after it, in double precision.
    double read(int32_t index, double frac) const
    {
        return (1.0 - frac) * samples_[index] + frac * samples_[(index + 1) & kMask];
    }

  private:
    std::unique_ptr<float[]> samples_;
};

} // namespace spatara
