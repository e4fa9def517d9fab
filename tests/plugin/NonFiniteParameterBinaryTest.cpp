// A host that sends NaN or an infinity as a parameter value, met through the built Spatara.so: the sound
// stays finite, the value read back stays in 0..1, and the bank saved with the project still loads whole.
#include "ImageBytes.h"
#include "StartedPluginTest.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace
{
constexpr int kParameters = 6;
constexpr int kPresets = 38;
constexpr VstInt32 kBlock = 512;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();
// Where value p of preset n lies in a host chunk: the chunk's 8-byte head, the bank's 41-byte header, 360
// bytes per preset (a 168-byte name chunk, then 32-byte value chunks whose value is their last word).
std::size_t valueOffset(int n, int p)
{
    return 8 + 41 + 360 * static_cast<std::size_t>(n) + 168 + 32 * static_cast<std::size_t>(p) + 24;
}

class NonFiniteParameters : public StartedPluginTest
{
  protected:
    Bytes chunk()
    {
        void* data = nullptr;
        const VstIntPtr size = host->dispatch(effGetChunk, 0, 0, &data);
        if (size <= 0 || !data) return {};
        return Bytes(static_cast<char*>(data), static_cast<char*>(data) + size);
    }

    float parameter(int index) { return host->effect()->getParameter(host->effect(), index); }
    void setParameter(int index, float value) { host->effect()->setParameter(host->effect(), index, value); }

    // Half a second of a tone in each channel through the plug-in; true when every output sample is finite.
    bool outputStaysFinite()
    {
        std::array<float, kBlock> left{}, right{}, outLeft{}, outRight{};
        bool finite = true;
        for (int block = 0; block < 44; ++block)
        {
            for (int i = 0; i < kBlock; ++i)
            {
                const double t = (block * kBlock + i) / 44100.0;
                left[i] = static_cast<float>(0.5 * std::sin(2 * M_PI * 440 * t));
                right[i] = static_cast<float>(0.4 * std::sin(2 * M_PI * 660 * t + 1.0));
            }
            float* inputs[2] = {left.data(), right.data()};
            float* outputs[2] = {outLeft.data(), outRight.data()};
            host->effect()->processReplacing(host->effect(), inputs, outputs, kBlock);
            for (int i = 0; i < kBlock; ++i)
                finite = finite && std::isfinite(outLeft[i]) && std::isfinite(outRight[i]);
        }
        return finite;
    }

    std::vector<std::string> presetNames()
    {
        std::vector<std::string> names;
        for (int n = 0; n < kPresets; ++n)
        {
            char name[64] = {};
            host->dispatch(effGetProgramNameIndexed, n, 0, name);
            names.emplace_back(name);
        }
        return names;
    }

    static std::unique_ptr<VstPluginHost> startedInstance()
    {
        std::string error;
        auto instance = VstPluginHost::load(SPATARA_PLUGIN_PATH, error);
        EXPECT_TRUE(instance) << error;
        if (!instance) return instance;
        instance->open();
        instance->start(44100.0f, kBlock);
        return instance;
    }
};
} // namespace

TEST_F(NonFiniteParameters, KeepTheOutputFiniteAndTheValueReadBackInRange)
{
    for (int index = 0; index < kParameters; ++index)
        for (const float bad : {kNaN, kInf, -kInf})
        {
            SetUp();
            // Wide, emphasising settings, so that a bad depth or width would be heard at once.
            for (int i = 0; i < kParameters; ++i)
                setParameter(i, std::array<float, kParameters>{0.8f, 0.3f, 0.6f, 1.0f, 0.0f, 0.5f}[i]);
            setParameter(index, bad);
            EXPECT_TRUE(outputStaysFinite()) << "parameter " << index << " set to " << bad;
            const float back = parameter(index);
            EXPECT_GE(back, 0.0f) << "parameter " << index << " set to " << bad;
            EXPECT_LE(back, 1.0f) << "parameter " << index << " set to " << bad;
        }
}

TEST_F(NonFiniteParameters, ANaNChangesNothingAndAnInfinityIsTheEndOfTheRange)
{
    setParameter(0, 0.6f);
    setParameter(0, kNaN);
    EXPECT_EQ(parameter(0), 0.6f);
    setParameter(0, kInf);
    EXPECT_EQ(parameter(0), 1.0f);
    setParameter(0, -kInf);
    EXPECT_EQ(parameter(0), 0.0f);
}

TEST_F(NonFiniteParameters, TheBankSavedAfterwardsRestoresWholeInANewInstance)
{
    for (int i = 0; i < kParameters; ++i)
        setParameter(i, 0.25f);
    for (int i = 0; i < kParameters; ++i)
        for (const float bad : {kNaN, kInf, -kInf, kNaN})
            setParameter(i, bad);
    testing::internal::CaptureStderr();
    Bytes saved = chunk();
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "nothing needed repair on save";
    ASSERT_FALSE(saved.empty());
    for (int p = 0; p < kParameters; ++p)
    {
        const float stored = floatAt(saved, valueOffset(0, p));
        EXPECT_TRUE(stored >= 0.0f && stored <= 1.0f) << "parameter " << p << " stored as " << stored;
    }

    auto reopened = startedInstance();
    ASSERT_TRUE(reopened);
    // A bank of another program, so that a refused chunk would show.
    reopened->dispatch(effSetProgramName, 0, 0, const_cast<char*>("before the project"));
    ASSERT_EQ(reopened->dispatch(effSetChunk, 0, static_cast<VstIntPtr>(saved.size()), saved.data()), 0);
    void* data = nullptr;
    const VstIntPtr size = reopened->dispatch(effGetChunk, 0, 0, &data);
    ASSERT_GT(size, 0);
    EXPECT_EQ(Bytes(static_cast<char*>(data), static_cast<char*>(data) + size), saved);
    const std::vector<std::string> names = presetNames();
    for (int n = 0; n < kPresets; ++n)
    {
        char name[64] = {};
        reopened->dispatch(effGetProgramNameIndexed, n, 0, name);
        EXPECT_EQ(name, names[n]) << "preset " << n;
    }
    for (int p = 0; p < kParameters; ++p)
        EXPECT_EQ(reopened->effect()->getParameter(reopened->effect(), p), parameter(p)) << p;
}

TEST_F(NonFiniteParameters, ABankHoldingANaNLoadsWithTheValueRepairedAndOneLine)
{
    Bytes bank = chunk();
    ASSERT_FALSE(bank.empty());
    putFloat(bank, valueOffset(2, 1), kNaN); // preset 2, the base frequency
    const std::vector<std::string> names = presetNames();

    auto reopened = startedInstance();
    ASSERT_TRUE(reopened);
    reopened->dispatch(effSetProgramName, 0, 0, const_cast<char*>("before the project"));
    testing::internal::CaptureStderr();
    ASSERT_EQ(reopened->dispatch(effSetChunk, 0, static_cast<VstIntPtr>(bank.size()), bank.data()), 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Invalid parameter 1 value nan on load of preset 2 " + names[2] + "\n");
    void* data = nullptr;
    const VstIntPtr size = reopened->dispatch(effGetChunk, 0, 0, &data);
    ASSERT_GT(size, 0);
    Bytes restored(static_cast<char*>(data), static_cast<char*>(data) + size);
    EXPECT_EQ(floatAt(restored, valueOffset(2, 1)), 0.0f);
    putFloat(bank, valueOffset(2, 1), 0.0f);
    EXPECT_EQ(restored, bank) << "every other preset, name and value as saved";
}
