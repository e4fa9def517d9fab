#include "Base64.h"
#include "CPreferencesDocument.h"
#include "CPreferencesStore.h"
#include "PreferencesFormat.h"
#include "TempDir.h"
#include "XPlatPrefs.h"

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
std::string slurp(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

std::vector<unsigned char> bytes(std::initializer_list<int> values)
{
    std::vector<unsigned char> out;
    for (int v : values)
        out.push_back(static_cast<unsigned char>(v));
    return out;
}

class PreferencesStore : public ::testing::Test
{
  protected:
    std::string path() const { return dir.file("zev-spatara/preferences"); }
    // Leaves a preferences file as another program or a person may have left it.
    void writePreferences(const std::string& text) const
    {
        std::filesystem::create_directories(dir.file("zev-spatara"));
        std::ofstream(path(), std::ios::binary) << text;
    }
    TempDir dir;
};
} // namespace

TEST_F(PreferencesStore, StringsAndBinaryValuesSurviveARoundTrip)
{
    const auto binary = bytes({0, 1, 2, 0, 255, 10, 13, 0x22});
    {
        CPreferencesStore store(path());
        store.setString("CurrDir", "/home/me/presets with \"quotes\" and \\ and\nnew line/");
        store.setData("DefaultPreset", binary);
        ASSERT_TRUE(store.synchronize());
    }
    CPreferencesStore reader(path());
    EXPECT_EQ(reader.getString("CurrDir"), "/home/me/presets with \"quotes\" and \\ and\nnew line/");
    EXPECT_EQ(reader.getData("DefaultPreset"), binary);
    EXPECT_FALSE(reader.getString("DefaultPreset")) << "a binary value is not a string";
    EXPECT_FALSE(reader.getData("Missing"));
}

TEST_F(PreferencesStore, TheFileIsReadableText)
{
    CPreferencesStore store(path());
    store.setString("CurrBank", "live.zvb");
    store.setData("MemoAPreset", bytes({1, 2, 3}));
    ASSERT_TRUE(store.synchronize());
    const std::string text = slurp(path());
    EXPECT_NE(text.find("CurrBank = \"live.zvb\"\n"), std::string::npos) << text;
    EXPECT_NE(text.find("MemoAPreset = base64:AQID\n"), std::string::npos) << text;
}

TEST_F(PreferencesStore, RemovedKeysAreGone)
{
    CPreferencesStore store(path());
    store.setData("DefaultBank", bytes({9, 9, 9, 9, 9}));
    ASSERT_TRUE(store.synchronize());
    store.remove("DefaultBank");
    EXPECT_FALSE(store.getData("DefaultBank")) << "pending removal already hides it";
    ASSERT_TRUE(store.synchronize());
    EXPECT_FALSE(CPreferencesStore(path()).getData("DefaultBank"));
}

TEST_F(PreferencesStore, ADamagedFileIsIgnoredWithOneLineAndKeptUntilAChange)
{
    const std::string damaged("CurrDir = \"/ok/\"\n\0\x01 not text\n", 27);
    writePreferences(damaged);

    CPreferencesStore store(path());
    testing::internal::CaptureStderr();
    EXPECT_FALSE(store.getString("CurrDir"));
    EXPECT_FALSE(store.getString("CurrBank"));
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "ZEV Spatara: ignoring unreadable preferences file " + path() + " (not text)\n");

    EXPECT_TRUE(store.synchronize());
    EXPECT_EQ(slurp(path()), damaged) << "nothing changed, so nothing is written";

    store.setString("CurrPreset", "warm.zev");
    testing::internal::CaptureStderr();
    ASSERT_TRUE(store.synchronize());
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(CPreferencesStore(path()).getString("CurrPreset"), "warm.zev");
}

namespace
{
// A file as a person or another program may leave it: a comment, Windows line endings, no blanks around
// "=", trailing blanks, and a line the store does not know.
const std::string kHandEditedFile = "# my notes\r\n"
                                    "CurrDir=\"/x/\"\r\n"
                                    "CurrBank = \"live.zvb\"   \r\n"
                                    "DefaultBank=base64:AQID\r\n"
                                    "this line is not a preference\r\n"
                                    "MemoAPreset = base64:BAUG \t\r\n";
} // namespace

