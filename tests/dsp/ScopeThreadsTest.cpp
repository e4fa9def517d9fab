// The scope's two threads at once: the audio thread hands points on while the editor's thread opens and
// closes the scope, reads the points and the meters. Built with ThreadSanitizer by scripts/tsan, where a
// single data race fails it.
#include "StereoEngine.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <thread>
#include <vector>

TEST(ScopeThreads, TheAudioThreadWritesWhileTheEditorReadsAndTogglesTheScope)
{
    spatara::StereoEngine engine;
    engine.setDepth(1.0f);
    engine.setWidth(0.5f);
    engine.setMode(1.0f);
    engine.resume(48000.0f);
    engine.setScopeOpen(true);

    std::atomic<bool> running{true};
    std::thread audio(
        [&]
        {
            std::vector<float> left(256), right(256), outL(256), outR(256);
            long frame = 0;
            while (running.load())
            {
                for (int i = 0; i < 256; ++i, ++frame)
                {
                    left[i] = 0.5f * std::sin(0.03f * static_cast<float>(frame));
                    right[i] = 0.4f * std::sin(0.05f * static_cast<float>(frame));
                }
                engine.process(left.data(), right.data(), outL.data(), outR.data(), 256);
            }
        });

    std::vector<float> pairs(2 * 1024);
    long points = 0;
    bool finite = true;
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(400);
    for (int round = 0; std::chrono::steady_clock::now() < end; ++round)
    {
        const uint32_t taken = engine.readScope(pairs.data(), 1024);
        for (uint32_t i = 0; i < 2 * taken; ++i)
            finite = finite && std::isfinite(pairs[i]);
        points += taken;
        finite = finite && std::isfinite(engine.correlation()) && std::isfinite(engine.meter());
        // Closed now and then, as the user closes the view.
        engine.setScopeOpen(round % 8 != 7);
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
    running = false;
    audio.join();
    EXPECT_GT(points, 0);
    EXPECT_TRUE(finite);
}
