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
    double read(int32_t index, double frac) const
    {
        return interpolate(samples_[index], samples_[(index + 1) & kMask], frac);
    }

    // For passes over many samples at once.
    float* data() { return samples_.get(); }
    const float* data() const { return samples_.get(); }

    // Linear interpolation between a sample and the one after it, in double precision.
    static double interpolate(float sample, float next, double frac)
    {
        return (1.0 - frac) * sample + frac * next;
    }

  private:
    std::unique_ptr<float[]> samples_;
};

} // namespace spatara
