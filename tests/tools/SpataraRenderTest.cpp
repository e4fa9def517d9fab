// spatara-render driven as a user drives it, against the built plug-in.
#include "RunCommand.h"
#include "TempDir.h"
#include "WavFile.h"

#include <cmath>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sndfile.h>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
const std::string kRender = SPATARA_RENDER_PATH;
const std::string kPlugin = SPATARA_PLUGIN_PATH;

Audio tone(int channels, int sampleRate, int format, double seconds)
{
    Audio audio;
    audio.channels = channels;
    audio.sampleRate = sampleRate;
    audio.format = format;
    const auto frames = static_cast<std::size_t>(seconds * sampleRate);
    for (std::size_t i = 0; i < frames; ++i)
        for (int c = 0; c < channels; ++c)
            audio.samples.push_back(
                0.4 * std::sin(2.0 * M_PI * (220.0 + 110.0 * c) * static_cast<double>(i) / sampleRate));
    return audio;
}

std::string slurp(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

int lines(const std::string& text)
{
    int count = 0;
    for (char c : text)
        count += c == '\n';
    return count;
}

class SpataraRender : public ::testing::Test
{
  protected:
    CommandResult render(const std::string& in, const std::string& out, const std::string& extra = "")
    {
        return runCommand(shellQuote(kRender) + " " + shellQuote(kPlugin) + " " + shellQuote(in) + " " +
                          shellQuote(out) + " " + extra);
    }
    CommandResult info(const std::string& extra = "")
    {
        return runCommand(shellQuote(kRender) + " --info " + shellQuote(kPlugin) + " " + extra);
    }

    // A refusal: exit code 2, one line on standard error naming the problem, no output file.
    void expectRefusal(const CommandResult& result, const std::string& words)
    {
        EXPECT_EQ(result.exitCode, 2);
        EXPECT_EQ(lines(result.err), 1) << result.err;
        EXPECT_NE(result.err.find(words), std::string::npos) << result.err;
        EXPECT_FALSE(std::filesystem::exists(dir.file("out.wav")));
        for (const auto& entry : std::filesystem::directory_iterator(dir.path()))
            EXPECT_EQ(entry.path().filename().string().find("out.wav"), std::string::npos) << entry.path();
    }

    TempDir dir;
};
} // namespace

TEST_F(SpataraRender, KeepsSampleRateAndBitDepthOfAStereoFile)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 48000, SF_FORMAT_WAV | SF_FORMAT_PCM_24, 1.0)));
    const auto result = render(dir.file("in.wav"), dir.file("out.wav"), "--preset 'enhanced mix 1'");
    ASSERT_EQ(result.exitCode, 0) << result.err;
    Audio out;
    ASSERT_TRUE(readAudio(dir.file("out.wav"), out));
    EXPECT_EQ(out.sampleRate, 48000);
    EXPECT_EQ(out.channels, 2);
    EXPECT_EQ(out.format, SF_FORMAT_WAV | SF_FORMAT_PCM_24);
    EXPECT_EQ(out.frames(), 48000u);
    EXPECT_NE(result.out.find("balance meter:"), std::string::npos);
}

TEST_F(SpataraRender, BypassGivesBackTheInputSampleForSample)
{
    const Audio in = tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0.5);
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), in));
    ASSERT_EQ(render(dir.file("in.wav"), dir.file("out.wav"), "--preset 9 --param process=0").exitCode, 0);
    Audio out;
    ASSERT_TRUE(readAudio(dir.file("out.wav"), out));
    ASSERT_EQ(out.samples.size(), in.samples.size());
    for (std::size_t i = 0; i < in.samples.size(); ++i)
        ASSERT_EQ(static_cast<float>(out.samples[i]), static_cast<float>(in.samples[i])) << i;
}

