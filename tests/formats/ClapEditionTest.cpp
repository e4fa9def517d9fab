// The CLAP edition in a CLAP host of our own, beside the VST 2.4 plug-in in a VST 2.4 host: the same
// description, parameters and texts, the same audio, the host's bypass, and the bank as its state.
#include "ClapTestHost.h"
#include "ParameterTable.h"
#include "SpataraVersion.h"
#include "VstReference.h"

#include "extra/Base64.hpp"
#include "extra/String.hpp"

#include <gtest/gtest.h>
#include <string>
#include <vector>

using namespace vstreference;

namespace
{
std::unique_ptr<ClapTestHost> loadClap(double rate)
{
    std::string error;
    auto host = ClapTestHost::load(SPATARA_CLAP_FILE, rate, kBlock, error);
    EXPECT_TRUE(host) << error;
    return host;
}

// The settings as parameter events in real units, as a host's automation sends them.
void queueSettings(ClapTestHost& host, const Settings& settings)
{
    for (int i = 0; i < kNumParameters; ++i)
        host.queueValue(host.parameterId(spatara::parameterInfo(i).name),
                        spatara::parameterInfo(i).toUnit(settings[i]));
}

Stereo runClap(ClapTestHost& host, const Stereo& in)
{
    Stereo out{std::vector<float>(in.left.size()), std::vector<float>(in.left.size())};
    host.process(in.left.data(), in.right.data(), out.left.data(), out.right.data(),
                 static_cast<uint32_t>(in.left.size()));
    return out;
}

Stereo slice(const Stereo& s, std::size_t from, std::size_t to)
{
    return Stereo{std::vector<float>(s.left.begin() + from, s.left.begin() + to),
                  std::vector<float>(s.right.begin() + from, s.right.begin() + to)};
}

std::string asText(const std::vector<uint8_t>& bytes)
{
    return std::string(bytes.begin(), bytes.end());
}

class ClapEdition : public ::testing::TestWithParam<double>
{
};
} // namespace

TEST(ClapPlugin, DescriptorNamesTheProductWithItsVersionAndHomePage)
{
    auto host = loadClap(44100.0);
    ASSERT_TRUE(host);
    const clap_plugin_descriptor_t& d = host->descriptor();
    EXPECT_STREQ(d.id, "com.zev-sound.spatara");
    EXPECT_STREQ(d.name, "ZEV Spatara");
    EXPECT_STREQ(d.vendor, "ZEV Sound Design");
    EXPECT_STREQ(d.version, SPATARA_VERSION_STRING);
    EXPECT_STREQ(d.url, "https://zev-sound.example/spatara");
    std::vector<std::string> features;
    for (const char* const* f = d.features; f && *f; ++f)
        features.emplace_back(*f);
    EXPECT_EQ(features, (std::vector<std::string>{"audio-effect", "stereo", "utility"}));
}

TEST(ClapPlugin, HasOneStereoInputAndOneStereoOutput)
{
    auto host = loadClap(44100.0);
    ASSERT_TRUE(host);
    for (bool input : {true, false})
    {
        const std::vector<clap_audio_port_info_t> ports = host->audioPorts(input);
        ASSERT_EQ(ports.size(), 1u) << input;
        EXPECT_EQ(ports[0].channel_count, 2u) << input;
        EXPECT_TRUE(ports[0].flags & CLAP_AUDIO_PORT_IS_MAIN) << input;
    }
}

