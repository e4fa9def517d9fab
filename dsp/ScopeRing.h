#pragma once

#include <array>
#include <atomic>
#include <cstdint>

namespace spatara
{

// Output points on their way from the audio thread to the editor's scope: a fixed ring with one writer and
// one reader that never blocks either. A reader that falls behind loses the newest points, never the
// order of the ones it gets.
class ScopeRing
{
  public:
    static constexpr uint32_t kCapacity = 4096; // points; a power of two

    // Audio thread: false when the ring is full and the point is dropped.
    bool push(float left, float right)
    {
        const uint32_t write = write_.load(std::memory_order_relaxed);
        if (write - read_.load(std::memory_order_acquire) >= kCapacity) return false;
        const uint32_t slot = (write & (kCapacity - 1)) * 2;
        points_[slot] = left;
        points_[slot + 1] = right;
        write_.store(write + 1, std::memory_order_release);
        return true;
    }

    // Editor: up to maxPoints of the oldest points into pairs (left, right, left, …); how many it took.
    uint32_t pop(float* pairs, uint32_t maxPoints)
    {
        const uint32_t read = read_.load(std::memory_order_relaxed);
        const uint32_t available = write_.load(std::memory_order_acquire) - read;
        const uint32_t taken = available < maxPoints ? available : maxPoints;
        for (uint32_t i = 0; i < taken; ++i)
        {
            const uint32_t slot = ((read + i) & (kCapacity - 1)) * 2;
            pairs[2 * i] = points_[slot];
            pairs[2 * i + 1] = points_[slot + 1];
        }
        read_.store(read + taken, std::memory_order_release);
        return taken;
    }

  private:
    std::array<float, 2 * kCapacity> points_{};
    std::atomic<uint32_t> write_{0};
    std::atomic<uint32_t> read_{0};
};

} // namespace spatara
