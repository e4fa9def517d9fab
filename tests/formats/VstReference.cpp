#include "VstReference.h"
#include "ParameterTable.h"

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <string>

namespace vstreference
{
const std::array<Settings, 4> kEveryMode = {
    Settings{0.6f, 0.3f, 0.4f, 1.0f, 0.0f, 0.0f},
    Settings{0.75f, 0.5f, 0.25f, 1.0f, 1.0f, 0.5f},
    Settings{1.0f, 0.0125f, 0.5f, 1.0f, 0.0f, 1.0f},
    Settings{0.8f, 0.75f, 0.2f, 0.0f, 0.0f, 1.0f},
};

// One second of two unrelated tones with some noise, different in each channel.
Stereo testSignal(double rate)
{
    const auto frames = static_cast<std::size_t>(rate);
    Stereo s{std::vector<float>(frames), std::vector<float>(frames)};
    std::uint32_t seed = 12345;
    for (std::size_t i = 0; i < frames; ++i)
    {
        seed = seed * 1664525u + 1013904223u;
        const double noise = (static_cast<double>(seed >> 8) / 16777216.0 - 0.5) * 0.1;
        const double t = static_cast<double>(i) / rate;
        s.left[i] =
            static_cast<float>(0.5 * std::sin(2 * M_PI * 440 * t) + 0.2 * std::sin(2 * M_PI * 3000 * t));
        s.right[i] = static_cast<float>(0.4 * std::sin(2 * M_PI * 660 * t + 1.0) + noise);
    }
    return s;
}

std::unique_ptr<VstPluginHost> loadVst(double rate)
{
    std::string error;
    auto host = VstPluginHost::load(SPATARA_PLUGIN_PATH, error);
    EXPECT_TRUE(host) << error;
    if (!host) return host;
    host->open();
    host->start(static_cast<float>(rate), kBlock);
    return host;
}

void setVst(VstPluginHost& host, const Settings& settings)
{
    for (int i = 0; i < kNumParameters; ++i)
        host.effect()->setParameter(host.effect(), i, settings[i]);
}

std::unique_ptr<VstPluginHost> loadVstStartedAfter(double rate,
                                                   const std::function<void(VstPluginHost&)>& prepare)
{
    std::string error;
    auto host = VstPluginHost::load(SPATARA_PLUGIN_PATH, error);
    EXPECT_TRUE(host) << error;
    if (!host) return host;
    host->open();
    prepare(*host);
    host->start(static_cast<float>(rate), kBlock);
    return host;
}

std::unique_ptr<VstPluginHost> loadVstStartedOn(double rate, const Settings& settings)
{
    return loadVstStartedAfter(rate, [&](VstPluginHost& host) { setVst(host, settings); });
}

Stereo runVst(VstPluginHost& host, const Stereo& in, bool mono)
{
    Stereo out{std::vector<float>(in.left.size()), std::vector<float>(in.left.size())};
    for (std::size_t done = 0; done < in.left.size(); done += kBlock)
    {
        const auto n = static_cast<VstInt32>(std::min<std::size_t>(kBlock, in.left.size() - done));
        float* left = const_cast<float*>(in.left.data() + done);
        float* inputs[2] = {left, mono ? left : const_cast<float*>(in.right.data() + done)};
        float* outputs[2] = {out.left.data() + done, out.right.data() + done};
        host.effect()->processReplacing(host.effect(), inputs, outputs, n);
    }
    return out;
}

void expectTextsOfVst(VstPluginHost& vst, const std::function<void(float mode)>& setMode,
                      const std::function<std::string(int index, float value)>& textOf)
{
    // The width shows in the unit of the mode the effect runs: the mode first, then every parameter.
    for (float mode : {0.0f, 0.5f, 1.0f})
    {
        setMode(mode);
        vst.effect()->setParameter(vst.effect(), kMode, mode);
        for (int i = 0; i < kNumParameters; ++i)
            for (float v : {0.0f, 0.13f, 0.25f, 0.5f, 0.77f, 1.0f})
            {
                if (i == kMode) continue;
                vst.effect()->setParameter(vst.effect(), i, v);
                EXPECT_EQ(textOf(i, v), vst.text(effGetParamDisplay, i))
                    << spatara::parameterInfo(i).name << " " << v << " in mode " << mode;
            }
    }
}

double largestDifference(const Stereo& a, const Stereo& b)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < a.left.size(); ++i)
        largest = std::max(
            {largest, std::fabs(double(a.left[i]) - b.left[i]), std::fabs(double(a.right[i]) - b.right[i])});
    return largest;
}

double peak(const Stereo& s)
{
    double largest = 0.0;
    for (std::size_t i = 0; i < s.left.size(); ++i)
        largest = std::max({largest, std::fabs(double(s.left[i])), std::fabs(double(s.right[i]))});
    return largest;
}

std::vector<unsigned char> vstChunk(VstPluginHost& host)
{
    void* data = nullptr;
    const VstIntPtr size = host.dispatch(effGetChunk, 0, 0, &data);
    const auto* bytes = static_cast<const unsigned char*>(data);
    return size > 0 && bytes ? std::vector<unsigned char>(bytes, bytes + size) : std::vector<unsigned char>();
}

} // namespace vstreference