TEST_F(SpataraRender, MonoFileBecomesStereoAndReadsAsMonoOnTheMeter)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(1, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 2.0)));
    Audio in; // as stored, 16 bits
    ASSERT_TRUE(readAudio(dir.file("in.wav"), in));
    const auto result = render(dir.file("in.wav"), dir.file("out.wav"), "--param process=0");
    ASSERT_EQ(result.exitCode, 0) << result.err;
    Audio out;
    ASSERT_TRUE(readAudio(dir.file("out.wav"), out));
    EXPECT_EQ(out.channels, 2);
    EXPECT_EQ(out.format, SF_FORMAT_WAV | SF_FORMAT_PCM_16);
    ASSERT_EQ(out.frames(), in.frames());
    for (std::size_t i = 0; i < in.frames(); ++i)
    {
        ASSERT_EQ(out.samples[2 * i], in.samples[i]) << i;
        ASSERT_EQ(out.samples[2 * i + 1], in.samples[i]) << i;
    }
    EXPECT_NE(result.out.find("balance meter: +0.500"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("\ncorrelation: +1.00\n"), std::string::npos) << result.out;
}

TEST_F(SpataraRender, DoublePrecisionRendersToo)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0.5)));
    ASSERT_EQ(render(dir.file("in.wav"), dir.file("float.wav"), "--preset 13").exitCode, 0);
    ASSERT_EQ(render(dir.file("in.wav"), dir.file("double.wav"), "--preset 13 --double --block 64").exitCode,
              0);
    Audio single, twice;
    ASSERT_TRUE(readAudio(dir.file("float.wav"), single));
    ASSERT_TRUE(readAudio(dir.file("double.wav"), twice));
    ASSERT_EQ(single.samples.size(), twice.samples.size());
    for (std::size_t i = 0; i < single.samples.size(); ++i)
        ASSERT_NEAR(single.samples[i], twice.samples[i], 1e-5) << i;
}

TEST_F(SpataraRender, MissingPluginIsRefused)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0.1)));
    const auto result = runCommand(shellQuote(kRender) + " " + shellQuote(dir.file("none.so")) + " " +
                                   shellQuote(dir.file("in.wav")) + " " + shellQuote(dir.file("out.wav")));
    expectRefusal(result, "cannot load");
}

TEST_F(SpataraRender, AFileThatIsNoPluginIsRefused)
{
    const auto result = runCommand(shellQuote(kRender) + " --info /bin/true");
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(lines(result.err), 1) << result.err;
}

TEST_F(SpataraRender, UnreadableInputIsRefused)
{
    std::ofstream(dir.file("in.wav")) << "this is not audio";
    expectRefusal(render(dir.file("in.wav"), dir.file("out.wav")), "cannot read");
}

TEST_F(SpataraRender, UnknownPresetIsRefused)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0.1)));
    expectRefusal(render(dir.file("in.wav"), dir.file("out.wav"), "--preset 'no such preset'"), "no preset");
    expectRefusal(render(dir.file("in.wav"), dir.file("out.wav"), "--preset 38"), "no preset");
}

TEST_F(SpataraRender, UnknownParameterIsRefused)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0.1)));
    expectRefusal(render(dir.file("in.wav"), dir.file("out.wav"), "--param loudness=0.5"), "no parameter");
}

TEST_F(SpataraRender, OutOfRangeValueIsRefused)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0.1)));
    expectRefusal(render(dir.file("in.wav"), dir.file("out.wav"), "--param depth=1.5"), "from 0 to 1");
}

TEST_F(SpataraRender, ChunkSavedChangedAndRestoredComesBackByteForByte)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0.2)));
    const auto first =
        render(dir.file("in.wav"), dir.file("out.wav"),
               "--preset 12 --param depth=0.3 --chunk-out " + shellQuote(dir.file("saved.chunk")));
    ASSERT_EQ(first.exitCode, 0) << first.err;
    const std::string saved = slurp(dir.file("saved.chunk"));
    ASSERT_EQ(saved.size(), 13729u);

    ASSERT_EQ(info("--preset 3 --chunk-out " + shellQuote(dir.file("other.chunk"))).exitCode, 0);
    EXPECT_NE(slurp(dir.file("other.chunk")), saved);

    const auto restored = info("--chunk-in " + shellQuote(dir.file("saved.chunk")) + " --chunk-out " +
                               shellQuote(dir.file("back.chunk")));
    ASSERT_EQ(restored.exitCode, 0) << restored.err;
    EXPECT_EQ(slurp(dir.file("back.chunk")), saved);
    EXPECT_NE(restored.out.find("depth = 30.0"), std::string::npos) << restored.out;
}

