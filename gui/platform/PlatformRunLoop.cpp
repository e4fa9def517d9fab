#include "PlatformRunLoop.h"

#include "PlatformTimerTarget.h"

#include <algorithm>

PlatformRunLoop& PlatformRunLoop::current()
{
    static PlatformRunLoop loop;
    return loop;
}

std::shared_ptr<PlatformRunLoop::Entry> PlatformRunLoop::add(std::shared_ptr<PlatformTimerTarget> target,
                                                             double intervalSeconds)
{
    const auto interval = std::chrono::duration_cast<Clock::duration>(
        std::chrono::duration<double>(std::max(intervalSeconds, 0.001)));
    auto entry = std::make_shared<Entry>(Entry{std::move(target), interval, Clock::now() + interval});
    entries.push_back(entry);
    return entry;
}

void PlatformRunLoop::remove(const std::shared_ptr<Entry>& entry)
{
    entries.erase(std::remove(entries.begin(), entries.end(), entry), entries.end());
}

void PlatformRunLoop::fireDueTimers()
{
    // A target's callback may idle the editor, which idles the window layer, which comes back here.
    if (firing) return;
    firing = true;
    const auto now = Clock::now();
    std::vector<std::shared_ptr<PlatformTimerTarget>> queued;
    for (const auto& entry : entries)
    {
        if (entry->next > now) continue;
        queued.push_back(entry->target);
        // Keep the period; after a long stall start afresh instead of firing a burst.
        entry->next += entry->interval;
        if (entry->next <= now) entry->next = now + entry->interval;
    }
    for (const auto& target : queued)
        target->onPlatformTimer();
    firing = false;
}

double PlatformRunLoop::secondsUntilNextFiring() const
{
    if (entries.empty()) return -1.0;
    auto next = entries.front()->next;
    for (const auto& entry : entries)
        next = std::min(next, entry->next);
    return std::max(0.0, std::chrono::duration<double>(next - Clock::now()).count());
}
