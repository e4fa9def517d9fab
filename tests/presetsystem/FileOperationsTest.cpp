// Preset and bank files, defaults and memories, on real files and a real preferences file. The file
// dialog is the only thing replaced: the test answers it.
#include "CPresetSystemEditor.h"
#include "ImageBytes.h"
#include "RecordingHost.h"
#include "Spatara.h"
#include "TempDir.h"
#include "XPlatPrefs.h"

#include <csignal>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
constexpr std::int32_t kQwsn = CCONST('Q', 'w', 's', 'n');

std::string slurp(const std::string& file)
{
    std::ifstream in(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

void writeBytes(const std::string& file, const Bytes& bytes)
{
    std::ofstream out(file, std::ios::binary);
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

class FileOperations : public ::testing::Test
{
  protected:
    FileOperations()
    {
        setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
        effect = std::make_unique<Spatara>(host.callback());
        answerWith(files.file("none"));
    }

    CPresetSystemEditor& editor() { return *effect->presetEditor(); }

    // The next dialogs answer this path (or cancel with an empty one) and remember what they were asked.
    void answerWith(const std::string& path)
    {
        editor().setFileChooser(
            [this, path](const FileChoice& choice) -> std::optional<std::string>
            {
                asked = choice;
                if (path.empty()) return std::nullopt;
                return path;
            });
    }

    Bytes table()
    {
        Bytes all;
        for (int n = 0; n < kNumPresets; ++n)
        {
            const auto* p = reinterpret_cast<const char*>(&effect->preset(n));
            all.insert(all.end(), p, p + sizeof(PresetRecord));
        }
        return all;
    }

    // Files that a load must refuse: another plug-in's, a short one, an unknown type, a truncated bank
    // (and kFilesNotToLoad's missing one).
    void writeFilesNotToLoad()
    {
        Bytes foreign = editor().PresetToBuffer();
        putInt32(foreign, 0, CCONST('A', 'b', 'c', 'd'));
        writeBytes(files.file("foreign.zev"), foreign);
        writeBytes(files.file("short.zev"), Bytes{'Q', 'w', 's', 'n'});
        Bytes unknown = editor().PresetToBuffer();
        unknown[4] = 0x55;
        writeBytes(files.file("unknown.zev"), unknown);
        Bytes truncated = editor().BankToBuffer();
        truncated.resize(3000);
        writeBytes(files.file("truncated.zvb"), truncated);
    }
    // Saves the bank in a child process whose disk fills after half the image; answers whether it ran.
    bool saveBankOnADiskThatFillsHalfWay()
    {
        const pid_t child = fork();
        if (child < 0) return false;
        if (child == 0)
        {
            std::signal(SIGXFSZ, SIG_IGN);
            rlimit limit{6860, 6860};
            setrlimit(RLIMIT_FSIZE, &limit);
            editor().saveBank();
            _exit(0);
        }
        int status = 0;
        return waitpid(child, &status, 0) == child;
    }
    static constexpr const char* kFilesNotToLoad[] = {"foreign.zev", "short.zev", "unknown.zev",
                                                      "missing.zev", "truncated.zvb"};

    TempDir config;
    TempDir files;
    RecordingHost host;
    std::unique_ptr<Spatara> effect;
    FileChoice asked;
};
} // namespace

TEST_F(FileOperations, SavedPresetLoadsBackWithItsValuesAndName)
{
    effect->setPresetNo(5);
    char name[] = "my space";
    effect->setProgramName(name);
    effect->setParameter(0, 0.42f);
    answerWith(files.file("my.zev"));
    editor().savePreset();
    EXPECT_TRUE(asked.save);
    EXPECT_EQ(asked.title, "Save preset");
    EXPECT_EQ(asked.typeName, "ZEV Preset");
    EXPECT_EQ(asked.extension, "zev");
    ASSERT_EQ(slurp(files.file("my.zev")).size(), 401u);
    EXPECT_STREQ(editor().getPresetFileName(), "my.zev");
    EXPECT_EQ(std::string(editor().getPresetPath()), files.path() + "/");

    effect->setParameter(0, 0.9f);
    char other[] = "changed";
    effect->setProgramName(other);
    editor().loadPreset(false);
    EXPECT_FALSE(asked.save);
    EXPECT_EQ(asked.title, "Load preset");
    EXPECT_EQ(asked.directory, files.path() + "/");
    EXPECT_STREQ(effect->preset(5).name, "my space");
    EXPECT_EQ(effect->getParameter(0), 0.42f);
}

TEST_F(FileOperations, SavedBankLoadsBackAndEndsOnProgramZero)
{
    effect->setPresetNo(9);
    effect->setParameter(2, 0.77f);
    answerWith(files.file("live.zvb"));
    editor().saveBank();
    EXPECT_EQ(asked.title, "Save bank");
    EXPECT_EQ(asked.extension, "zvb");
    ASSERT_EQ(slurp(files.file("live.zvb")).size(), 13721u);
    const Bytes saved = table();

    for (int n = 0; n < kNumPresets; ++n)
        effect->preset(n).values[0] = 0.01f;
    effect->setPresetNo(17);
    editor().loadBank(false);
    EXPECT_EQ(asked.title, "Load bank");
    EXPECT_EQ(table(), saved);
    EXPECT_EQ(effect->getPresetNo(), 0) << "a loaded bank always ends on program 0";
    EXPECT_STREQ(editor().getBankFileName(), "live.zvb");
}

TEST_F(FileOperations, APresetOfTheOtherByteOrderIsRecognisedByItsIdentifier)
{
    effect->setPresetNo(21); // piano 1
    writeBytes(files.file("other.zev"), reversedImage(editor().PresetToBuffer()));
    effect->setPresetNo(3);
    answerWith(files.file("other.zev"));
    editor().loadPreset(false);
    EXPECT_STREQ(effect->preset(3).name, "piano 1");
    EXPECT_EQ(effect->preset(3).values[1], 0.24f);
}

TEST_F(FileOperations, TheReversedLoadTurnsTheByteOrderDecisionRound)
{
    effect->setPresetNo(21);
    // Fields in the other byte order behind an identifier in ours: only the reversed load reads it right.
    Bytes image = reversedImage(editor().PresetToBuffer());
    putInt32(image, 0, kQwsn);
    writeBytes(files.file("mixed.zev"), image);
    effect->setPresetNo(3);
    answerWith(files.file("mixed.zev"));

    const PresetRecord before = effect->preset(3);
    editor().loadPreset(false);
    EXPECT_EQ(std::memcmp(&before, &effect->preset(3), sizeof(before)), 0) << "read as native, it is refused";

    editor().loadPreset(true);
    EXPECT_EQ(asked.title, "Load preset (endian-reversed)");
    EXPECT_STREQ(effect->preset(3).name, "piano 1");
    EXPECT_EQ(effect->preset(3).values[0], 0.6f);
}

TEST_F(FileOperations, AnotherPluginsFileAShortFileAndAnUnknownTypeChangeNothing)
{
    writeFilesNotToLoad();
    const Bytes before = table();
    for (const char* file : kFilesNotToLoad)
    {
        answerWith(files.file(file));
        editor().loadPreset(false);
        editor().loadBank(false);
        EXPECT_EQ(table(), before) << file;
    }
}

TEST_F(FileOperations, ACancelledDialogChangesNothing)
{
    answerWith("");
    const Bytes before = table();
    editor().loadPreset(false);
    editor().savePreset();
    EXPECT_EQ(table(), before);
    EXPECT_STREQ(editor().getPresetFileName(), "");
    EXPECT_TRUE(std::filesystem::is_empty(files.path()));
}

TEST_F(FileOperations, OldPresetAndBankFilesLoad)
{
    Bytes oldPreset(5, 0x21);
    putInt32(oldPreset, 0, kQwsn);
    Bytes record(24 + 6 * 4, 0);
    std::strcpy(record.data(), "vintage");
    for (std::size_t j = 0; j < 6; ++j)
        putFloat(record, 24 + j * 4, 0.5f);
    oldPreset.insert(oldPreset.end(), record.begin(), record.end());
    writeBytes(files.file("old.zev"), oldPreset);
    effect->setPresetNo(2);
    answerWith(files.file("old.zev"));
    editor().loadPreset(false);
    EXPECT_STREQ(effect->preset(2).name, "vintage");
    EXPECT_EQ(effect->getParameter(1), 0.5f);

    Bytes oldBank(5, 0x37);
    putInt32(oldBank, 0, kQwsn);
    for (int n = 0; n < kNumPresets; ++n)
    {
        std::snprintf(record.data(), 24, "vintage %d", n);
        oldBank.insert(oldBank.end(), record.begin(), record.end());
    }
    writeBytes(files.file("old.zvb"), oldBank);
    answerWith(files.file("old.zvb"));
    editor().loadBank(false);
    EXPECT_STREQ(effect->preset(37).name, "vintage 37");
    EXPECT_EQ(effect->getPresetNo(), 0);
}

TEST_F(FileOperations, ASaveThatFailsHalfWayLeavesThePreviousFile)
{
    answerWith(files.file("keep.zvb"));
    editor().saveBank();
    const std::string before = slurp(files.file("keep.zvb"));
    ASSERT_EQ(before.size(), 13721u);
    effect->setPresetNo(4);
    char name[] = "never saved";
    effect->setProgramName(name);

    ASSERT_TRUE(saveBankOnADiskThatFillsHalfWay());
    EXPECT_EQ(slurp(files.file("keep.zvb")), before);
    for (const auto& entry : std::filesystem::directory_iterator(files.path()))
        EXPECT_EQ(entry.path().filename(), "keep.zvb");
}

TEST_F(FileOperations, MemoriesStoreAndRecallTheCurrentPreset)
{
    effect->setPresetNo(13); // tight 1
    editor().storeA();
    effect->setPresetNo(26); // bas 2
    editor().storeB();

    effect->setPresetNo(0);
    editor().recallA();
    EXPECT_STREQ(effect->preset(0).name, "tight 1");
    EXPECT_EQ(effect->getParameter(1), 0.75f);
    editor().recallB();
    EXPECT_STREQ(effect->preset(0).name, "bas 2");
    EXPECT_EQ(effect->getParameter(2), 0.37f);
}

TEST_F(FileOperations, RecallOfAnEmptyMemoryDoesNothing)
{
    const Bytes before = table();
    editor().recallA();
    editor().recallB();
    EXPECT_EQ(table(), before);
}

TEST_F(FileOperations, AFiveByteMemoryPassesTheLengthTestAndLoadsNothing)
{
    unsigned char five[5] = {0, 0, 0, 0, 0x22};
    const std::int32_t id = kQwsn;
    std::memcpy(five, &id, 4);
    XPlatSetPrefData("MemoAPreset", five, sizeof(five));
    ASSERT_TRUE(XPlatSynchronizePrefs());
    effect->setPresetNo(6);
    const Bytes before = table();
    editor().recallA();
    EXPECT_EQ(table(), before);
}

TEST_F(FileOperations, LongRememberedPathsAreNotRestored)
{
    XPlatSetPrefString("CurrDir", ("/" + std::string(255, 'd')).c_str());
    XPlatSetPrefString("CurrBank", "bank.zvb");
    XPlatSetPrefString("CurrPreset", std::string(300, 'p').c_str());
    ASSERT_TRUE(XPlatSynchronizePrefs());
    editor().recallPathsAndFilenames();
    EXPECT_STREQ(editor().getPresetPath(), "");
    EXPECT_STREQ(editor().getBankFileName(), "bank.zvb");
    EXPECT_STREQ(editor().getPresetFileName(), "");
}

TEST_F(FileOperations, PathsAreRememberedWhenTheEditorGoesAway)
{
    answerWith(files.file("remembered.zev"));
    editor().savePreset();
    effect.reset(); // the editor's destructor stores the paths
    effect = std::make_unique<Spatara>(host.callback());
    EXPECT_STREQ(editor().getPresetFileName(), "remembered.zev");
    EXPECT_EQ(std::string(editor().getPresetPath()), files.path() + "/");
}

TEST_F(FileOperations, ADefaultBankIsLoadedByEveryNewInstance)
{
    char name[] = "studio default";
    effect->setPresetNo(0);
    effect->setProgramName(name);
    effect->setPresetNo(12);
    char twelve[] = "my twelve";
    effect->setProgramName(twelve);
    editor().saveDefaultBank();

    effect = std::make_unique<Spatara>(host.callback());
    EXPECT_STREQ(effect->preset(0).name, "studio default");
    EXPECT_STREQ(effect->preset(12).name, "my twelve");
    EXPECT_EQ(effect->getPresetNo(), 0);

    editor().resetDefaultBank();
    effect = std::make_unique<Spatara>(host.callback());
    EXPECT_STREQ(effect->preset(0).name, "init");
    EXPECT_STREQ(effect->preset(12).name, "room space 4");
}

TEST_F(FileOperations, ADefaultPresetReplacesProgramZeroAtStart)
{
    effect->setPresetNo(9); // room space 1
    editor().saveDefaultPreset();
    effect = std::make_unique<Spatara>(host.callback());
    EXPECT_STREQ(effect->preset(0).name, "room space 1");
    EXPECT_EQ(effect->getParameter(5), 1.0f);
    EXPECT_STREQ(effect->preset(9).name, "room space 1");
    editor().resetDefaultPreset();
    effect = std::make_unique<Spatara>(host.callback());
    EXPECT_STREQ(effect->preset(0).name, "init");
}

TEST_F(FileOperations, AStrayLineInThePreferencesLosesNoKeyWhenAnInstanceCloses)
{
    effect->setPresetNo(9);
    editor().saveDefaultBank();
    editor().saveDefaultPreset();
    editor().storeA();
    editor().storeB();
    const std::string file = config.file("zev-spatara/preferences");
    std::ofstream(file, std::ios::app) << "a line some other program left here\n";

    effect.reset(); // the closing instance writes the remembered folder and names
    for (const char* key : {"DefaultBank", "DefaultPreset", "MemoAPreset", "MemoBPreset"})
    {
        std::vector<unsigned char> value;
        EXPECT_TRUE(XPlatGetPrefData(key, value)) << key;
    }
    EXPECT_NE(slurp(file).find("a line some other program left here\n"), std::string::npos);
}

// ---- refused loads

TEST_F(FileOperations, ARefusedBankLoadKeepsTheCurrentProgram)
{
    writeFilesNotToLoad();
    effect->setPresetNo(17);
    for (const char* file : kFilesNotToLoad)
    {
        answerWith(files.file(file));
        editor().loadBank(false);
        EXPECT_EQ(effect->getPresetNo(), 17) << file;
    }
}

// ---- what a load reads

namespace
{
// Runs the load in a child process that gets a few seconds: a load that blocks is killed and reported.
bool loadFinishesInTime(CPresetSystemEditor& editor)
{
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0)
    {
        alarm(5);
        editor.loadPreset(false);
        editor.loadBank(false);
        _exit(0);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
} // namespace

TEST_F(FileOperations, AHugeSparseFileIsRefusedBeforeItIsRead)
{
    Bytes image = editor().PresetToBuffer();
    writeBytes(files.file("huge.zev"), image);
    ASSERT_EQ(::truncate(files.file("huge.zev").c_str(), off_t{1} << 40), 0);
    answerWith(files.file("huge.zev"));
    const Bytes before = table();
    EXPECT_NO_THROW(editor().loadPreset(false));
    EXPECT_NO_THROW(editor().loadBank(false));
    EXPECT_EQ(table(), before);
}

TEST_F(FileOperations, AFileLargerThanOneMebibyteIsRefused)
{
    effect->setPresetNo(21);
    Bytes image = editor().PresetToBuffer();
    image.resize(1024 * 1024 + 1, 0);
    writeBytes(files.file("padded.zev"), image);
    effect->setPresetNo(3);
    const PresetRecord before = effect->preset(3);
    answerWith(files.file("padded.zev"));
    editor().loadPreset(false);
    EXPECT_EQ(std::memcmp(&before, &effect->preset(3), sizeof(before)), 0);

    // One byte less is still a file of ours.
    image.resize(1024 * 1024);
    writeBytes(files.file("padded.zev"), image);
    editor().loadPreset(false);
    EXPECT_STREQ(effect->preset(3).name, "piano 1");
}

TEST_F(FileOperations, AFifoADeviceOrAFolderIsRefusedWithoutBlocking)
{
    ASSERT_EQ(::mkfifo(files.file("pipe.zev").c_str(), 0600), 0);
    std::filesystem::create_directory(files.file("folder.zev"));
    const Bytes before = table();
    for (const std::string& path :
         {files.file("pipe.zev"), std::string("/dev/zero"), files.file("folder.zev")})
    {
        answerWith(path);
        EXPECT_TRUE(loadFinishesInTime(editor())) << path;
        EXPECT_EQ(table(), before) << path;
    }
}

// ---- what a save keeps

namespace
{
// Runs the save in a child process with the rights of the unprivileged user "nobody" (tests run as root
// ignore folder permissions); answers whether the child ran to its end.
template <typename Save> bool saveAsNobody(Save save)
{
    const pid_t child = fork();
    if (child < 0) return false;
    if (child == 0)
    {
        if (setgid(65534) != 0 || setuid(65534) != 0) _exit(3);
        save();
        _exit(0);
    }
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

mode_t modeOf(const std::string& path)
{
    struct stat status
    {
    };
    ::stat(path.c_str(), &status);
    return status.st_mode & 07777;
}
} // namespace

TEST_F(FileOperations, SavingThroughASymbolicLinkWritesItsTargetAndKeepsTheLink)
{
    std::filesystem::create_directory(files.file("elsewhere"));
    writeBytes(files.file("elsewhere/real.zev"), Bytes{'o', 'l', 'd'});
    std::filesystem::create_symlink("elsewhere/real.zev", files.file("link.zev"));
    effect->setPresetNo(21);
    answerWith(files.file("link.zev"));
    editor().savePreset();
    EXPECT_TRUE(std::filesystem::is_symlink(files.file("link.zev")));
    EXPECT_EQ(slurp(files.file("elsewhere/real.zev")).size(), 401u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(files.file("elsewhere")), {}), 1);
}

TEST_F(FileOperations, SavingKeepsHardLinksAndTheFilesMode)
{
    writeBytes(files.file("mine.zvb"), Bytes{'o', 'l', 'd'});
    ::chmod(files.file("mine.zvb").c_str(), 0640);
    std::filesystem::create_hard_link(files.file("mine.zvb"), files.file("also.zvb"));
    answerWith(files.file("mine.zvb"));
    editor().saveBank();
    EXPECT_EQ(std::filesystem::hard_link_count(files.file("mine.zvb")), 2u);
    EXPECT_EQ(slurp(files.file("also.zvb")).size(), 13721u);
    EXPECT_EQ(modeOf(files.file("mine.zvb")), 0640u);
}

TEST_F(FileOperations, SavingOverAnotherUsersFileKeepsItsOwnerAndMode)
{
    if (geteuid() != 0) GTEST_SKIP() << "only root can save over another user's file";
    writeBytes(files.file("theirs.zev"), Bytes{'o', 'l', 'd'});
    ASSERT_EQ(::chown(files.file("theirs.zev").c_str(), 65534, 65534), 0);
    ::chmod(files.file("theirs.zev").c_str(), 0664);
    answerWith(files.file("theirs.zev"));
    editor().savePreset();
    struct stat status
    {
    };
    ASSERT_EQ(::stat(files.file("theirs.zev").c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 65534u);
    EXPECT_EQ(status.st_gid, 65534u);
    EXPECT_EQ(status.st_mode & 07777, 0664u);
    EXPECT_EQ(status.st_size, 401);
}

TEST_F(FileOperations, AWritableFileInAFolderTheUserCannotWriteIsStillSaved)
{
    if (geteuid() != 0) GTEST_SKIP() << "needs root to act as another user";
    std::filesystem::create_directory(files.file("shared"));
    writeBytes(files.file("shared/mine.zev"), Bytes{'o', 'l', 'd'});
    ASSERT_EQ(::chown(files.file("shared/mine.zev").c_str(), 65534, 65534), 0);
    ::chmod(files.file("shared").c_str(), 0755); // root's folder: nobody may not add or rename files in it
    ::chmod(files.path().c_str(), 0755);
    answerWith(files.file("shared/mine.zev"));
    effect->setPresetNo(21);
    EXPECT_TRUE(saveAsNobody([this] { editor().savePreset(); }));
    EXPECT_EQ(slurp(files.file("shared/mine.zev")).size(), 401u);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(files.file("shared")), {}), 1);
}

TEST_F(FileOperations, ASaveInPlaceThatFailsHalfWayPutsThePreviousFileBack)
{
    const Bytes old(3000, 'x');
    writeBytes(files.file("linked.zvb"), old);
    std::filesystem::create_hard_link(files.file("linked.zvb"), files.file("other.zvb"));
    answerWith(files.file("linked.zvb"));
    ASSERT_TRUE(saveBankOnADiskThatFillsHalfWay());
    EXPECT_EQ(slurp(files.file("other.zvb")), std::string(old.begin(), old.end()));
    EXPECT_EQ(std::filesystem::hard_link_count(files.file("linked.zvb")), 2u);
}
