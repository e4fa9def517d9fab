#include "platform/PlatformRunLoop.h"
#include "platform/PlatformTimer.h"
#include "platform/PlatformTimerTarget.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

namespace
{
struct CallbackTarget : PlatformTimerTarget
{
    std::function<void()> callback;
    int firings = 0;
    void onPlatformTimer() override
    {
        ++firings;
        if (callback) callback();
    }
};

void pumpFor(std::chrono::milliseconds duration)
{
    const auto end = std::chrono::steady_clock::now() + duration;
    while (std::chrono::steady_clock::now() < end)
    {
        PlatformRunLoop::current().fireDueTimers();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}
} // namespace

TEST(PlatformTimer, FiresRepeatedlyUntilInvalidated)
{
    auto target = std::make_shared<CallbackTarget>();
    PlatformTimer timer(0.01, target);
    pumpFor(std::chrono::milliseconds(105));
    EXPECT_GE(target->firings, 8);
    EXPECT_LE(target->firings, 11);
    timer.invalidate();
    EXPECT_FALSE(timer.isValid());
    const int before = target->firings;
    pumpFor(std::chrono::milliseconds(30));
    EXPECT_EQ(target->firings, before);
    EXPECT_EQ(PlatformRunLoop::current().getNbTimers(), 0);
}

TEST(PlatformTimer, NothingFiresBeforeTheFirstInterval)
{
    auto target = std::make_shared<CallbackTarget>();
    PlatformTimer timer(0.2, target);
    PlatformRunLoop::current().fireDueTimers();
    EXPECT_EQ(target->firings, 0);
    EXPECT_GT(PlatformRunLoop::current().secondsUntilNextFiring(), 0.15);
}

TEST(PlatformTimer, TimerKeepsItsTargetAlive)
{
    auto target = std::make_shared<CallbackTarget>();
    std::weak_ptr<CallbackTarget> watch = target;
    auto timer = std::make_unique<PlatformTimer>(0.01, std::move(target));
    EXPECT_FALSE(watch.expired());
    timer.reset();
    EXPECT_TRUE(watch.expired());
}

TEST(PlatformRunLoop, ACallbackThatRunsTheLoopAgainDoesNotRecurse)
{
    auto target = std::make_shared<CallbackTarget>();
    int depth = 0, deepest = 0;
    target->callback = [&]
    {
        ++depth;
        deepest = std::max(deepest, depth);
        PlatformRunLoop::current().fireDueTimers();
        --depth;
    };
    PlatformTimer timer(0.005, target);
    pumpFor(std::chrono::milliseconds(30));
    EXPECT_GT(target->firings, 0);
    EXPECT_EQ(deepest, 1);
}
