// The VST3 edition in a VST3 host of our own, beside the VST 2.4 plug-in in a VST 2.4 host: the value
// texts a host shows for the effect's parameters are the VST 2.4 plug-in's, and so is the sound.
#include "ParameterTable.h"
#include "Vst3TestHost.h"
#include "VstReference.h"

#include <cmath>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

using namespace vstreference;

namespace
{
std::unique_ptr<Vst3TestHost> loadVst3()
{
    std::string error;
    auto host = Vst3TestHost::load(SPATARA_VST3_MODULE, error);
    EXPECT_TRUE(host) << error;
    return host;
}

// The VST3 normalised value of a VST 2.4 normalised value: through the parameter's own unit.
double vst3Value(const Vst3TestHost& host, int index, float vstValue)
{
    const spatara::ParameterInfo& info = spatara::parameterInfo(index);
    return host.normalised(host.parameterId(info.name), info.toUnit(vstValue));
}

Stereo runVst3(Vst3TestHost& host, const Stereo& in,
               const std::vector<std::pair<v3_param_id, double>>& changes)
{
    Stereo out{std::vector<float>(in.left.size()), std::vector<float>(in.left.size())};
    host.process(in.left.data(), in.right.data(), out.left.data(), out.right.data(),
                 static_cast<uint32_t>(in.left.size()), changes);
    return out;
}
} // namespace

TEST(Vst3Plugin, ValuesSentWithTheFirstBlockAreStartedOnAsTheVstPluginSetBeforeItIsSwitchedOn)
{
    const Stereo in = testSignal(44100.0);
    for (const Settings& settings : kEveryMode)
    {
        auto vst3 = loadVst3();
        auto vst = loadVstStartedOn(44100.0, settings);
        ASSERT_TRUE(vst3 && vst);
        std::vector<std::pair<v3_param_id, double>> changes;
        for (int i = 0; i < kNumParameters; ++i)
            changes.emplace_back(vst3->parameterId(spatara::parameterInfo(i).name),
                                 vst3Value(*vst3, i, settings[i]));
        const Stereo expected = runVst(*vst, in);
        EXPECT_GT(peak(expected), 0.1);
        EXPECT_LE(largestDifference(runVst3(*vst3, in, changes), expected), 1e-6)
            << "mode " << settings[kMode] << " process " << settings[kProcess];
    }
}

TEST(Vst3Plugin, ANaNOrAnInfinityFromTheHostKeepsTheOutputFinite)
{
    const Stereo in = testSignal(44100.0);
    for (int i = 0; i < kNumParameters; ++i)
        for (const double bad : {std::nan(""), HUGE_VAL, -HUGE_VAL})
        {
            auto vst3 = loadVst3();
            ASSERT_TRUE(vst3);
            const Stereo out = runVst3(*vst3, in, {{vst3->parameterId(spatara::parameterInfo(i).name), bad}});
            bool finite = true;
            for (std::size_t f = 0; f < out.left.size(); ++f)
                finite = finite && std::isfinite(out.left[f]) && std::isfinite(out.right[f]);
            EXPECT_TRUE(finite) << spatara::parameterInfo(i).name << " at " << bad;
        }
}

TEST(Vst3Plugin, TheEditorIsTheSizeOfTheHostsContentScale)
{
    auto vst3 = loadVst3();
    ASSERT_TRUE(vst3);
    int width = 0, height = 0;
    ASSERT_TRUE(vst3->editorSize(0.0f, width, height));
    EXPECT_EQ(width, 302);
    EXPECT_EQ(height, 250);
    ASSERT_TRUE(vst3->editorSize(2.0f, width, height));
    EXPECT_EQ(width, 604);
    EXPECT_EQ(height, 500);
}

TEST(Vst3Plugin, ValuesShowTheTextsOfTheVstPlugin)
{
    auto vst3 = loadVst3();
    auto vst = loadVst(44100.0);
    ASSERT_TRUE(vst3 && vst);
    EXPECT_EQ(
        vst3->text(vst3->parameterId("baseFreq"), vst3->normalised(vst3->parameterId("baseFreq"), 265.0)),
        "265.00");
    EXPECT_EQ(vst3->text(vst3->parameterId("mode"), 0.5), "Mode2");
    EXPECT_EQ(vst3->text(vst3->parameterId("process"), 1.0), "On");
    EXPECT_EQ(vst3->text(vst3->parameterId("phase"), 0.0), "Off");
    expectTextsOfVst(
        *vst, [&](float mode) { vst3->automate(vst3->parameterId("mode"), vst3Value(*vst3, kMode, mode)); },
        [&](int index, float value)
        {
            return vst3->text(vst3->parameterId(spatara::parameterInfo(index).name),
                              vst3Value(*vst3, index, value));
        });
}

TEST(Vst3Plugin, ModeShowsTheValueAskedAboutNotTheCurrentOne)
{
    auto vst3 = loadVst3();
    auto vst = loadVst(44100.0);
    ASSERT_TRUE(vst3 && vst);
    vst3->automate(vst3->parameterId("mode"), 1.0);
    for (float mode : {0.0f, 0.5f, 1.0f})
    {
        vst->effect()->setParameter(vst->effect(), kMode, mode);
        EXPECT_EQ(vst3->text(vst3->parameterId("mode"), vst3Value(*vst3, kMode, mode)),
                  vst->text(effGetParamDisplay, kMode))
            << mode;
    }
}

TEST(Vst3Plugin, ValuesOutsideTheNormalisedRangeAreRefused)
{
    auto vst3 = loadVst3();
    ASSERT_TRUE(vst3);
    for (const char* name : {"depth", "baseFreq", "mode"})
    {
        EXPECT_EQ(vst3->text(vst3->parameterId(name), -0.1), "<refused>") << name;
        EXPECT_EQ(vst3->text(vst3->parameterId(name), 1.5), "<refused>") << name;
    }
}
