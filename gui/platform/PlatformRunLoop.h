// The user-interface thread's timers: the window layer's idle (and any modal wait) delivers the due ones.
#pragma once

#include <chrono>
#include <memory>
#include <vector>

class PlatformTimerTarget;

class PlatformRunLoop
{
  public:
    using Clock = std::chrono::steady_clock;

    // The run loop of the user-interface thread.
    static PlatformRunLoop& current();

    // Delivers every firing that is due now. Firings collected in one pass are all delivered, even when a
    // callback of that pass invalidates their timer, as queued events are on any run loop: targets that
    // can go away must guard themselves.
    void fireDueTimers();
    // Seconds until the next firing is due (0 when one is due, -1 without timers).
    double secondsUntilNextFiring() const;
    int getNbTimers() const { return static_cast<int>(entries.size()); }

  private:
    friend class PlatformTimer;
    struct Entry
    {
        std::shared_ptr<PlatformTimerTarget> target;
        Clock::duration interval;
        Clock::time_point next;
    };

    std::shared_ptr<Entry> add(std::shared_ptr<PlatformTimerTarget> target, double intervalSeconds);
    void remove(const std::shared_ptr<Entry>& entry);

    std::vector<std::shared_ptr<Entry>> entries;
    bool firing = false;
};
