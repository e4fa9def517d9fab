#include "XPlatRecursiveLock.h"

#include <chrono>

bool XPlatRecursiveLock::lock(unsigned long timeoutMs)
{
    std::unique_lock<std::mutex> hold(guard);
    const auto self = std::this_thread::get_id();
    auto isFree = [&] { return depth == 0 || owner == self; };
    if (timeoutMs == 0)
        released.wait(hold, isFree);
    else if (!released.wait_for(hold, std::chrono::milliseconds(timeoutMs), isFree))
        return false;
    owner = self;
    ++depth;
    return true;
}

void XPlatRecursiveLock::unlock()
{
    std::lock_guard<std::mutex> hold(guard);
    if (depth == 0 || owner != std::this_thread::get_id()) return;
    if (--depth == 0)
    {
        owner = std::thread::id();
        released.notify_all();
    }
}

int XPlatRecursiveLock::holds() const
{
    std::lock_guard<std::mutex> hold(guard);
    return depth;
}
