#include "PlatformTimer.h"

#include "PlatformTimerTarget.h"

PlatformTimer::PlatformTimer(double intervalSeconds, std::shared_ptr<PlatformTimerTarget> target)
    : entry(PlatformRunLoop::current().add(std::move(target), intervalSeconds))
{
}

PlatformTimer::~PlatformTimer()
{
    invalidate();
}

void PlatformTimer::invalidate()
{
    if (!entry) return;
    PlatformRunLoop::current().remove(entry);
    entry.reset();
}
