// The LV2 edition in a lilv host of our own, beside the VST 2.4 plug-in in a VST 2.4 host: the same audio,
// the same presets, the same bank.
#include "FactoryPresets.h"
#include "Lv2TestHost.h"
#include "ParameterTable.h"
#include "RunCommand.h"
#include "TempDir.h"
#include "VstReference.h"

#include "extra/Base64.hpp"
#include "extra/String.hpp"

#include <cstring>
#include <gtest/gtest.h>
#include <set>
#include <vector>

using namespace vstreference;

namespace
{
constexpr const char* kUri = "https://zev-sound.example/plugins/spatara";
constexpr const char* kBankKey = "https://zev-sound.example/plugins/spatara#bank";

std::unique_ptr<Lv2TestHost> loadLv2(double rate)
{
    std::string error;
    auto host = Lv2TestHost::load(SPATARA_LV2_BUNDLE, kUri, rate, kBlock, error);
    EXPECT_TRUE(host) << error;
    return host;
}

void setLv2(Lv2TestHost& host, const Settings& settings)
{
    for (int i = 0; i < kNumParameters; ++i)
        host.setControl(spatara::parameterInfo(i).symbol, spatara::parameterInfo(i).toUnit(settings[i]));
}

Stereo runLv2(Lv2TestHost& host, const Stereo& in)
{
    Stereo out{std::vector<float>(in.left.size()), std::vector<float>(in.left.size())};
    host.process(in.left.data(), in.right.data(), out.left.data(), out.right.data(),
                 static_cast<uint32_t>(in.left.size()));
    return out;
}

std::vector<unsigned char> lv2Bank(Lv2TestHost& host)
{
    const auto values = host.stateValues();
    const auto found = values.find(kBankKey);
    if (found == values.end()) return {};
    const std::vector<uint8_t> bytes = d_getChunkFromBase64String(found->second.c_str());
    return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

class Lv2Edition : public ::testing::TestWithParam<double>
{
};
} // namespace

TEST(Lv2Bundle, HasTheSixParametersAndTheMeterAsControlPorts)
{
    auto host = loadLv2(44100.0);
    ASSERT_TRUE(host);
    for (int i = 0; i < kNumParameters; ++i)
        EXPECT_TRUE(host->hasPort(spatara::parameterInfo(i).symbol));
    EXPECT_TRUE(host->hasPort("meter"));
    // A fresh instance starts on the init preset, in real units.
    EXPECT_EQ(host->control("depth"), 0.0f);
    EXPECT_EQ(host->control("baseFreq"), 265.0f);
    EXPECT_EQ(host->control("process"), 1.0f);
    EXPECT_EQ(host->control("mode"), 0.0f);
}

TEST(Lv2Bundle, PortsCarryTheirUnits)
{
    auto host = loadLv2(44100.0);
    ASSERT_TRUE(host);
    const std::string units = "http://lv2plug.in/ns/extensions/units#";
    EXPECT_EQ(host->portUnit("depth"), units + "pc");
    EXPECT_EQ(host->portUnit("baseFreq"), units + "hz");
    EXPECT_EQ(host->portUnit("wdth_emph"), units + "pc");
    EXPECT_EQ(host->portUnit("mode"), "");
}

TEST(Lv2Bundle, TheModeIsAnEnumerationOfThreeNamedModes)
{
    auto host = loadLv2(44100.0);
    ASSERT_TRUE(host);
    const std::vector<std::pair<float, std::string>> expected = {
        {0.0f, "Mode1"}, {1.0f, "Mode2"}, {2.0f, "Mode3"}};
    EXPECT_EQ(host->scalePoints("mode"), expected);
}

// lv2info of this lilv prints neither units nor scale points; the tests above read those through lilv.
TEST(Lv2Bundle, Lv2infoListsPortsRangesPropertiesAndPresets)
{
    const CommandResult r =
        runCommand("LV2_PATH=" + shellQuote(std::string(SPATARA_LV2_BUNDLE) + "/..") + " lv2info " + kUri);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    for (const char* expected :
         {"Name:              ZEV Spatara", "Symbol:      depth", "Symbol:      baseFreq",
          "Symbol:      wdth_emph", "Symbol:      process", "Symbol:      phase", "Symbol:      mode",
          "Symbol:      meter", "Minimum:     20.000000", "Maximum:     1000.000000",
          "Minimum:     -0.500000", "Maximum:     0.500000", "lv2core#toggled", "lv2core#enumeration",
          "room space 1", "enahnced space 3", "over heads"})
        EXPECT_NE(r.out.find(expected), std::string::npos) << expected << "\n" << r.out;
}

TEST(Lv2Bundle, RequiresNoWorkerAndSoundsTheSameInAHostThatOffersNone)
{
    const CommandResult r =
        runCommand("LV2_PATH=" + shellQuote(std::string(SPATARA_LV2_BUNDLE) + "/..") + " lv2info " + kUri);
    ASSERT_EQ(r.exitCode, 0) << r.err;
    const std::size_t required = r.out.find("Required Features:"),
                      optional = r.out.find("Optional Features:");
    ASSERT_NE(required, std::string::npos) << r.out;
    ASSERT_NE(optional, std::string::npos) << r.out;
    const std::string requiredList = r.out.substr(required, optional - required);
    EXPECT_EQ(requiredList.find("worker"), std::string::npos) << requiredList;
    EXPECT_NE(requiredList.find("urid#map"), std::string::npos) << requiredList;

    std::string error;
    auto lv2 = Lv2TestHost::load(SPATARA_LV2_BUNDLE, kUri, 44100.0, kBlock, error, false);
    ASSERT_TRUE(lv2) << error;
    const Stereo in = testSignal(44100.0);
    setLv2(*lv2, kEveryMode[1]);
    auto vst = loadVstStartedOn(44100.0, kEveryMode[1]);
    ASSERT_TRUE(vst);
    EXPECT_LE(largestDifference(runLv2(*lv2, in), runVst(*vst, in)), 1e-6);
    // The bank still travels through the state, worker or not.
    const std::string saved = lv2->saveState();
    auto second = Lv2TestHost::load(SPATARA_LV2_BUNDLE, kUri, 44100.0, kBlock, error, false);
    ASSERT_TRUE(second) << error;
    ASSERT_TRUE(second->restoreState(saved));
    EXPECT_EQ(lv2Bank(*second), lv2Bank(*lv2));
}

TEST(Lv2Bundle, OffersTheThirtyDistinctFactoryPresetsByName)
{
    auto host = loadLv2(44100.0);
    ASSERT_TRUE(host);
    const std::vector<std::string> labels = host->presetLabels();
    const std::set<std::string> unique(labels.begin(), labels.end());
    EXPECT_EQ(labels.size(), 30u);
    EXPECT_EQ(unique.size(), 30u);
    for (const FactoryPreset& preset : kFactoryPresets)
        EXPECT_TRUE(unique.count(preset.name)) << preset.name;
}

TEST_P(Lv2Edition, SoundsLikeTheVstPluginInEveryModeAndInBypass)
{
    const double rate = GetParam();
    const Stereo in = testSignal(rate);
    for (const Settings& settings : kEveryMode)
    {
        // The host's ports are set before it activates the plug-in, which starts on them as the VST 2.4
        // plug-in set before it is switched on does.
        auto lv2 = loadLv2(rate);
        auto vst = loadVstStartedOn(rate, settings);
        ASSERT_TRUE(lv2 && vst);
        setLv2(*lv2, settings);
        const Stereo expected = runVst(*vst, in);
        const Stereo actual = runLv2(*lv2, in);
        EXPECT_GT(peak(expected), 0.1);
        EXPECT_LE(largestDifference(actual, expected), 1e-6)
            << "mode " << settings[kMode] << " process " << settings[kProcess] << " at " << rate;
        // The meter output shows what the VST 2.4 plug-in reports on request.
        float meter = 0.0f;
        ASSERT_EQ(vst->dispatch(effVendorSpecific, CCONST('Z', 'v', 'M', 't'), 0, &meter), 1);
        EXPECT_NE(meter, 0.0f);
        EXPECT_EQ(lv2->control("meter"), meter);
        // And the correlation output what it answers to its correlation request.
        float correlation = 0.0f;
        ASSERT_EQ(vst->dispatch(effVendorSpecific, CCONST('Z', 'v', 'C', 'r'), 0, &correlation), 1);
        EXPECT_NE(correlation, 0.0f);
        EXPECT_EQ(lv2->control("correlation"), correlation);
    }
}

TEST_P(Lv2Edition, EveryFactoryPresetSoundsAsInTheVstPlugin)
{
    const double rate = GetParam();
    const Stereo in = testSignal(rate);
    auto lv2 = loadLv2(rate);
    ASSERT_TRUE(lv2);
    for (const std::string& label : lv2->presetLabels())
    {
        const FactoryPreset* preset = nullptr;
        for (const FactoryPreset& p : kFactoryPresets)
            if (!preset && label == p.name) preset = &p;
        ASSERT_TRUE(preset) << label;
        // A preset chosen before playback starts is where the sound starts.
        Settings settings;
        std::copy(std::begin(preset->values), std::end(preset->values), settings.begin());
        auto instance = loadLv2(rate);
        auto vst = loadVstStartedOn(rate, settings);
        ASSERT_TRUE(instance && vst);
        ASSERT_TRUE(instance->loadPreset(label));
        const Stereo expected = runVst(*vst, in);
        const Stereo actual = runLv2(*instance, in);
        EXPECT_LE(largestDifference(actual, expected), 1e-6) << label << " at " << rate;
        // The ports gave the effect exactly the preset's values: the banks hold the same bytes.
        EXPECT_EQ(lv2Bank(*instance), vstChunk(*vst)) << label;
    }
}

INSTANTIATE_TEST_SUITE_P(AtBothRates, Lv2Edition, ::testing::Values(44100.0, 96000.0));

TEST(Lv2State, AFreshBankIsTheVstPluginsChunk)
{
    auto lv2 = loadLv2(44100.0);
    auto vst = loadVst(44100.0);
    ASSERT_TRUE(lv2 && vst);
    const auto bank = lv2Bank(*lv2);
    EXPECT_GT(bank.size(), 13000u);
    EXPECT_EQ(bank, vstChunk(*vst));
}

TEST(Lv2State, SavedStateRestoresInAnotherInstance)
{
    auto first = loadLv2(44100.0);
    ASSERT_TRUE(first);
    ASSERT_TRUE(first->loadPreset("room space 3"));
    first->setControl("depth", 42.0f);
    first->setControl("phase", 1.0f);
    const Stereo in = testSignal(44100.0);
    runLv2(*first, in); // the ports reach the effect when it runs
    const std::string saved = first->saveState();
    ASSERT_NE(saved.find("spatara#bank"), std::string::npos) << saved;

    auto second = loadLv2(44100.0);
    ASSERT_TRUE(second);
    ASSERT_TRUE(second->restoreState(saved));
    EXPECT_EQ(second->control("depth"), 42.0f);
    EXPECT_EQ(second->control("phase"), 1.0f);
    EXPECT_EQ(second->control("mode"), 2.0f);
    EXPECT_EQ(lv2Bank(*second), lv2Bank(*first));
}

TEST(Lv2State, AUserPresetSavedByTheHostRestoresTheValuesAndTheBankAsSaved)
{
    auto lv2 = loadLv2(44100.0);
    ASSERT_TRUE(lv2);
    const Stereo in = testSignal(44100.0);
    setLv2(*lv2, kEveryMode[1]);
    runLv2(*lv2, in);
    const auto bank = lv2Bank(*lv2);
    TempDir folder;
    const std::string preset = folder.file("mine.preset.lv2");
    ASSERT_TRUE(lv2->saveUserPreset(preset, "mine"));

    // Afterwards the user moves on: other values, and a bank from elsewhere.
    auto vst = loadVstStartedOn(44100.0, kEveryMode[2]);
    ASSERT_TRUE(vst);
    const std::string saved = lv2->saveState();
    const auto start = saved.find('"', saved.find("spatara#bank>"));
    const auto end = saved.find('"', start + 1);
    const std::vector<unsigned char> other = vstChunk(*vst);
    ASSERT_TRUE(lv2->restoreState(saved.substr(0, start + 1) +
                                  DISTRHO::String::asBase64(other.data(), other.size()).buffer() +
                                  saved.substr(end)));
    setLv2(*lv2, kEveryMode[2]);
    runLv2(*lv2, in);
    ASSERT_NE(lv2Bank(*lv2), bank);

    ASSERT_TRUE(lv2->loadUserPreset(preset, "mine"));
    EXPECT_EQ(lv2Bank(*lv2), bank);
    for (int i = 0; i < kNumParameters; ++i)
        EXPECT_EQ(lv2->control(spatara::parameterInfo(i).symbol),
                  spatara::parameterInfo(i).toUnit(kEveryMode[1][i]))
            << spatara::parameterInfo(i).symbol;
}

TEST(Lv2State, TheBankMovesIntoTheVstPluginByteForByte)
{
    auto lv2 = loadLv2(44100.0);
    ASSERT_TRUE(lv2);
    ASSERT_TRUE(lv2->loadPreset("tight 2"));
    lv2->setControl("wdth_emph", 37.0f);
    const Stereo in = testSignal(44100.0);
    const Stereo lv2Out = runLv2(*lv2, in);
    const auto bank = lv2Bank(*lv2);
    ASSERT_FALSE(bank.empty());

    // Reopened from the project: the chunk first, then the effect is switched on.
    VstIntPtr answer = -1;
    auto vst = loadVstStartedAfter(44100.0,
                                   [&](VstPluginHost& host)
                                   {
                                       answer =
                                           host.dispatch(effSetChunk, 0, static_cast<VstIntPtr>(bank.size()),
                                                         const_cast<unsigned char*>(bank.data()));
                                   });
    ASSERT_TRUE(vst);
    ASSERT_EQ(answer, 0);
    EXPECT_EQ(vstChunk(*vst), bank);
    EXPECT_EQ(vst->effect()->getParameter(vst->effect(), kWidth), 0.37f);
    EXPECT_LE(largestDifference(runVst(*vst, in), lv2Out), 1e-6);
}

TEST(Lv2State, ABankFromTheVstPluginRestoresInTheLv2Edition)
{
    auto vst = loadVst(44100.0);
    ASSERT_TRUE(vst);
    setVst(*vst, Settings{0.33f, 0.66f, 0.11f, 1.0f, 1.0f, 0.5f});
    const auto chunk = vstChunk(*vst);
    auto lv2 = loadLv2(44100.0);
    ASSERT_TRUE(lv2);
    const std::string saved = lv2->saveState();
    const std::string base64 = DISTRHO::String::asBase64(chunk.data(), chunk.size()).buffer();
    // The host's project, with the bank replaced by the one the VST 2.4 plug-in saved.
    const auto start = saved.find('"', saved.find("spatara#bank>"));
    ASSERT_NE(start, std::string::npos) << saved;
    const auto end = saved.find('"', start + 1);
    ASSERT_NE(end, std::string::npos) << saved;
    const std::string edited = saved.substr(0, start + 1) + base64 + saved.substr(end);
    ASSERT_TRUE(lv2->restoreState(edited));
    EXPECT_EQ(lv2Bank(*lv2), chunk);
}

TEST(Lv2State, AStateRestoredWhileRunningStartsOnItsValuesAsAReopenedVstPluginDoes)
{
    const Stereo in = testSignal(44100.0);
    auto source = loadLv2(44100.0);
    ASSERT_TRUE(source);
    ASSERT_TRUE(source->loadPreset("tight 4"));
    runLv2(*source, in);
    const std::string saved = source->saveState();
    const auto bank = lv2Bank(*source);

    auto running = loadLv2(44100.0);
    ASSERT_TRUE(running);
    runLv2(*running, in); // on the init preset, as a host runs a fresh instance before it restores a session
    ASSERT_TRUE(running->restoreState(saved));
    const Stereo restored = runLv2(*running, in);

    // A VST 2.4 host gives the chunk before it switches the effect on.
    std::string error;
    auto vst = VstPluginHost::load(SPATARA_PLUGIN_PATH, error);
    ASSERT_TRUE(vst) << error;
    vst->open();
    ASSERT_EQ(vst->dispatch(effSetChunk, 0, static_cast<VstIntPtr>(bank.size()),
                            const_cast<unsigned char*>(bank.data())),
              0);
    vst->start(44100.0f, kBlock);
    EXPECT_LE(largestDifference(restored, runVst(*vst, in)), 1e-6);
}

TEST(Lv2State, ADamagedBankIsRefusedWithOneLineAndTheBankKept)
{
    auto lv2 = loadLv2(44100.0);
    ASSERT_TRUE(lv2);
    ASSERT_TRUE(lv2->loadPreset("kick"));
    runLv2(*lv2, testSignal(44100.0));
    const auto bank = lv2Bank(*lv2);
    const std::string saved = lv2->saveState();
    const auto start = saved.find('"', saved.find("spatara#bank>"));
    const auto end = saved.find('"', start + 1);
    ASSERT_NE(end, std::string::npos) << saved;
    for (const std::string& damaged : {std::string("AAAA!!AAAA"), std::string("\xc3\xa9t\xc3\xa9"),
                                       std::string("AAAAAm5zd1Fu"), std::string("QUJD=QUJD")})
    {
        ::testing::internal::CaptureStderr();
        ASSERT_TRUE(lv2->restoreState(saved.substr(0, start + 1) + damaged + saved.substr(end)));
        const std::string said = ::testing::internal::GetCapturedStderr();
        EXPECT_EQ(said, "ZEV Spatara: the bank in the saved state is damaged; the bank is kept as it was\n")
            << damaged;
        EXPECT_EQ(lv2Bank(*lv2), bank) << damaged;
    }
    // Good base64 of a chunk whose bank the effect's reader refuses half-way (preset 5's third value chunk
    // claims a negative size).
    std::vector<unsigned char> refused = bank;
    const std::size_t sizeAt = 8 + 41 + 5 * 360 + 168 + 2 * 32 + 4;
    const std::int32_t negative = -1;
    std::memcpy(refused.data() + sizeAt, &negative, sizeof(negative));
    const std::string base64 = DISTRHO::String::asBase64(refused.data(), refused.size()).buffer();
    ::testing::internal::CaptureStderr();
    ASSERT_TRUE(lv2->restoreState(saved.substr(0, start + 1) + base64 + saved.substr(end)));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(),
              "ZEV Spatara: the bank in the saved state is damaged; the bank is kept as it was\n");
    EXPECT_EQ(lv2Bank(*lv2), bank);
}

TEST(Lv2Edition, AMonoInputOnBothPortsSoundsAsTheVstPluginsMonoInput)
{
    const Stereo in = testSignal(44100.0);
    const Settings settings{0.75f, 0.25f, 0.5f, 1.0f, 0.0f, 0.5f};
    auto lv2 = loadLv2(44100.0);
    auto vst = loadVstStartedOn(44100.0, settings);
    ASSERT_TRUE(lv2 && vst);
    setLv2(*lv2, settings);
    Stereo actual{std::vector<float>(in.left.size()), std::vector<float>(in.left.size())};
    lv2->processMono(in.left.data(), actual.left.data(), actual.right.data(),
                     static_cast<uint32_t>(in.left.size()));
    // The VST 2.4 plug-in's mono input: one buffer on both of its inputs.
    const Stereo expected = runVst(*vst, in, true);
    EXPECT_GT(peak(expected), 0.1);
    EXPECT_LE(largestDifference(actual, expected), 1e-6);
}