TEST(ClapPlugin, ParametersAreTheLv2EditionsInRealUnitsWithTheHostsBypass)
{
    auto host = loadClap(44100.0);
    ASSERT_TRUE(host);
    const std::vector<clap_param_info_t> params = host->parameters();
    ASSERT_EQ(params.size(), 9u);
    struct Expected
    {
        const char* name;
        double minimum, maximum, initial;
        uint32_t flags;
    };
    const Expected expected[] = {
        {"depth", 0, 100, 0, CLAP_PARAM_IS_AUTOMATABLE},
        {"baseFreq", 20, 1000, 265, CLAP_PARAM_IS_AUTOMATABLE},
        {"wdth/emph", 0, 100, 0, CLAP_PARAM_IS_AUTOMATABLE},
        {"process", 0, 1, 1, CLAP_PARAM_IS_AUTOMATABLE | CLAP_PARAM_IS_STEPPED},
        {"phase", 0, 1, 0, CLAP_PARAM_IS_AUTOMATABLE | CLAP_PARAM_IS_STEPPED},
        {"mode", 0, 2, 0, CLAP_PARAM_IS_AUTOMATABLE | CLAP_PARAM_IS_STEPPED},
        {"meter", -0.5, 0.5, 0, CLAP_PARAM_IS_READONLY},
        {"Bypass", 0, 1, 0, CLAP_PARAM_IS_AUTOMATABLE | CLAP_PARAM_IS_STEPPED | CLAP_PARAM_IS_BYPASS},
        {"correlation", -1, 1, 0, CLAP_PARAM_IS_READONLY},
    };
    for (std::size_t i = 0; i < params.size(); ++i)
    {
        EXPECT_STREQ(params[i].name, expected[i].name);
        EXPECT_EQ(params[i].min_value, expected[i].minimum) << expected[i].name;
        EXPECT_EQ(params[i].max_value, expected[i].maximum) << expected[i].name;
        EXPECT_EQ(params[i].default_value, expected[i].initial) << expected[i].name;
        EXPECT_EQ(params[i].flags, expected[i].flags) << expected[i].name;
        EXPECT_EQ(host->value(params[i].id), expected[i].initial) << expected[i].name;
    }
}

TEST(ClapPlugin, ValuesShowTheTextsOfTheVstPlugin)
{
    auto clap = loadClap(44100.0);
    auto vst = loadVst(44100.0);
    ASSERT_TRUE(clap && vst);
    EXPECT_EQ(clap->text(clap->parameterId("baseFreq"), 265.0), "265.00");
    EXPECT_EQ(clap->text(clap->parameterId("mode"), 1.0), "Mode2");
    EXPECT_EQ(clap->text(clap->parameterId("process"), 1.0), "On");
    EXPECT_EQ(clap->text(clap->parameterId("phase"), 0.0), "Off");
    expectTextsOfVst(
        *vst,
        [&](float mode)
        {
            clap->queueValue(clap->parameterId("mode"), spatara::parameterInfo(kMode).toUnit(mode));
            clap->flush();
        },
        [&](int index, float value)
        {
            const spatara::ParameterInfo& info = spatara::parameterInfo(index);
            return clap->text(clap->parameterId(info.name), info.toUnit(value));
        });
}

