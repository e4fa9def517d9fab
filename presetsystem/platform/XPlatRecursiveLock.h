// A recursive lock that counts its holds per thread, so that an unlock after a timed-out lock (which the
// caller does all the same) releases nothing it does not hold.
#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

class XPlatRecursiveLock
{
  public:
    // Waits without limit for 0, otherwise at most timeoutMs; answers whether the lock was taken.
    bool lock(unsigned long timeoutMs);
    void unlock();
    int holds() const;

  private:
    mutable std::mutex guard;
    std::condition_variable released;
    std::thread::id owner;
    int depth = 0;
};