TEST_F(SpataraRender, RefusedChunkIsReportedInOneLine)
{
    std::ofstream(dir.file("bad.chunk"), std::ios::binary) << std::string(64, '\x42');
    const auto result = info("--chunk-in " + shellQuote(dir.file("bad.chunk")));
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(lines(result.err), 1) << result.err;
    EXPECT_NE(result.err.find("refused"), std::string::npos) << result.err;
}

TEST_F(SpataraRender, InfoShowsEverythingThePluginReports)
{
    const auto result = info();
    ASSERT_EQ(result.exitCode, 0);
    for (const char* expected :
         {"name:       ZEV Spatara", "product:    Simple Spatara", "unique id:  Qwsn",
          "category:   mastering", "inputs:     2", "outputs:    2", "parameters: 6",
          "  1 baseFreq = 265.00 [    Hz   ]", "  5 mode = Mode1", "  29 over heads", "  37 init"})
        EXPECT_NE(result.out.find(expected), std::string::npos) << expected;
}

TEST_F(SpataraRender, WritingOverItsOwnInputIsRefusedAndTheInputKept)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0.5)));
    std::filesystem::create_hard_link(dir.file("in.wav"), dir.file("hard.wav"));
    std::filesystem::create_symlink("in.wav", dir.file("soft.wav"));
    const std::string before = slurp(dir.file("in.wav"));
    for (const char* output : {"in.wav", "hard.wav", "soft.wav"})
    {
        const auto result = render(dir.file("in.wav"), dir.file(output));
        EXPECT_EQ(result.exitCode, 2) << output;
        EXPECT_EQ(lines(result.err), 1) << result.err;
        EXPECT_NE(result.err.find("is the input"), std::string::npos) << result.err;
        EXPECT_EQ(slurp(dir.file("in.wav")), before) << output;
    }
    EXPECT_TRUE(std::filesystem::is_symlink(dir.file("soft.wav")));
    EXPECT_EQ(std::filesystem::hard_link_count(dir.file("in.wav")), 2u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 3);
}

TEST_F(SpataraRender, NoFileItReadsIsWrittenOver)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0.5)));
    std::filesystem::copy_file(kPlugin, dir.file("plugin.so"));
    ASSERT_EQ(runCommand(shellQuote(kRender) + " --info " + shellQuote(dir.file("plugin.so")) +
                         " --chunk-out " + shellQuote(dir.file("state.chunk")))
                  .exitCode,
              0);
    const std::string audio = slurp(dir.file("in.wav"));
    const std::string plugin = slurp(dir.file("plugin.so"));
    const std::string chunk = slurp(dir.file("state.chunk"));
    const std::string render = shellQuote(kRender) + " " + shellQuote(dir.file("plugin.so")) + " " +
                               shellQuote(dir.file("in.wav")) + " ";
    for (const std::string& arguments :
         {shellQuote(dir.file("plugin.so")),
          shellQuote(dir.file("out.wav")) + " --chunk-out " + shellQuote(dir.file("in.wav")),
          shellQuote(dir.file("state.chunk")) + " --chunk-in " + shellQuote(dir.file("state.chunk"))})
    {
        const auto result = runCommand(render + arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments;
        EXPECT_EQ(lines(result.err), 1) << result.err;
        EXPECT_NE(result.err.find("would be overwritten"), std::string::npos) << result.err;
    }
    EXPECT_EQ(slurp(dir.file("in.wav")), audio);
    EXPECT_EQ(slurp(dir.file("plugin.so")), plugin);
    EXPECT_EQ(slurp(dir.file("state.chunk")), chunk);
    EXPECT_FALSE(std::filesystem::exists(dir.file("out.wav")));

    // The chunk saved over the one just restored is what a host does with its project.
    const auto same = runCommand(shellQuote(kRender) + " --info " + shellQuote(dir.file("plugin.so")) +
                                 " --chunk-in " + shellQuote(dir.file("state.chunk")) + " --chunk-out " +
                                 shellQuote(dir.file("state.chunk")));
    EXPECT_EQ(same.exitCode, 0) << same.err;
    EXPECT_EQ(slurp(dir.file("state.chunk")), chunk);
}

