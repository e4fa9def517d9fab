// A repeating timer on the user-interface thread's run loop: fires its target every interval until
// invalidated.
#pragma once

#include "PlatformRunLoop.h"

#include <memory>

class PlatformTimer
{
  public:
    // Starts at once; the first firing comes one interval from now. The timer keeps the target alive.
    PlatformTimer(double intervalSeconds, std::shared_ptr<PlatformTimerTarget> target);
    ~PlatformTimer();
    PlatformTimer(const PlatformTimer&) = delete;
    PlatformTimer& operator=(const PlatformTimer&) = delete;

    // Stops further firings and lets go of the target.
    void invalidate();
    bool isValid() const { return entry != nullptr; }

  private:
    std::shared_ptr<PlatformRunLoop::Entry> entry;
};
