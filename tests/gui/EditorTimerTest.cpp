#include "EditorTimer.h"
#include "AEffGUIEditor.h"
#include "EditorTimerListener.h"
#include "platform/PlatformRunLoop.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>
#include <vector>

namespace
{
using Clock = std::chrono::steady_clock;

// An editor that records when it was idled and can run an action from its idle.
class IdleRecorder : public AEffGUIEditor
{
  public:
    IdleRecorder() : AEffGUIEditor(nullptr) {}
    void idle() override
    {
        times.push_back(Clock::now());
        if (action) action();
    }
    std::vector<Clock::time_point> times;
    std::function<void()> action;
};

void pumpFor(std::chrono::milliseconds duration)
{
    const auto end = Clock::now() + duration;
    while (Clock::now() < end)
    {
        PlatformRunLoop::current().fireDueTimers();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
}
} // namespace

TEST(EditorTimer, IntervalOf50FiresEvery50Milliseconds)
{
    IdleRecorder editor;
    void* timer = spatara::createTimer(&editor, 50);
    pumpFor(std::chrono::milliseconds(530));
    spatara::destroyTimer(timer);
    ASSERT_GE(editor.times.size(), 9u);
    EXPECT_LE(editor.times.size(), 11u);
    for (size_t i = 1; i < editor.times.size(); ++i)
    {
        const double seconds = std::chrono::duration<double>(editor.times[i] - editor.times[i - 1]).count();
        EXPECT_NEAR(seconds, 0.05, 0.015) << "between firings " << i - 1 << " and " << i;
    }
    const double mean = std::chrono::duration<double>(editor.times.back() - editor.times.front()).count() /
                        (editor.times.size() - 1);
    EXPECT_NEAR(mean, 0.05, 0.003);
}

TEST(EditorTimer, NothingFiresAfterDestroy)
{
    IdleRecorder editor;
    void* timer = spatara::createTimer(&editor, 10);
    pumpFor(std::chrono::milliseconds(35));
    spatara::destroyTimer(timer);
    const size_t before = editor.times.size();
    EXPECT_GT(before, 0u);
    pumpFor(std::chrono::milliseconds(40));
    EXPECT_EQ(editor.times.size(), before);
    EXPECT_EQ(PlatformRunLoop::current().getNbTimers(), 0);
}

TEST(EditorTimer, FiringAlreadyQueuedWhenTheTimerIsDestroyedCallsNothing)
{
    IdleRecorder first, second;
    void* firstTimer = spatara::createTimer(&first, 20);
    void* secondTimer = spatara::createTimer(&second, 20);
    // Both become due in the same pass; the first firing destroys the second timer while its firing is
    // queued.
    first.action = [&]
    {
        if (secondTimer)
        {
            spatara::destroyTimer(secondTimer);
            secondTimer = nullptr;
        }
    };
    std::this_thread::sleep_for(std::chrono::milliseconds(25));
    PlatformRunLoop::current().fireDueTimers();
    EXPECT_EQ(first.times.size(), 1u);
    EXPECT_EQ(second.times.size(), 0u);
    EXPECT_EQ(secondTimer, nullptr);
    spatara::destroyTimer(firstTimer);
}

TEST(EditorTimer, KeepsEditorAndIntervalAndRunsUntilReleased)
{
    IdleRecorder editor;
    auto* timer = static_cast<EditorTimer*>(spatara::createTimer(&editor, 50));
    EXPECT_EQ(timer->getEditor(), &editor);
    EXPECT_EQ(timer->getInterval(), 50);
    EXPECT_TRUE(timer->isRunning());
    // Another holder keeps it alive past destroyTimer.
    timer->remember();
    spatara::destroyTimer(timer);
    EXPECT_TRUE(timer->isRunning());
    timer->forget();
    EXPECT_EQ(PlatformRunLoop::current().getNbTimers(), 0);
}

TEST(EditorTimerListener, NullEditorMakesAFiringDoNothing)
{
    IdleRecorder editor;
    EditorTimerListener listener(&editor);
    listener.onPlatformTimer();
    EXPECT_EQ(editor.times.size(), 1u);
    listener.setListenerEditor(nullptr);
    listener.onPlatformTimer();
    EXPECT_EQ(editor.times.size(), 1u);
}
