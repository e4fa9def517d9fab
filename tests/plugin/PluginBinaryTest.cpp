// The built Spatara.so, loaded with dlopen and spoken to only through the VST 2.4 dispatcher, as a host does.
#include "StartedPluginTest.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
class PluginBinary : public StartedPluginTest
{
  protected:
    std::string display(VstInt32 index, float value)
    {
        host->effect()->setParameter(host->effect(), index, value);
        return host->text(effGetParamDisplay, index);
    }
};

VstSpeakerArrangement arrangement(VstInt32 channels)
{
    VstSpeakerArrangement a{};
    a.type = channels == 1 ? kSpeakerArrMono : kSpeakerArrStereo;
    a.numChannels = channels;
    return a;
}
} // namespace

TEST_F(PluginBinary, ReportsItsIdentityAndLayout)
{
    const AEffect* e = host->effect();
    EXPECT_EQ(e->magic, kEffectMagic);
    EXPECT_EQ(e->uniqueID, CCONST('Q', 'w', 's', 'n'));
    EXPECT_EQ(e->numPrograms, 1);
    EXPECT_EQ(e->numParams, 6);
    EXPECT_EQ(e->numInputs, 2);
    EXPECT_EQ(e->numOutputs, 2);
    EXPECT_TRUE(e->flags & effFlagsCanReplacing);
    EXPECT_TRUE(e->flags & effFlagsCanDoubleReplacing);
    EXPECT_TRUE(e->flags & effFlagsProgramChunks);
    EXPECT_FALSE(e->flags & effFlagsIsSynth);
    EXPECT_NE(e->processReplacing, nullptr);
    EXPECT_NE(e->processDoubleReplacing, nullptr);
}

TEST_F(PluginBinary, ReportsNamesVendorVersionAndCategory)
{
    EXPECT_EQ(host->text(effGetEffectName), "ZEV Spatara");
    EXPECT_EQ(host->text(effGetProductString), "Simple Spatara");
    EXPECT_EQ(host->text(effGetVendorString).size(), 16u);
    EXPECT_EQ(host->dispatch(effGetVendorVersion), 1990);
    EXPECT_EQ(host->dispatch(effGetPlugCategory), kPlugCategMastering);
    EXPECT_EQ(host->dispatch(effGetVstVersion), 2400);
}

TEST_F(PluginBinary, ParameterNamesAndLabelsKeepTheirBlanks)
{
    const std::array<std::string, 6> names = {"depth", "baseFreq", "wdth/emph", "process", "phase", "mode"};
    const std::array<std::string, 6> labels = {"    %   ",  "    Hz   ", "    %    ",
                                               "         ", "         ", "         "};
    for (int i = 0; i < 6; ++i)
    {
        EXPECT_EQ(host->text(effGetParamName, i), names[i]);
        EXPECT_EQ(host->text(effGetParamLabel, i), labels[i]);
        EXPECT_EQ(host->dispatch(effCanBeAutomated, i), 1);
    }
    EXPECT_EQ(host->text(effGetParamLabel, 6), " ");
    EXPECT_EQ(host->text(effGetParamDisplay, 6), "UNDEF");
    EXPECT_EQ(host->text(effGetParamName, 6), "");
    EXPECT_EQ(host->dispatch(effCanBeAutomated, 6), 0);
}

TEST_F(PluginBinary, DisplaysFollowSetParameter)
{
    EXPECT_EQ(display(0, 0.5f), "50.0");
    EXPECT_EQ(display(0, 0.0f), "0.0");
    EXPECT_EQ(display(1, 0.0f), "20.00");
    EXPECT_EQ(display(1, 1.0f), "1000.00");
    EXPECT_EQ(display(1, 0.5f), "265.00");
    EXPECT_EQ(display(1, 0.0125f), "20.15");
    EXPECT_EQ(display(5, 0.0f), "Mode1");
    EXPECT_EQ(display(2, 0.5f), "250.0");
    EXPECT_EQ(display(5, 0.5f), "Mode2");
    EXPECT_EQ(host->text(effGetParamDisplay, 2), "250.0");
    EXPECT_EQ(display(5, 1.0f), "Mode3");
    EXPECT_EQ(host->text(effGetParamDisplay, 2), "50.0");
    EXPECT_EQ(display(3, 0.5f), "On");
    EXPECT_EQ(display(3, 0.4999f), "Off");
    EXPECT_EQ(display(4, 1.0f), "On");
    EXPECT_EQ(display(4, 0.0f), "Off");
    EXPECT_EQ(host->effect()->getParameter(host->effect(), 4), 0.0f);
    EXPECT_EQ(host->effect()->getParameter(host->effect(), 6), 0.0f);
}