TEST_P(ClapEdition, SoundsLikeTheVstPluginInEveryModeAndWithProcessOff)
{
    const double rate = GetParam();
    const Stereo in = testSignal(rate);
    for (const Settings& settings : kEveryMode)
    {
        // The values come as events with the first block after activation and are started on, as the VST
        // 2.4 plug-in set before it is switched on starts on them.
        auto clap = loadClap(rate);
        auto vst = loadVstStartedOn(rate, settings);
        ASSERT_TRUE(clap && vst);
        queueSettings(*clap, settings);
        const Stereo expected = runVst(*vst, in);
        EXPECT_GT(peak(expected), 0.1);
        EXPECT_LE(largestDifference(runClap(*clap, in), expected), 1e-6)
            << "mode " << settings[kMode] << " process " << settings[kProcess] << " at " << rate;
        // The meters as outputs: what the VST 2.4 plug-in answers to its requests.
        for (const auto& [name, request] : {std::pair{"meter", CCONST('Z', 'v', 'M', 't')},
                                            std::pair{"correlation", CCONST('Z', 'v', 'C', 'r')}})
        {
            float reading = 0.0f;
            ASSERT_EQ(vst->dispatch(effVendorSpecific, request, 0, &reading), 1);
            EXPECT_NE(reading, 0.0f) << name;
            EXPECT_EQ(clap->value(clap->parameterId(name)), reading) << name;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(AtBothRates, ClapEdition, ::testing::Values(44100.0, 96000.0));

TEST(ClapPlugin, ParameterEventsDuringPlaybackChangeTheSoundAsVstAutomationDoes)
{
    const Stereo in = testSignal(44100.0);
    const std::size_t half = 40 * kBlock;
    auto clap = loadClap(44100.0);
    auto vst = loadVstStartedOn(44100.0, kEveryMode[1]);
    ASSERT_TRUE(clap && vst);
    queueSettings(*clap, kEveryMode[1]);
    const Stereo firstClap = runClap(*clap, slice(in, 0, half));
    const Stereo firstVst = runVst(*vst, slice(in, 0, half));
    // Mid-way, the host moves three parameters; the effect glides to them as it does under VST 2.4.
    clap->queueValue(clap->parameterId("depth"), 20.0);
    clap->queueValue(clap->parameterId("baseFreq"), 800.0);
    clap->queueValue(clap->parameterId("mode"), 2.0);
    vst->effect()->setParameter(vst->effect(), kDepth, spatara::parameterInfo(kDepth).fromUnit(20.0f));
    vst->effect()->setParameter(vst->effect(), kBaseFreq, spatara::parameterInfo(kBaseFreq).fromUnit(800.0f));
    vst->effect()->setParameter(vst->effect(), kMode, 1.0f);
    const Stereo secondClap = runClap(*clap, slice(in, half, in.left.size()));
    const Stereo secondVst = runVst(*vst, slice(in, half, in.left.size()));
    EXPECT_LE(largestDifference(firstClap, firstVst), 1e-6);
    EXPECT_LE(largestDifference(secondClap, secondVst), 1e-6);
    EXPECT_GT(largestDifference(secondClap, runClap(*loadClap(44100.0), slice(in, half, in.left.size()))),
              0.01)
        << "the events changed nothing";
    EXPECT_EQ(clap->value(clap->parameterId("depth")), 20.0);
    EXPECT_EQ(clap->value(clap->parameterId("mode")), 2.0);
}

TEST(ClapPlugin, TheHostsBypassTurnsProcessOffAndTheMeterKeepsMoving)
{
    const Stereo in = testSignal(44100.0);
    auto clap = loadClap(44100.0);
    auto vst = loadVst(44100.0);
    ASSERT_TRUE(clap && vst);
    const clap_id bypass = clap->parameterId("Bypass");
    const clap_id process = clap->parameterId("process");
    const clap_id meter = clap->parameterId("meter");
    queueSettings(*clap, kEveryMode[0]);
    clap->queueValue(bypass, 1.0);
    Settings off = kEveryMode[0];
    off[kProcess] = 0.0f;
    setVst(*vst, off);
    EXPECT_LE(
        largestDifference(runClap(*clap, slice(in, 0, 20 * kBlock)), runVst(*vst, slice(in, 0, 20 * kBlock))),
        1e-6);
    EXPECT_EQ(clap->value(process), 0.0);
    EXPECT_EQ(clap->value(bypass), 1.0);
    const double meterOnTones = clap->value(meter);
    // The same signal in both channels: the meter swings towards mono.
    const Stereo mono{slice(in, 0, 40 * kBlock).left, slice(in, 0, 40 * kBlock).left};
    runClap(*clap, mono);
    EXPECT_NE(meterOnTones, 0.0);
    EXPECT_GT(clap->value(meter), meterOnTones + 0.05);
    // Released, the effect processes again; and process switched on by itself releases the bypass.
    clap->queueValue(bypass, 0.0);
    clap->flush();
    EXPECT_EQ(clap->value(process), 1.0);
    clap->queueValue(process, 0.0);
    clap->flush();
    EXPECT_EQ(clap->value(bypass), 1.0);
}

TEST(ClapState, TheStateIsTheVstPluginsChunkInBase64)
{
    auto clap = loadClap(44100.0);
    auto vst = loadVst(44100.0);
    ASSERT_TRUE(clap && vst);
    queueSettings(*clap, kEveryMode[2]);
    setVst(*vst, kEveryMode[2]);
    clap->flush();
    const std::vector<unsigned char> chunk = vstChunk(*vst);
    ASSERT_GT(chunk.size(), 13000u);
    const std::string base64 = DISTRHO::String::asBase64(chunk.data(), chunk.size()).buffer();
    EXPECT_NE(asText(clap->saveState()).find(base64), std::string::npos);
}

TEST(ClapState, SavedStateRestoresInAnotherInstance)
{
    const Stereo in = testSignal(44100.0);
    auto first = loadClap(44100.0);
    ASSERT_TRUE(first);
    queueSettings(*first, kEveryMode[1]);
    first->queueValue(first->parameterId("depth"), 42.0);
    runClap(*first, slice(in, 0, 4 * kBlock));
    const std::vector<uint8_t> saved = first->saveState();

    auto second = loadClap(44100.0);
    ASSERT_TRUE(second);
    ASSERT_TRUE(second->restoreState(saved));
    EXPECT_EQ(second->value(second->parameterId("depth")), 42.0);
    EXPECT_EQ(second->value(second->parameterId("phase")), 1.0);
    EXPECT_EQ(second->value(second->parameterId("mode")), 1.0);
    EXPECT_EQ(second->saveState(), saved);
    // It sounds as the VST 2.4 plug-in given the same bank before it is switched on, as a VST 2.4 host
    // reopening a project does.
    Settings settings = kEveryMode[1];
    settings[kDepth] = spatara::parameterInfo(kDepth).fromUnit(42.0f);
    auto source = loadVst(44100.0);
    ASSERT_TRUE(source);
    setVst(*source, settings);
    std::vector<unsigned char> bank = vstChunk(*source);
    std::string error;
    auto vst = VstPluginHost::load(SPATARA_PLUGIN_PATH, error);
    ASSERT_TRUE(vst) << error;
    vst->open();
    ASSERT_EQ(vst->dispatch(effSetChunk, 0, static_cast<VstIntPtr>(bank.size()), bank.data()), 0);
    vst->start(44100.0f, kBlock);
    EXPECT_LE(largestDifference(runClap(*second, in), runVst(*vst, in)), 1e-6);
}

TEST(ClapState, ABankFromTheVstPluginRestoresInTheClapEdition)
{
    auto vst = loadVst(44100.0);
    ASSERT_TRUE(vst);
    setVst(*vst, Settings{0.33f, 0.66f, 0.11f, 1.0f, 1.0f, 0.5f});
    const std::vector<unsigned char> chunk = vstChunk(*vst);
    const std::string base64 = DISTRHO::String::asBase64(chunk.data(), chunk.size()).buffer();
    auto clap = loadClap(44100.0);
    ASSERT_TRUE(clap);
    // The host's project with the bank only (a host keeps the parameters beside it, which would move the
    // current preset), and that bank the one the VST 2.4 plug-in saved.
    const std::string saved = asText(clap->saveState());
    // The framework writes its keys and values each ended by a zero byte.
    const std::string bankKey("bank", 5), parametersBegin("__dpf_parameters_begin__", 25),
        parametersEnd("__dpf_parameters_end__", 23);
    const auto bank = saved.find(bankKey);
    const auto bankEnd = saved.find('\0', bank + bankKey.size());
    const auto parameters = saved.find(parametersBegin);
    const auto parametersStop = saved.find(parametersEnd);
    ASSERT_TRUE(bank != std::string::npos && bankEnd != std::string::npos &&
                parameters != std::string::npos && parametersStop != std::string::npos);
    const std::string edited = saved.substr(0, bank + bankKey.size()) + base64 +
                               saved.substr(bankEnd, parameters - bankEnd) +
                               saved.substr(parametersStop + parametersEnd.size());
    ASSERT_TRUE(clap->restoreState(std::vector<uint8_t>(edited.begin(), edited.end())));
    EXPECT_NE(asText(clap->saveState()).find(base64), std::string::npos);
    EXPECT_EQ(clap->value(clap->parameterId("baseFreq")), spatara::parameterInfo(kBaseFreq).toUnit(0.66f));
}
