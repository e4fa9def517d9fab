#include "XPlatMutex.h"
#include "XPlatRecursiveLock.h"

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <thread>

TEST(XPlatMutex, TheSameThreadMayTakeItAgain)
{
    void* mutex = XPlatCreateMutex();
    XPlatLockMutex(mutex, 0);
    XPlatLockMutex(mutex, 0);
    EXPECT_EQ(static_cast<XPlatRecursiveLock*>(mutex)->holds(), 2);
    XPlatUnlockMutex(mutex);
    XPlatUnlockMutex(mutex);
    EXPECT_EQ(static_cast<XPlatRecursiveLock*>(mutex)->holds(), 0);
    XPlatDeleteMutex(mutex);
}

TEST(XPlatMutex, ATimedLockGivesUpAndTheCallerGoesOn)
{
    void* mutex = XPlatCreateMutex();
    std::atomic<bool> held{false}, release{false};
    std::thread other(
        [&]
        {
            XPlatLockMutex(mutex, 0);
            held = true;
            while (!release)
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            XPlatUnlockMutex(mutex);
        });
    while (!held)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    const auto start = std::chrono::steady_clock::now();
    XPlatLockMutex(mutex, 50);
    const auto waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited, std::chrono::milliseconds(45));
    // The caller unlocks all the same; that must not release the other thread's hold.
    XPlatUnlockMutex(mutex);
    EXPECT_EQ(static_cast<XPlatRecursiveLock*>(mutex)->holds(), 1);
    release = true;
    other.join();
    XPlatDeleteMutex(mutex);
}

TEST(XPlatMutex, NullHandlesAreIgnored)
{
    XPlatLockMutex(nullptr, 0);
    XPlatUnlockMutex(nullptr);
    XPlatDeleteMutex(nullptr);
    SUCCEED();
}