TEST_F(SpataraRender, AnInterruptedRenderLeavesNoHalfFileAndTheOlderOutputIntact)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 48000, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 90.0)));
    std::ofstream(dir.file("out.wav")) << "the older output";
    for (int signal : {SIGTERM, SIGINT, SIGHUP})
    {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0)
        {
            execl(kRender.c_str(), kRender.c_str(), kPlugin.c_str(), dir.file("in.wav").c_str(),
                  dir.file("out.wav").c_str(), static_cast<char*>(nullptr));
            _exit(127);
        }
        // Interrupted as soon as it has begun to write.
        bool writing = false;
        for (int waited = 0; !writing && waited < 10000; ++waited)
        {
            for (const auto& entry : std::filesystem::directory_iterator(dir.path()))
                writing = writing || entry.path().filename().string().rfind("out.wav.", 0) == 0;
            if (!writing) usleep(1000);
        }
        EXPECT_TRUE(writing);
        kill(child, signal);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal) << signal;
        EXPECT_EQ(slurp(dir.file("out.wav")), "the older output") << signal;
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.path()), {}), 2) << signal;
    }
}

TEST_F(SpataraRender, OutputsThatAreSymbolicLinksStayLinksAndTheirFilesKeepTheirMode)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(1, 44100, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 0.2)));
    std::filesystem::create_directories(dir.file("kept"));
    for (const char* name : {"kept/render.wav", "kept/state.chunk"})
    {
        std::ofstream(dir.file(name)) << "an older result";
        ::chmod(dir.file(name).c_str(), 0640);
    }
    std::filesystem::create_symlink("kept/render.wav", dir.file("out.wav"));
    std::filesystem::create_symlink(dir.file("kept/state.chunk"), dir.file("state.chunk"));

    const auto result =
        render(dir.file("in.wav"), dir.file("out.wav"), "--chunk-out " + shellQuote(dir.file("state.chunk")));
    ASSERT_EQ(result.exitCode, 0) << result.err;

    for (const char* link : {"out.wav", "state.chunk"})
        EXPECT_TRUE(std::filesystem::is_symlink(dir.file(link))) << link;
    Audio rendered;
    ASSERT_TRUE(readAudio(dir.file("kept/render.wav"), rendered));
    EXPECT_EQ(rendered.channels, 2);
    EXPECT_EQ(slurp(dir.file("kept/state.chunk")).size(), 13729u);
    for (const char* name : {"kept/render.wav", "kept/state.chunk"})
        EXPECT_EQ(std::filesystem::status(dir.file(name)).permissions(),
                  std::filesystem::perms::owner_read | std::filesystem::perms::owner_write |
                      std::filesystem::perms::group_read)
            << name;
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(dir.file("kept")), {}), 2);
}

TEST_F(SpataraRender, AChunkWhoseBankThePluginRefusesIsReportedInOneLine)
{
    ASSERT_EQ(info("--preset 3 --chunk-out " + shellQuote(dir.file("saved.chunk"))).exitCode, 0);
    std::string chunk = slurp(dir.file("saved.chunk"));
    ASSERT_EQ(chunk.size(), 13729u);
    // Preset 5's third value chunk claims a negative size: the plug-in takes the chunk's head, its bank
    // reader refuses the bank half-way and keeps the presets it had.
    const std::size_t sizeAt = 8 + 41 + 5 * 360 + 168 + 2 * 32 + 4;
    const unsigned char minusOne[4] = {0xff, 0xff, 0xff, 0xff};
    chunk.replace(sizeAt, 4, reinterpret_cast<const char*>(minusOne), 4);
    std::ofstream(dir.file("damaged.chunk"), std::ios::binary) << chunk;

    const auto result = info("--chunk-in " + shellQuote(dir.file("damaged.chunk")));
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(lines(result.err), 1) << result.err;
    EXPECT_NE(result.err.find("refused"), std::string::npos) << result.err;
}