TEST_F(PreferencesStore, EveryKeyIsReadFromCrlfLinesWithoutBlanksOrWithTrailingBlanks)
{
    writePreferences(kHandEditedFile);
    CPreferencesStore store(path());
    testing::internal::CaptureStderr();
    EXPECT_EQ(store.getString("CurrDir"), "/x/");
    EXPECT_EQ(store.getString("CurrBank"), "live.zvb");
    EXPECT_EQ(store.getData("DefaultBank"), bytes({1, 2, 3}));
    EXPECT_EQ(store.getData("MemoAPreset"), bytes({4, 5, 6}));
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "") << "a line it does not know is no damage";
}

TEST_F(PreferencesStore, WritingBackKeepsEveryLineAndKeyThatWasNotChanged)
{
    writePreferences(kHandEditedFile);
    CPreferencesStore store(path());
    store.setString("CurrBank", "other.zvb");
    store.setString("CurrPreset", "warm.zev");
    ASSERT_TRUE(store.synchronize());
    EXPECT_EQ(slurp(path()), "# my notes\r\n"
                             "CurrDir=\"/x/\"\r\n"
                             "CurrBank = \"other.zvb\"\r\n"
                             "DefaultBank=base64:AQID\r\n"
                             "this line is not a preference\r\n"
                             "MemoAPreset = base64:BAUG \t\r\n"
                             "CurrPreset = \"warm.zev\"\r\n");
    store.remove("DefaultBank");
    ASSERT_TRUE(store.synchronize());
    CPreferencesStore reader(path());
    EXPECT_FALSE(reader.getData("DefaultBank"));
    EXPECT_EQ(reader.getData("MemoAPreset"), bytes({4, 5, 6}));
    EXPECT_NE(slurp(path()).find("this line is not a preference\r\n"), std::string::npos);
}