TEST_F(PluginBinary, ParameterPropertiesCarryNameShortLabelAndSteps)
{
    VstParameterProperties p{};
    ASSERT_EQ(host->dispatch(effGetParameterProperties, 1, 0, &p), 1);
    EXPECT_STREQ(p.label, "baseFreq");
    EXPECT_STREQ(p.shortLabel, "baseFre");
    EXPECT_EQ(p.flags, kVstParameterUsesFloatStep);
    EXPECT_EQ(p.stepFloat, 0.00390625f);
    EXPECT_EQ(p.smallStepFloat, 0.0009765625f);
    EXPECT_EQ(p.largeStepFloat, 0.015625f);

    ASSERT_EQ(host->dispatch(effGetParameterProperties, 2, 0, &p), 1);
    EXPECT_STREQ(p.shortLabel, "wdth/em");

    ASSERT_EQ(host->dispatch(effGetParameterProperties, 3, 0, &p), 1);
    EXPECT_EQ(p.flags, kVstParameterIsSwitch | kVstParameterUsesFloatStep);
    EXPECT_EQ(p.stepFloat, 1.0f);
    EXPECT_EQ(p.largeStepFloat, 1.0f);

    ASSERT_EQ(host->dispatch(effGetParameterProperties, 5, 0, &p), 1);
    EXPECT_EQ(p.flags, kVstParameterUsesFloatStep);
    EXPECT_EQ(p.stepFloat, 0.5f);
    EXPECT_EQ(p.smallStepFloat, 0.5f);

    VstParameterProperties untouched{};
    std::memset(&untouched, 0x5a, sizeof(untouched));
    VstParameterProperties copy = untouched;
    EXPECT_EQ(host->dispatch(effGetParameterProperties, 6, 0, &copy), 0);
    EXPECT_EQ(std::memcmp(&copy, &untouched, sizeof(copy)), 0);
}

TEST_F(PluginBinary, CanDoAnswersOnlyItsFourTexts)
{
    for (const char* yes : {"offline", "plugAsChannelInsert", "1in2out", "2in2out"})
        EXPECT_EQ(host->dispatch(effCanDo, 0, 0, const_cast<char*>(yes)), 1) << yes;
    for (const char* dontKnow : {"receiveVstMidiEvent", "sendVstMidiEvent", "bypass", "2in1out", ""})
        EXPECT_EQ(host->dispatch(effCanDo, 0, 0, const_cast<char*>(dontKnow)), 0) << dontKnow;
}

TEST_F(PluginBinary, PinPropertiesNameTwoStereoPinsEachWay)
{
    VstPinProperties pin{};
    ASSERT_EQ(host->dispatch(effGetInputProperties, 0, 0, &pin), 1);
    EXPECT_STREQ(pin.label, "My 1 In");
    EXPECT_EQ(pin.flags, kVstPinIsActive | kVstPinIsStereo);
    ASSERT_EQ(host->dispatch(effGetOutputProperties, 1, 0, &pin), 1);
    EXPECT_STREQ(pin.label, "My 2 Out");
    EXPECT_EQ(pin.flags, 3);

    VstPinProperties untouched{};
    std::memset(&untouched, 0x33, sizeof(untouched));
    VstPinProperties copy = untouched;
    EXPECT_EQ(host->dispatch(effGetInputProperties, 2, 0, &copy), 0);
    EXPECT_EQ(host->dispatch(effGetOutputProperties, 2, 0, &copy), 0);
    EXPECT_EQ(std::memcmp(&copy, &untouched, sizeof(copy)), 0);
}

TEST_F(PluginBinary, PinPropertiesWriteLabelAndFlagsAndLeaveTheRestAsTheHostLeftIt)
{
    for (VstInt32 opcode : {effGetInputProperties, effGetOutputProperties})
    {
        VstPinProperties hostRecord;
        std::memset(&hostRecord, 0x33, sizeof(hostRecord));
        VstPinProperties pin = hostRecord;
        ASSERT_EQ(host->dispatch(opcode, 1, 0, &pin), 1);
        EXPECT_STREQ(pin.label, opcode == effGetInputProperties ? "My 2 In" : "My 2 Out");
        EXPECT_EQ(pin.flags, kVstPinIsActive | kVstPinIsStereo);
        EXPECT_EQ(pin.arrangementType, hostRecord.arrangementType);
        EXPECT_EQ(std::memcmp(pin.shortLabel, hostRecord.shortLabel, sizeof(pin.shortLabel)), 0);
        EXPECT_EQ(std::memcmp(pin.future, hostRecord.future, sizeof(pin.future)), 0);
    }
}

TEST_F(PluginBinary, SpeakerArrangementsAcceptMonoOrStereoInIntoStereoOut)
{
    auto mono = arrangement(1), stereo = arrangement(2);
    EXPECT_EQ(host->dispatch(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&mono), &stereo), 1);
    EXPECT_EQ(host->dispatch(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&stereo), &stereo), 1);
    EXPECT_EQ(host->dispatch(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&stereo), &mono), 0);
    EXPECT_EQ(host->dispatch(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&mono), &mono), 0);
}

TEST_F(PluginBinary, GetVuIsAlwaysZero)
{
    EXPECT_EQ(host->dispatch(effGetVu), 0);
    EXPECT_EQ(host->dispatch(effGetVu), 0);
}