TEST_F(SpataraRender, EveryUnitFormRendersAsItsNormalisedForm)
{
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 0.3)));
    const std::pair<const char*, const char*> forms[] = {
        {"depth=60%", "depth=0.6"},       {"baseFreq=265Hz", "baseFreq=0.5"},
        {"baseFreq=265", "baseFreq=0.5"}, {"wdth/emph=40%", "wdth/emph=0.4"},
        {"process=off", "process=0"},     {"process=On", "process=1"},
        {"phase=on", "phase=1"},          {"phase=off", "phase=0"},
        {"mode=Mode2", "mode=0.5"},       {"mode=2", "mode=0.5"},
        {"mode=mode3", "mode=1.0"},       {"mode=1", "mode=0"},
    };
    for (const auto& [unit, normalised] : forms)
    {
        // From a preset the form changes: "enhanced space 1" runs mode 1 with other values throughout.
        const std::string preset = "--preset 5 --param ";
        ASSERT_EQ(render(dir.file("in.wav"), dir.file("unit.wav"), preset + shellQuote(unit)).exitCode, 0)
            << unit;
        ASSERT_EQ(
            render(dir.file("in.wav"), dir.file("normalised.wav"), preset + shellQuote(normalised)).exitCode,
            0)
            << normalised;
        Audio a, b;
        ASSERT_TRUE(readAudio(dir.file("unit.wav"), a));
        ASSERT_TRUE(readAudio(dir.file("normalised.wav"), b));
        EXPECT_EQ(a.samples, b.samples) << unit << " against " << normalised;
    }
}

TEST_F(SpataraRender, ListPresetsPrintsTheThirtyEightNumbersAndNames)
{
    const auto result = runCommand(shellQuote(kRender) + " --list-presets " + shellQuote(kPlugin));
    ASSERT_EQ(result.exitCode, 0) << result.err;
    EXPECT_EQ(lines(result.out), 38) << result.out;
    EXPECT_EQ(result.out.substr(0, result.out.find('\n')), "0 init");
    EXPECT_NE(result.out.find("\n5 enhanced space 1\n"), std::string::npos) << result.out;
    // The same list --info shows under its programs, each line without the indent.
    const std::string shown = info().out;
    std::string listed;
    for (std::size_t at = shown.find("programs:\n") + 10; at < shown.size();)
    {
        const std::size_t end = shown.find('\n', at);
        listed += shown.substr(at + 2, end - at - 2) + "\n";
        at = end + 1;
    }
    EXPECT_EQ(result.out, listed);
}

TEST_F(SpataraRender, ABadArgumentPrintsOneLineAndExitsWithTwo)
{
    for (const char* arguments :
         {"--bogus", "only-one-file", "a b c --param depth", "a b c --param depth=lots",
          "a b c --param baseFreq=2000Hz", "a b c --param mode=7", "a b c --block 0", "a b c --preset"})
    {
        const auto result = runCommand(shellQuote(kRender) + " " + arguments);
        EXPECT_EQ(result.exitCode, 2) << arguments;
        EXPECT_EQ(lines(result.err), 1) << arguments << ": " << result.err;
        EXPECT_EQ(result.err.rfind("spatara-render: ", 0), 0u) << result.err;
        EXPECT_TRUE(result.err.size() > 13 && result.err.substr(result.err.size() - 13) == "; try --help\n")
            << result.err;
    }
}

TEST_F(SpataraRender, TheLastLinesGiveTheBalanceAndTheCorrelationOfTheOutput)
{
    // Two tones a fifth apart, one a channel: unrelated over a second.
    ASSERT_TRUE(writeAudio(dir.file("in.wav"), tone(2, 44100, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 1.0)));
    const auto result = render(dir.file("in.wav"), dir.file("out.wav"), "--param process=off");
    ASSERT_EQ(result.exitCode, 0) << result.err;
    const std::size_t balance = result.out.find("\nbalance meter: ");
    const std::size_t correlation = result.out.find("\ncorrelation: ");
    ASSERT_NE(balance, std::string::npos) << result.out;
    ASSERT_NE(correlation, std::string::npos) << result.out;
    EXPECT_GT(correlation, balance) << "the correlation comes last";
    EXPECT_EQ(result.out.find('\n', correlation + 1), result.out.size() - 1) << result.out;
    const std::string value = result.out.substr(correlation + 14, 5);
    EXPECT_TRUE(value[0] == '+' || value[0] == '-') << value;
    EXPECT_NEAR(std::stod(value), 0.0, 0.1) << value;
}