TEST_F(PreferencesStore, APreferencesFileThatIsASymbolicLinkStaysALinkAndKeepsItsMode)
{
    // Kept in a folder of the user's own and linked into place, as people keep their settings.
    const std::string kept = dir.file("dotfiles/spatara-preferences");
    std::filesystem::create_directories(dir.file("dotfiles"));
    std::ofstream(kept, std::ios::binary) << "CurrDir = \"/x/\"\n";
    ::chmod(kept.c_str(), 0640);
    std::filesystem::create_directories(dir.file("zev-spatara"));
    std::filesystem::create_symlink(kept, path());

    CPreferencesStore store(path());
    store.setString("CurrBank", "live.zvb");
    ASSERT_TRUE(store.synchronize());

    EXPECT_TRUE(std::filesystem::is_symlink(path()));
    EXPECT_EQ(slurp(kept), "CurrDir = \"/x/\"\nCurrBank = \"live.zvb\"\n");
    struct stat status = {};
    ASSERT_EQ(::stat(kept.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST_F(PreferencesStore, AFileThatCannotBeReadIsCopiedAsideBeforeAnythingIsWrittenOverIt)
{
    const std::string unreadable("DefaultBank = base64:AQID\n\0\x01\x02\xff binary\n", 38);
    writePreferences(unreadable);

    CPreferencesStore store(path());
    testing::internal::CaptureStderr();
    EXPECT_FALSE(store.getData("DefaultBank"));
    testing::internal::GetCapturedStderr();
    store.setString("CurrPreset", "warm.zev");
    testing::internal::CaptureStderr();
    ASSERT_TRUE(store.synchronize());
    const std::string err = testing::internal::GetCapturedStderr();
    EXPECT_EQ(err, "ZEV Spatara: the unreadable preferences file was kept as " + path() + ".damaged\n");
    EXPECT_EQ(slurp(path() + ".damaged"), unreadable);
    EXPECT_EQ(CPreferencesStore(path()).getString("CurrPreset"), "warm.zev");
}

TEST_F(PreferencesStore, StringsOf256CharactersOrMoreAreNotRestored)
{
    setenv("XDG_CONFIG_HOME", dir.path().c_str(), 1);
    XPlatSetPrefString("CurrDir", std::string(255, 'd').c_str());
    XPlatSetPrefString("CurrBank", std::string(256, 'b').c_str());
    ASSERT_TRUE(XPlatSynchronizePrefs());
    char out[kPrefStringSize + 8] = "before";
    EXPECT_FALSE(XPlatGetPrefString("CurrBank", out));
    EXPECT_STREQ(out, "before");
    EXPECT_TRUE(XPlatGetPrefString("CurrDir", out));
    EXPECT_EQ(std::string(out), std::string(255, 'd'));
    EXPECT_FALSE(XPlatGetPrefString("NoSuchKey", out));
}

TEST_F(PreferencesStore, TwoProcessesWritingAtOnceLoseNoKeys)
{
    constexpr int kRounds = 60;
    pid_t children[2];
    for (int p = 0; p < 2; ++p)
    {
        children[p] = fork();
        ASSERT_GE(children[p], 0);
        if (children[p] == 0)
        {
            CPreferencesStore store(path());
            for (int i = 0; i < kRounds; ++i)
            {
                store.setString("p" + std::to_string(p) + "_" + std::to_string(i), std::to_string(i));
                store.setData("shared" + std::to_string(p),
                              std::vector<unsigned char>(static_cast<std::size_t>(i)));
                if (!store.synchronize()) _exit(1);
            }
            _exit(0);
        }
    }
    for (pid_t child : children)
    {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    }
    CPreferencesStore reader(path());
    for (int p = 0; p < 2; ++p)
    {
        for (int i = 0; i < kRounds; ++i)
            EXPECT_EQ(reader.getString("p" + std::to_string(p) + "_" + std::to_string(i)), std::to_string(i));
        EXPECT_EQ(reader.getData("shared" + std::to_string(p))->size(),
                  static_cast<std::size_t>(kRounds - 1));
    }
}

TEST_F(PreferencesStore, AWriteThatFailsHalfWayLeavesThePreviousFile)
{
    {
        CPreferencesStore store(path());
        store.setString("CurrDir", "/kept/");
        ASSERT_TRUE(store.synchronize());
    }
    const std::string before = slurp(path());
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0)
    {
        // The disk "fills up" after a few hundred bytes of the new file.
        std::signal(SIGXFSZ, SIG_IGN);
        rlimit limit{300, 300};
        setrlimit(RLIMIT_FSIZE, &limit);
        CPreferencesStore store(path());
        store.setData("DefaultBank", std::vector<unsigned char>(13721, 0x5a));
        _exit(store.synchronize() ? 1 : 0);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0) << "the failed write is reported";
    EXPECT_EQ(slurp(path()), before);
    for (const auto& entry : std::filesystem::directory_iterator(dir.file("zev-spatara")))
        EXPECT_EQ(entry.path().filename().string().find(".tmp"), std::string::npos) << entry.path();
}

TEST_F(PreferencesStore, AnotherProcessHoldingTheLockTooLongKeepsTheChangesPending)
{
    std::filesystem::create_directories(dir.file("zev-spatara"));
    int locked[2];
    ASSERT_EQ(pipe(locked), 0);
    const pid_t holder = fork();
    ASSERT_GE(holder, 0);
    if (holder == 0)
    {
        const int fd = open((path() + ".lock").c_str(), O_RDWR | O_CREAT, 0600);
        flock(fd, LOCK_EX);
        (void)!write(locked[1], "x", 1);
        pause(); // a host that hangs while it holds the lock
        _exit(0);
    }
    char ready = 0;
    ASSERT_EQ(read(locked[0], &ready, 1), 1);
    CPreferencesStore store(path());
    store.setString("CurrDir", "/waits/");
    const auto start = std::chrono::steady_clock::now();
    EXPECT_FALSE(store.synchronize());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
    EXPECT_EQ(store.getString("CurrDir"), "/waits/") << "the change is still pending";
    kill(holder, SIGKILL);
    waitpid(holder, nullptr, 0);
    close(locked[0]);
    close(locked[1]);
    EXPECT_TRUE(store.synchronize()) << "and lands once the lock is free";
    EXPECT_EQ(CPreferencesStore(path()).getString("CurrDir"), "/waits/");
}

TEST(PreferencesFormat, ReadsWhatALineHoldsAndNothingMore)
{
    EXPECT_EQ(spatara::parsePreferenceLine("key = unquoted")->value,
              PreferenceValue(std::string("unquoted")));
    EXPECT_EQ(spatara::parsePreferenceLine("key=\"x\" \t\r")->value, PreferenceValue(std::string("x")));
    const auto badBase64 = spatara::parsePreferenceLine("key = base64:A");
    ASSERT_TRUE(badBase64);
    EXPECT_EQ(badBase64->key, "key");
    EXPECT_FALSE(badBase64->value) << "the key is known, its value is not";
    EXPECT_FALSE(spatara::parsePreferenceLine("k = \"a\"b\"")->value);
    EXPECT_FALSE(spatara::parsePreferenceLine("bad key = \"x\""));
    EXPECT_FALSE(spatara::parsePreferenceLine("# key = \"x\""));
    EXPECT_FALSE(spatara::parsePreferenceLine("no separator"));
    EXPECT_FALSE(spatara::parsePreferenceLine("   "));
}

TEST(PreferencesDocument, TheFirstReadableLineOfAKeyAnswersAndSettingItLeavesOneLine)
{
    CPreferencesDocument document("k = base64:A\nk = \"x\"\nk = \"y\"\nother = \"o\"");
    EXPECT_EQ(document.get("k"), PreferenceValue(std::string("x")));
    document.set("k", std::string("z"));
    EXPECT_EQ(document.text(), "k = \"z\"\nother = \"o\"");
    document.set("new", std::string("n"));
    EXPECT_EQ(document.text(), "k = \"z\"\nother = \"o\"\nnew = \"n\"\n");

    CPreferencesDocument endsInCarriageReturn("a = \"1\"\r");
    endsInCarriageReturn.set("b", std::string("2"));
    EXPECT_EQ(CPreferencesDocument(endsInCarriageReturn.text()).get("b"), PreferenceValue(std::string("2")));
}

TEST(PreferencesDocument, WritesWhatItReads)
{
    CPreferencesDocument document;
    document.set("A", std::string("x \\ \" \n y"));
    document.set("B", bytes({0, 255, 128}));
    document.set("C", std::vector<unsigned char>());
    const CPreferencesDocument again(document.text());
    EXPECT_EQ(again.get("A"), PreferenceValue(std::string("x \\ \" \n y")));
    EXPECT_EQ(again.get("B"), PreferenceValue(bytes({0, 255, 128})));
    EXPECT_EQ(again.get("C"), PreferenceValue(std::vector<unsigned char>()));
    EXPECT_EQ(again.text(), document.text());
}

TEST(Base64, EncodesAndDecodesWithPadding)
{
    EXPECT_EQ(spatara::base64Encode(bytes({'M', 'a', 'n'})), "TWFu");
    EXPECT_EQ(spatara::base64Encode(bytes({'M', 'a'})), "TWE=");
    EXPECT_EQ(spatara::base64Encode(bytes({'M'})), "TQ==");
    EXPECT_EQ(spatara::base64Decode("TWE="), bytes({'M', 'a'}));
    EXPECT_EQ(spatara::base64Decode("TQ=="), bytes({'M'}));
    EXPECT_FALSE(spatara::base64Decode("TQ="));
    EXPECT_FALSE(spatara::base64Decode("T=Q="));
    EXPECT_FALSE(spatara::base64Decode("TQ==TQ=="));
    EXPECT_FALSE(spatara::base64Decode("T*Q="));
}