TEST_F(PluginBinary, ProgramNamesIndexedStopAfter37)
{
    char name[64] = {};
    EXPECT_EQ(host->dispatch(effGetProgramNameIndexed, 37, 0, name), 1);
    EXPECT_STREQ(name, "init");
    EXPECT_EQ(host->dispatch(effGetProgramNameIndexed, 1, 0, name), 1);
    EXPECT_STREQ(name, "enhanced mix 1");
    std::memset(name, 'q', sizeof(name));
    EXPECT_EQ(host->dispatch(effGetProgramNameIndexed, 38, 0, name), 0);
    EXPECT_EQ(name[0], 'q');
}

TEST_F(PluginBinary, TheHostSeesOneProgramNamedAfterTheCurrentPreset)
{
    EXPECT_EQ(host->dispatch(effGetProgram), 0);
    EXPECT_EQ(host->text(effGetProgramName), "init");
    char newName[] = "my mix";
    host->dispatch(effSetProgramName, 0, 0, newName);
    EXPECT_EQ(host->text(effGetProgramName), "my mix");
    char first[64] = {};
    host->dispatch(effGetProgramNameIndexed, 0, 0, first);
    EXPECT_STREQ(first, "my mix");
}

TEST_F(PluginBinary, AProgramNameTooLongForTheStoreIsCutAtACharacterBoundary)
{
    // 22 letters and an "é" (two bytes): the 23rd byte would split the "é", so it goes whole.
    char newName[] = "abcdefghijklmnopqrstuv\xC3\xA9";
    host->dispatch(effSetProgramName, 0, 0, newName);
    EXPECT_EQ(host->text(effGetProgramName), "abcdefghijklmnopqrstuv");
    // Three-byte characters: 7 of them fill 21 bytes, the 8th would end at byte 24.
    char euros[] = "\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC\xE2\x82\xAC"
                   "\xE2\x82\xAC";
    host->dispatch(effSetProgramName, 0, 0, euros);
    EXPECT_EQ(host->text(effGetProgramName), std::string(euros, 21));
    // Bytes that are no UTF-8 at all are kept as they came, up to 23.
    char latin1[] = "abcdefghijklmnopqrstuv\xE9\xE9";
    host->dispatch(effSetProgramName, 0, 0, latin1);
    EXPECT_EQ(host->text(effGetProgramName), "abcdefghijklmnopqrstuv\xE9");
}

TEST_F(PluginBinary, HostWithoutAVersionGetsNoEffect)
{
    std::string error;
    VstHostAnswers answers;
    answers.version = 0;
    EXPECT_FALSE(VstPluginHost::load(SPATARA_PLUGIN_PATH, error, answers));
}

namespace
{
// Caps the address space a little above what is in use and allocates until nothing more comes: the next
// allocation anyone makes fails.
void exhaustMemory()
{
    long pages = 0;
    if (std::FILE* statm = std::fopen("/proc/self/statm", "r"))
    {
        if (std::fscanf(statm, "%ld", &pages) != 1) pages = 0;
        std::fclose(statm);
    }
    const rlim_t cap = static_cast<rlim_t>(pages) * static_cast<rlim_t>(sysconf(_SC_PAGESIZE)) + (16u << 20);
    rlimit limit{cap, cap};
    setrlimit(RLIMIT_AS, &limit);
    // Kept where the compiler cannot prove the blocks unused.
    [[maybe_unused]] static void* volatile last = nullptr;
    for (std::size_t size : {std::size_t{1} << 16, std::size_t{1} << 10, std::size_t{32}})
        for (void* block = std::malloc(size); block != nullptr; block = std::malloc(size))
            last = block;
}
} // namespace

TEST_F(PluginBinary, NoExceptionLeavesTheDispatcherWhenMemoryRunsOut)
{
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0)
    {
        exhaustMemory();
        int outcome = 0;
        try
        {
            void* chunk = nullptr;
            host->dispatch(effGetChunk, 0, 0, &chunk);
        }
        catch (...)
        {
            outcome = 3;
        }
        _exit(outcome);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status)) << "the host died of signal " << WTERMSIG(status);
    EXPECT_EQ(WEXITSTATUS(status), 0) << "an exception came out of the dispatcher";
}

TEST(PluginSymbols, OnlyTheEntryPointsAreExported)
{
    const std::string command = std::string("nm -D --defined-only ") + SPATARA_PLUGIN_PATH;
    FILE* pipe = popen(command.c_str(), "r");
    ASSERT_NE(pipe, nullptr);
    std::set<std::string> symbols;
    char line[512];
    while (std::fgets(line, sizeof(line), pipe))
    {
        std::string text(line);
        const auto lastSpace = text.find_last_of(' ');
        std::string symbol = text.substr(lastSpace + 1);
        while (!symbol.empty() && (symbol.back() == '\n' || symbol.back() == '\r'))
            symbol.pop_back();
        symbols.insert(symbol);
    }
    ASSERT_EQ(pclose(pipe), 0);
    EXPECT_EQ(symbols, (std::set<std::string>{"VSTPluginMain", "main"}));
}
