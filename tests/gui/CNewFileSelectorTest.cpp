#include "CNewFileSelector.h"
#include "platform/PlatformFileDialog.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace
{
// Puts a directory holding fake dialog programs first on PATH for the test's duration.
class FakeDialogPath
{
  public:
    FakeDialogPath()
        : directory(std::filesystem::temp_directory_path() / ("spatara-dialogs-" + std::to_string(getpid())))
    {
        std::filesystem::create_directories(directory);
        oldPath = std::getenv("PATH") ? std::getenv("PATH") : "";
    }
    ~FakeDialogPath()
    {
        setenv("PATH", oldPath.c_str(), 1);
        std::filesystem::remove_all(directory);
    }
    // A program named name that records its arguments and behaves as the script says.
    void addProgram(const std::string& name, const std::string& body)
    {
        const auto path = directory / name;
        std::ofstream(path) << "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" << (directory / "args").string()
                            << "'\n"
                            << body << "\n";
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }
    // Only our directory on PATH (the scripts use shell built-ins only).
    void useOnly() { setenv("PATH", directory.string().c_str(), 1); }
    std::string arguments() const
    {
        std::ifstream in(directory / "args");
        return std::string(std::istreambuf_iterator<char>(in), {});
    }

  private:
    std::filesystem::path directory;
    std::string oldPath;
};
} // namespace

TEST(PlatformFileDialog, ZenitySaveCommandCarriesTitleFolderNameAndFilter)
{
    PlatformFileDialogRequest request;
    request.save = true;
    request.title = "Save Preset";
    request.initialDirectory = "/home/u/presets";
    request.defaultName = "init.zev";
    request.filters = {{"ZEV Preset", "zev"}};
    const auto args = PlatformFileDialog::commandLine(PlatformFileDialog::Program::zenity, request);
    EXPECT_EQ(args, (std::vector<std::string>{"zenity", "--file-selection", "--save", "--confirm-overwrite",
                                              "--title=Save Preset", "--filename=/home/u/presets/init.zev",
                                              "--file-filter=ZEV Preset | *.zev"}));
}

TEST(PlatformFileDialog, AQuestionAsksYesOrNoWithTheSameProgram)
{
    PlatformFileDialogRequest request;
    request.title = "Save preset";
    request.question = "\"mine.zev\" already exists. Do you want to replace it?";
    EXPECT_EQ(PlatformFileDialog::commandLine(PlatformFileDialog::Program::zenity, request),
              (std::vector<std::string>{"zenity", "--question", "--no-markup", "--title=Save preset",
                                        "--text=\"mine.zev\" already exists. Do you want to replace it?"}));
    EXPECT_EQ(PlatformFileDialog::commandLine(PlatformFileDialog::Program::kdialog, request),
              (std::vector<std::string>{"kdialog", "--title", "Save preset", "--yesno",
                                        "\"mine.zev\" already exists. Do you want to replace it?"}));
}

TEST(PlatformFileDialog, KdialogOpenCommandCarriesFolderAndFilter)
{
    PlatformFileDialogRequest request;
    request.title = "Load Bank";
    request.initialDirectory = "/tmp/";
    request.filters = {{"ZEV Bank", "zvb"}};
    const auto args = PlatformFileDialog::commandLine(PlatformFileDialog::Program::kdialog, request);
    EXPECT_EQ(args, (std::vector<std::string>{"kdialog", "--title", "Load Bank", "--getopenfilename", "/tmp/",
                                              "*.zvb|ZEV Bank"}));
}

TEST(CNewFileSelector, ChosenFileComesFromTheDialogProgram)
{
    FakeDialogPath fake;
    fake.addProgram("zenity", "echo /chosen/file.zev");
    fake.useOnly();
    CNewFileSelector* selector = CNewFileSelector::create(nullptr, CNewFileSelector::kSelectSaveFile);
    selector->setTitle("Save Preset");
    selector->setInitialDirectory("/somewhere");
    selector->setDefaultSaveName("name.zev");
    selector->setDefaultExtension(CFileExtension("ZEV Preset", "zev"));
    ASSERT_TRUE(selector->runModal());
    EXPECT_EQ(selector->getNumSelectedFiles(), 1);
    EXPECT_STREQ(selector->getSelectedFile(0), "/chosen/file.zev");
    EXPECT_EQ(selector->getSelectedFile(1), nullptr);
    EXPECT_EQ(selector->getLastRoute(), CNewFileSelector::Route::dialogProgram);
    EXPECT_NE(fake.arguments().find("--filename=/somewhere/name.zev"), std::string::npos);
    selector->forget();
}

TEST(CNewFileSelector, CancelledDialogSelectsNothing)
{
    FakeDialogPath fake;
    fake.addProgram("zenity", "exit 1");
    fake.useOnly();
    CNewFileSelector* selector = CNewFileSelector::create(nullptr, CNewFileSelector::kSelectFile);
    EXPECT_FALSE(selector->runModal());
    EXPECT_EQ(selector->getNumSelectedFiles(), 0);
    EXPECT_EQ(selector->getLastRoute(), CNewFileSelector::Route::dialogProgram);
    selector->forget();
}

TEST(CNewFileSelector, KdialogIsUsedWhenZenityIsMissing)
{
    FakeDialogPath fake;
    fake.addProgram("kdialog", "echo /from/kdialog.zvb");
    fake.useOnly();
    EXPECT_EQ(PlatformFileDialog::findProgram(), PlatformFileDialog::Program::kdialog);
    CNewFileSelector* selector = CNewFileSelector::create(nullptr, CNewFileSelector::kSelectFile);
    ASSERT_TRUE(selector->runModal());
    EXPECT_STREQ(selector->getSelectedFile(0), "/from/kdialog.zvb");
    selector->forget();
}

TEST(CNewFileSelector, WithoutDialogProgramOrWindowNothingIsChosen)
{
    FakeDialogPath fake;
    fake.useOnly();
    EXPECT_EQ(PlatformFileDialog::findProgram(), PlatformFileDialog::Program::none);
    CNewFileSelector* selector = CNewFileSelector::create(nullptr, CNewFileSelector::kSelectSaveFile);
    EXPECT_FALSE(selector->runModal());
    EXPECT_EQ(selector->getLastRoute(), CNewFileSelector::Route::none);
    selector->forget();
}
