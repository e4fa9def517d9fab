// The preset panel on the real effect: its controls as laid out, every action by tag, the hooks that keep
// it in step with the program store, its file dialog and the manual. No display needed: the frame has no
// window.
#include "CBitmap.h"
#include "CFrame.h"
#include "CMenuItem.h"
#include "COptionMenu.h"
#include "CPSKickButton.h"
#include "CPSRockerSwitch.h"
#include "CSaveLoadButton.h"
#include "CZEVTextEdit.h"
#include "ManualDocument.h"
#include "PanelTestEditor.h"
#include "RecordingHost.h"
#include "Spatara.h"
#include "TempDir.h"
#include "XPlatAlertScope.h"
#include "XPlatPrefs.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace
{
// Writes an executable shell script.
void writeScript(const std::string& path, const std::string& body)
{
    std::ofstream(path) << "#!/bin/sh\n" << body;
    ::chmod(path.c_str(), 0755);
}

std::string slurp(const std::string& path)
{
    std::ifstream in(path);
    return std::string(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
}

bool hasPref(const char* key)
{
    std::vector<unsigned char> data;
    return XPlatGetPrefData(key, data);
}

class PresetPanel : public ::testing::Test
{
  protected:
    PresetPanel()
    {
        setenv("XDG_CONFIG_HOME", config.path().c_str(), 1);
        effect = std::make_unique<Spatara>(host.callback());
        editor = new PanelTestEditor(effect.get());
        effect->setEditor(editor);
        EXPECT_TRUE(effect->dispatcher(effEditOpen, 0, 0, nullptr, 0.0f));
        frame = editor->getFrame();
    }
    ~PresetPanel() override
    {
        effect->dispatcher(effEditClose, 0, 0, nullptr, 0.0f);
        XPlatRemovePref("DefaultBank");
        XPlatRemovePref("DefaultPreset");
        XPlatSynchronizePrefs();
    }

    template <class Control> Control* control(int32_t tag)
    {
        for (int i = 0; i < frame->getNbViews(); ++i)
            if (auto* c = dynamic_cast<Control*>(frame->getView(i)); c && c->getTag() == tag) return c;
        return nullptr;
    }
    // Sends the control's change to the panel with this value, as the control would.
    void send(int32_t tag, float value)
    {
        auto* c = control<CControl>(tag);
        ASSERT_NE(c, nullptr);
        c->setValue(value);
        editor->valueChanged(c);
    }
    void clickAt(double x, double y, long buttons = kLButton)
    {
        CPoint where(x, y);
        frame->platformOnMouseDown(where, CButtonState(buttons));
        frame->platformOnMouseUp(where, CButtonState(buttons));
    }
    void key(int32_t character, unsigned char virt = 0)
    {
        VstKeyCode code;
        code.character = character;
        code.virt = virt;
        frame->onKeyDown(code);
    }
    std::string programName()
    {
        char name[64] = {};
        effect->dispatcher(effGetProgramName, 0, 0, name, 0.0f);
        return name;
    }
    // The dialogs answer this path and remember what they were asked.
    void answerWith(const std::string& path)
    {
        editor->setFileChooser(
            [this, path](const FileChoice& choice) -> std::optional<std::string>
            {
                asked = choice;
                return path;
            });
    }

    TempDir config;
    RecordingHost host;
    std::unique_ptr<Spatara> effect;
    PanelTestEditor* editor;
    CFrame* frame;
    FileChoice asked;
};

struct ExpectedControl
{
    int32_t tag;
    const char* type;
    CRect rect;
    int32_t bitmap;
    double imageHeight; // 0 for the name and the list
};
} // namespace

// ---- layout

TEST_F(PresetPanel, OpenWithoutAFrameAnswersFalse)
{
    CPresetSystemEditor bare(effect.get());
    EXPECT_FALSE(bare.open(nullptr));
}

TEST_F(PresetPanel, ControlsAreAddedInOrderWithTheirRectanglesBitmapsAndImageHeights)
{
    const double nameTop = 230.0 - 5.5 - 2.0;
    const ExpectedControl expected[] = {
        {1000, "CZEVTextEdit", CRect(91, nameTop, 201, nameTop + 15), 128, 0},
        {1012, "COptionMenu", CRect(207, 222, 217, 236), 128, 0},
        {1001, "CPSRockerSwitch", CRect(219, 222, 250, 236), 19997, 14},
        {1002, "CSaveLoadButton", CRect(71, 230, 83, 244), 19993, 14},
        {1003, "CSaveLoadButton", CRect(8, 230, 20, 244), 19994, 14},
        {1013, "CPSKickButton", CRect(26, 232, 63, 242), 19990, 10},
        {1004, "CSaveLoadButton", CRect(71, 215, 83, 229), 19998, 14},
        {1005, "CSaveLoadButton", CRect(8, 215, 20, 229), 19999, 14},
        {1014, "CPSKickButton", CRect(22, 217, 69, 227), 19899, 10},
        {1017, "CPSKickButton", CRect(279, 215, 291, 229), 19991, 14},
        {1015, "CPSKickButton", CRect(254, 215, 266, 229), 19995, 14},
        {1018, "CPSKickButton", CRect(279, 230, 291, 244), 19992, 14},
        {1016, "CPSKickButton", CRect(254, 230, 266, 244), 19996, 14},
        {1019, "CPSKickButton", CRect(262, 187, 278, 201), 989, 14},
    };
    ASSERT_EQ(frame->getNbViews(), 14);
    for (int i = 0; i < 14; ++i)
    {
        SCOPED_TRACE(expected[i].tag);
        auto* view = dynamic_cast<CControl*>(frame->getView(i));
        ASSERT_NE(view, nullptr);
        EXPECT_EQ(view->getTag(), expected[i].tag);
        EXPECT_TRUE(view->isTypeOf(expected[i].type));
        EXPECT_EQ(view->getViewSize(), expected[i].rect);
        ASSERT_NE(view->getBackground(), nullptr);
        EXPECT_EQ(view->getBackground()->getResourceNumber(), expected[i].bitmap);
        if (auto* kick = dynamic_cast<CKickButton*>(view))
        {
            EXPECT_EQ(kick->getHeightOfOneImage(), expected[i].imageHeight);
            EXPECT_EQ(kick->getOffset(), CPoint(0, 0));
        }
        if (auto* rocker = dynamic_cast<CRockerSwitch*>(view))
        {
            EXPECT_EQ(rocker->getHeightOfOneImage(), expected[i].imageHeight);
        }
    }
    // Defaults are overwritten by double-click only; memories and the manual act on a single click.
    EXPECT_TRUE(control<CPSKickButton>(1013)->isDoubleClickOnly());
    EXPECT_TRUE(control<CPSKickButton>(1014)->isDoubleClickOnly());
    for (int32_t tag : {1015, 1016, 1017, 1018, 1019})
        EXPECT_FALSE(control<CPSKickButton>(tag)->isDoubleClickOnly()) << tag;
}

TEST_F(PresetPanel, NameFieldIsCentredOnItsLineInThePanelsColours)
{
    CZEVTextEdit* name = editor->getNameEdit();
    ASSERT_NE(name, nullptr);
    EXPECT_EQ(name->getViewSize(), CRect(91, 222.5, 201, 237.5));
    EXPECT_EQ(name->getBackOffset(), CPoint(91, 222.5));
    EXPECT_EQ(name->getBackColor(), MakeCColor(189, 207, 218, 255));
    EXPECT_EQ(name->getFontColor(), MakeCColor(36, 36, 32, 255));
    EXPECT_EQ(name->getFrameColor(), MakeCColor(36, 36, 32, 255));
    EXPECT_EQ(name->getFont(), kNormalFontSmall);
    EXPECT_EQ(name->getHoriAlign(), kCenterText);
    EXPECT_STREQ(name->getText(), "init");
}

TEST_F(PresetPanel, ListHoldsAllThirtyEightPresetsInColumnsOfSixteen)
{
    COptionMenu* menu = editor->getPresetMenu();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->getNbEntries(), 38);
    for (int i = 0; i < 38; ++i)
        EXPECT_STREQ(menu->getEntry(i)->getTitle(), effect->preset(i).name) << i;
    EXPECT_EQ(menu->getNbItemsPerColumn(), 16);
    EXPECT_EQ(menu->getStyle(), 7680);
    EXPECT_EQ(menu->getBackOffset(), CPoint(207, 222));
    EXPECT_EQ(menu->getCurrentIndex(), 0);
}

TEST_F(PresetPanel, ListOpensOnTheCurrentPresetAfterReopening)
{
    send(1001, 1.0f);
    send(1001, 1.0f);
    effect->dispatcher(effEditClose, 0, 0, nullptr, 0.0f);
    EXPECT_EQ(editor->getPresetMenu(), nullptr);
    EXPECT_EQ(editor->getNameEdit(), nullptr);
    ASSERT_TRUE(effect->dispatcher(effEditOpen, 0, 0, nullptr, 0.0f));
    frame = editor->getFrame();
    EXPECT_EQ(editor->getPresetMenu()->getCurrentIndex(), 2);
    EXPECT_STREQ(editor->getNameEdit()->getText(), "enhanced mix 2");
}

TEST_F(PresetPanel, HooksDoNothingWhileClosed)
{
    effect->dispatcher(effEditClose, 0, 0, nullptr, 0.0f);
    editor->showPresetName("x");
    editor->setListEntryTitle(3, "x");
    editor->selectListEntry(3);
    char name[] = "renamed while closed";
    effect->dispatcher(effSetProgramName, 0, 0, name, 0.0f);
    EXPECT_EQ(programName(), "renamed while closed");
}

// ---- stepping and choosing

TEST_F(PresetPanel, NextNextPreviousLandsOnEnhancedMix1WithItsValues)
{
    send(1001, 1.0f);
    send(1001, 1.0f);
    send(1001, -1.0f);
    EXPECT_EQ(effect->getPresetNo(), 1);
    EXPECT_STREQ(editor->getNameEdit()->getText(), "enhanced mix 1");
    EXPECT_EQ(editor->getPresetMenu()->getCurrentIndex(), 1);
    const float values[] = {0.5f, 0.25f, 0.0f, 1.0f, 0.0f, 0.0f};
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(effect->getParameter(i), values[i]) << i;
}

TEST_F(PresetPanel, NextOnTheLastPresetKeeps37AndReappliesItsName)
{
    effect->setPresetNo(37);
    editor->getNameEdit()->setText("something else");
    send(1001, 1.0f);
    EXPECT_EQ(effect->getPresetNo(), 37);
    EXPECT_STREQ(editor->getNameEdit()->getText(), effect->preset(37).name);
    EXPECT_EQ(editor->getPresetMenu()->getCurrentIndex(), 37);
}

TEST_F(PresetPanel, PreviousOnTheFirstPresetKeeps0)
{
    send(1001, -1.0f);
    EXPECT_EQ(effect->getPresetNo(), 0);
    EXPECT_EQ(editor->getPresetMenu()->getCurrentIndex(), 0);
    EXPECT_STREQ(editor->getNameEdit()->getText(), "init");
}

TEST_F(PresetPanel, RockerAtRestChangesNothing)
{
    effect->setPresetNo(4);
    send(1001, 0.0f);
    EXPECT_EQ(effect->getPresetNo(), 4);
}

TEST_F(PresetPanel, ClicksOnTheRockerHalvesStepThroughTheFrame)
{
    clickAt(245, 229);
    clickAt(245, 229);
    EXPECT_EQ(effect->getPresetNo(), 2);
    clickAt(225, 229);
    EXPECT_EQ(effect->getPresetNo(), 1);
}

TEST_F(PresetPanel, MenuValue36Point6SelectsEntry37)
{
    send(1012, 36.6f);
    EXPECT_EQ(effect->getPresetNo(), 37);
    EXPECT_EQ(editor->getPresetMenu()->getCurrentIndex(), 37);
    EXPECT_STREQ(editor->getNameEdit()->getText(), editor->getPresetMenu()->getEntry(37)->getTitle());
}

TEST_F(PresetPanel, ChoosingAnEntryInTheOpenListSelectsThatPreset)
{
    COptionMenu* menu = editor->getPresetMenu();
    clickAt(212, 229);
    ASSERT_TRUE(menu->isPopupOpen());
    menu->popupClosed(3);
    EXPECT_EQ(effect->getPresetNo(), 3);
    EXPECT_STREQ(editor->getNameEdit()->getText(), "enhanced mix 3");
    EXPECT_EQ(programName(), "enhanced mix 3");
}

// ---- names

TEST_F(PresetPanel, TypingANameAndReturnRenamesThePresetForTheHost)
{
    send(1012, 3.0f);
    clickAt(140, 230);
    ASSERT_TRUE(editor->getNameEdit()->isBeingEdited());
    for (int i = 0; i < 14; ++i)
        key(0, VKEY_BACK);
    for (char c : std::string("kit"))
        key(c);
    key(0, VKEY_RETURN);
    EXPECT_EQ(programName(), "kit");
    EXPECT_STREQ(effect->preset(3).name, "kit");
    EXPECT_STREQ(editor->getPresetMenu()->getEntry(3)->getTitle(), "kit");
    EXPECT_STREQ(editor->getNameEdit()->getText(), "kit");
}

TEST_F(PresetPanel, EscapeLeavesThePresetsName)
{
    clickAt(140, 230);
    key('z');
    key(0, VKEY_ESCAPE);
    EXPECT_EQ(programName(), "init");
    EXPECT_STREQ(editor->getNameEdit()->getText(), "init");
}

TEST_F(PresetPanel, ANameLongerThanTheStoreHoldsIsCutToTwentyThreeCharactersInTheStoreOnly)
{
    clickAt(140, 230);
    for (char c : std::string("abcdefghijklmnopqrstuvwxyz"))
        key(c);
    key(0, VKEY_RETURN);
    EXPECT_EQ(programName(), "initabcdefghijklmnopqrs");
    EXPECT_STREQ(effect->preset(0).name, "initabcdefghijklmnopqrs");
    // The name field and the list entry keep the name as it was typed.
    EXPECT_STREQ(editor->getNameEdit()->getText(), "initabcdefghijklmnopqrstuvwxyz");
    EXPECT_STREQ(editor->getPresetMenu()->getEntry(0)->getTitle(), "initabcdefghijklmnopqrstuvwxyz");
}

TEST_F(PresetPanel, ChoosingAnEntryShowsItsTitleAsTypedInTheNameField)
{
    clickAt(140, 230);
    for (char c : std::string(" with a longer tail here"))
        key(c);
    key(0, VKEY_RETURN);
    send(1012, 3.0f);
    send(1012, 0.0f);
    EXPECT_STREQ(editor->getNameEdit()->getText(), "init with a longer tail here");
    EXPECT_EQ(programName(), "init with a longer tail");
    EXPECT_EQ(effect->getPresetNo(), 0);
}

TEST_F(PresetPanel, ATypedNameIsCutAtACharacterBoundaryNeverInsideOne)
{
    clickAt(140, 230);
    for (int i = 0; i < 4; ++i)
        key(0, VKEY_BACK);
    for (char c : std::string("abcdefghijklmnopqrstuv"))
        key(c);
    key(0xE9); // "é": two bytes that would end at byte 24
    key(0, VKEY_RETURN);
    EXPECT_EQ(programName(), "abcdefghijklmnopqrstuv");
    EXPECT_STREQ(editor->getNameEdit()->getText(), "abcdefghijklmnopqrstuv\xC3\xA9");
}

TEST_F(PresetPanel, ConfirmingANameReachesTheHostAsOneEditOfTag1000)
{
    clickAt(140, 230);
    key('x');
    host.clear();
    key(0, VKEY_RETURN);
    const auto begins = host.requestsOf(audioMasterBeginEdit);
    const auto ends = host.requestsOf(audioMasterEndEdit);
    ASSERT_FALSE(begins.empty());
    ASSERT_FALSE(ends.empty());
    EXPECT_EQ(host.requests().front().opcode, audioMasterBeginEdit);
    EXPECT_EQ(host.requests().front().index, 1000);
    EXPECT_EQ(host.requests().back().opcode, audioMasterEndEdit);
    EXPECT_EQ(host.requests().back().index, 1000);
    EXPECT_EQ(programName(), "initx");
}

TEST_F(PresetPanel, AKeyWithTheCommandModifierConfirmsTheName)
{
    clickAt(140, 230);
    key('x');
    VstKeyCode save;
    save.character = 's';
    save.modifier = MODIFIER_COMMAND;
    frame->onKeyDown(save);
    EXPECT_FALSE(editor->getNameEdit()->isBeingEdited());
    EXPECT_EQ(programName(), "initx");
}

TEST_F(PresetPanel, KeysGoToTheNameNotToTheHostWhileItIsOpen)
{
    EXPECT_EQ(effect->dispatcher(effEditKeyDown, 'q', 0, nullptr, 0.0f), 0);
    clickAt(140, 230);
    EXPECT_EQ(effect->dispatcher(effEditKeyDown, 'q', 0, nullptr, 0.0f), 1);
    EXPECT_EQ(effect->dispatcher(effEditKeyDown, ' ', VKEY_SPACE, nullptr, 0.0f), 1);
    EXPECT_EQ(effect->dispatcher(effEditKeyDown, 0, VKEY_RETURN, nullptr, 0.0f), 1);
    EXPECT_EQ(programName(), "initq ");
    EXPECT_EQ(effect->dispatcher(effEditKeyDown, 'q', 0, nullptr, 0.0f), 0);
}

TEST_F(PresetPanel, ClosingTheEditorWhileANameIsTypedKeepsTheName)
{
    clickAt(140, 230);
    key('!');
    effect->dispatcher(effEditClose, 0, 0, nullptr, 0.0f);
    EXPECT_EQ(programName(), "init!");
    EXPECT_EQ(editor->getNameEdit(), nullptr);
}

TEST_F(PresetPanel, HostRenameShowsInTheNameAndTheList)
{
    effect->setPresetNo(2);
    editor->selectListEntry(2);
    char name[] = "from host";
    effect->dispatcher(effSetProgramName, 0, 0, name, 0.0f);
    EXPECT_STREQ(editor->getNameEdit()->getText(), "from host");
    EXPECT_STREQ(editor->getPresetMenu()->getEntry(2)->getTitle(), "from host");
}

// ---- files

TEST_F(PresetPanel, FileButtonValueHalfLoadsEndianReversed)
{
    answerWith("");
    send(1004, 0.5f);
    EXPECT_EQ(asked.title, "Load preset (endian-reversed)");
    send(1002, 0.5f);
    EXPECT_EQ(asked.title, "Load bank (endian-reversed)");
}

TEST_F(PresetPanel, FileButtonValuesOtherThanHalfLoadNormally)
{
    answerWith("");
    for (float value : {0.49f, 1.0f})
    {
        send(1004, value);
        EXPECT_EQ(asked.title, "Load preset") << value;
        send(1002, value);
        EXPECT_EQ(asked.title, "Load bank") << value;
    }
}

TEST_F(PresetPanel, RightClickOnTheLoadPresetButtonAsksForTheReversedLoad)
{
    answerWith("");
    clickAt(77, 222, kRButton);
    EXPECT_EQ(asked.title, "Load preset (endian-reversed)");
    clickAt(77, 237);
    EXPECT_EQ(asked.title, "Load bank");
}

TEST_F(PresetPanel, SaveButtonsAskForSaveDialogs)
{
    answerWith("");
    clickAt(14, 222);
    EXPECT_TRUE(asked.save);
    EXPECT_EQ(asked.title, "Save preset");
    clickAt(14, 237);
    EXPECT_EQ(asked.title, "Save bank");
    EXPECT_EQ(asked.extension, "zvb");
}

TEST_F(PresetPanel, SavedPresetLoadsBackThroughTheButtons)
{
    TempDir files;
    send(1001, 1.0f); // enhanced mix 1
    answerWith(files.file("mix.zev"));
    clickAt(14, 222);
    ASSERT_TRUE(std::filesystem::exists(files.file("mix.zev")));
    send(1012, 5.0f);
    clickAt(77, 222);
    EXPECT_STREQ(effect->preset(5).name, "enhanced mix 1");
    EXPECT_STREQ(editor->getNameEdit()->getText(), "enhanced mix 1");
    EXPECT_STREQ(editor->getPresetMenu()->getEntry(5)->getTitle(), "enhanced mix 1");
    EXPECT_EQ(effect->getParameter(1), 0.25f);
}

TEST_F(PresetPanel, LoadingABankShowsItsFirstPreset)
{
    TempDir files;
    answerWith(files.file("all.zvb"));
    clickAt(14, 237);
    send(1012, 7.0f);
    clickAt(77, 237);
    EXPECT_EQ(effect->getPresetNo(), 0);
    EXPECT_EQ(editor->getPresetMenu()->getCurrentIndex(), 0);
    EXPECT_STREQ(editor->getNameEdit()->getText(), "init");
}

TEST_F(PresetPanel, FileDialogRunsTheDesktopDialogWithTitleFolderNameAndFilter)
{
    TempDir tools;
    const std::string log = tools.file("zenity.log");
    writeScript(tools.file("zenity"), "printf '%s\\n' \"$@\" > '" + log + "'\necho /tmp/chosen.zev\n");
    const std::string oldPath = std::getenv("PATH");
    setenv("PATH", (tools.path() + ":" + oldPath).c_str(), 1);
    FileChoice choice;
    choice.save = true;
    choice.title = "Save preset";
    choice.directory = "/tmp/presets/";
    choice.defaultName = "mine.zev";
    choice.typeName = "ZEV Preset";
    choice.extension = "zev";
    const auto chosen = editor->fileDialog(choice);
    setenv("PATH", oldPath.c_str(), 1);
    ASSERT_TRUE(chosen.has_value());
    EXPECT_EQ(*chosen, "/tmp/chosen.zev");
    const std::string arguments = slurp(log);
    EXPECT_NE(arguments.find("--save"), std::string::npos) << arguments;
    EXPECT_NE(arguments.find("Save preset"), std::string::npos) << arguments;
    EXPECT_NE(arguments.find("/tmp/presets/mine.zev"), std::string::npos) << arguments;
    EXPECT_NE(arguments.find("ZEV Preset | *.zev"), std::string::npos) << arguments;
}

TEST_F(PresetPanel, SavedNameTypedWithoutExtensionGetsIt)
{
    TempDir tools;
    writeScript(tools.file("zenity"), "echo /tmp/presets/mine\n");
    const std::string oldPath = std::getenv("PATH");
    setenv("PATH", (tools.path() + ":" + oldPath).c_str(), 1);
    FileChoice save;
    save.save = true;
    save.title = "Save bank";
    save.typeName = "ZEV Bank";
    save.extension = "zvb";
    const auto saved = editor->fileDialog(save);
    FileChoice load = save;
    load.save = false;
    const auto loaded = editor->fileDialog(load);
    setenv("PATH", oldPath.c_str(), 1);
    EXPECT_EQ(saved.value_or(""), "/tmp/presets/mine.zvb");
    // Opening takes the name exactly as chosen.
    EXPECT_EQ(loaded.value_or(""), "/tmp/presets/mine");
}

TEST_F(PresetPanel, CancelledDesktopDialogAnswersNothing)
{
    TempDir tools;
    writeScript(tools.file("zenity"), "exit 1\n");
    const std::string oldPath = std::getenv("PATH");
    setenv("PATH", (tools.path() + ":" + oldPath).c_str(), 1);
    FileChoice choice;
    choice.title = "Load preset";
    choice.typeName = "ZEV Preset";
    choice.extension = "zev";
    const auto chosen = editor->fileDialog(choice);
    setenv("PATH", oldPath.c_str(), 1);
    EXPECT_FALSE(chosen.has_value());
}

namespace
{
// A desktop dialog program of the test's own, first on PATH while it lives.
class FakeZenity
{
  public:
    explicit FakeZenity(const std::string& body) : oldPath(std::getenv("PATH"))
    {
        writeScript(tools.file("zenity"), body);
        setenv("PATH", (tools.path() + ":" + oldPath).c_str(), 1);
    }
    ~FakeZenity() { setenv("PATH", oldPath.c_str(), 1); }
    FakeZenity(const FakeZenity&) = delete;
    FakeZenity& operator=(const FakeZenity&) = delete;

  private:
    TempDir tools;
    std::string oldPath;
};

// A zenity that answers the file dialog with chosen and the question with answer (0 yes, 1 no), writing the
// question's arguments to log.
std::string saveDialogScript(const std::string& chosen, int answer, const std::string& log)
{
    return "if [ \"$1\" = --question ]; then printf '%s\\n' \"$@\" > '" + log + "'; exit " +
           std::to_string(answer) + "; fi\necho '" + chosen + "'\n";
}
} // namespace

TEST_F(PresetPanel, AnExistingFileIsNotReplacedUnderTheAddedExtensionWithoutAsking)
{
    TempDir files;
    std::ofstream(files.file("mine.zev")) << "keep me";
    {
        FakeZenity no(saveDialogScript(files.file("mine"), 1, files.file("question")));
        editor->savePreset();
    }
    EXPECT_EQ(slurp(files.file("mine.zev")), "keep me") << "answered no";
    const std::string question = slurp(files.file("question"));
    EXPECT_NE(question.find("mine.zev"), std::string::npos) << question;
    {
        FakeZenity yes(saveDialogScript(files.file("mine"), 0, files.file("question")));
        editor->savePreset();
    }
    EXPECT_EQ(std::filesystem::file_size(files.file("mine.zev")), 401u) << "answered yes";
}

TEST_F(PresetPanel, ANewFileUnderTheAddedExtensionIsSavedWithoutAQuestion)
{
    TempDir files;
    {
        FakeZenity zenity(saveDialogScript(files.file("fresh"), 1, files.file("question")));
        editor->saveBank();
    }
    EXPECT_EQ(std::filesystem::file_size(files.file("fresh.zvb")), 13721u);
    EXPECT_FALSE(std::filesystem::exists(files.file("question")));
}

TEST_F(PresetPanel, ANameWithAnotherDotStillGetsTheExtension)
{
    TempDir files;
    {
        FakeZenity zenity(saveDialogScript(files.file("v1.2"), 1, files.file("question")));
        editor->savePreset();
    }
    EXPECT_TRUE(std::filesystem::exists(files.file("v1.2.zev")));
    EXPECT_FALSE(std::filesystem::exists(files.file("v1.2")));
}

TEST_F(PresetPanel, DialogsOfferTheFormatsOwnFilterOnly)
{
    TempDir files;
    const std::string log = files.file("arguments");
    FakeZenity zenity("printf '%s\\n' \"$@\" >> '" + log + "'\nexit 1\n");
    editor->loadPreset(false);
    editor->savePreset();
    editor->loadBank(false);
    editor->saveBank();
    std::ifstream in(log);
    std::vector<std::string> filters;
    for (std::string line; std::getline(in, line);)
        if (line.rfind("--file-filter", 0) == 0) filters.push_back(line);
    EXPECT_EQ(filters, (std::vector<std::string>{
                           "--file-filter=ZEV Preset | *.zev", "--file-filter=ZEV Preset | *.zev",
                           "--file-filter=ZEV Bank | *.zvb", "--file-filter=ZEV Bank | *.zvb"}));
}

// ---- defaults and memories

TEST_F(PresetPanel, KickValueThreeQuartersSavesTheDefaultAndJustBelowResetsIt)
{
    send(1014, 0.75f);
    EXPECT_TRUE(hasPref("DefaultPreset"));
    send(1014, 0.74f);
    EXPECT_FALSE(hasPref("DefaultPreset"));
    send(1013, 0.75f);
    EXPECT_TRUE(hasPref("DefaultBank"));
    send(1013, 0.74f);
    EXPECT_FALSE(hasPref("DefaultBank"));
}

TEST_F(PresetPanel, SingleClickOnADefaultButtonChangesNothing)
{
    clickAt(45, 237);
    clickAt(45, 222);
    EXPECT_FALSE(hasPref("DefaultBank"));
    EXPECT_FALSE(hasPref("DefaultPreset"));
}

TEST_F(PresetPanel, DoubleClickSavesTheDefaultAndControlDoubleClickRemovesIt)
{
    clickAt(45, 237);
    clickAt(45, 237);
    EXPECT_TRUE(hasPref("DefaultBank"));
    clickAt(45, 237, kLButton | kControl);
    clickAt(45, 237, kLButton | kControl);
    EXPECT_FALSE(hasPref("DefaultBank"));
    clickAt(45, 222);
    clickAt(45, 222);
    EXPECT_TRUE(hasPref("DefaultPreset"));
}

TEST_F(PresetPanel, StoreAAndRecallABringTheStoredPresetBack)
{
    send(1012, 3.0f); // enhanced mix 3
    clickAt(260, 222);
    effect->setParameter(0, 0.1f);
    clickAt(285, 222);
    EXPECT_EQ(effect->getParameter(0), 0.6f);
}

TEST_F(PresetPanel, MemoriesAAndBAreSeparate)
{
    send(1012, 3.0f);
    clickAt(260, 222); // store A: enhanced mix 3
    send(1012, 5.0f);
    clickAt(260, 237); // store B: enhanced space 1
    clickAt(285, 222);
    EXPECT_EQ(effect->getParameter(0), 0.6f);
    clickAt(285, 237);
    EXPECT_EQ(effect->getParameter(0), 0.75f);
}

// ---- the manual

class Manual : public PresetPanel
{
  protected:
    Manual()
    {
        oldPath = std::getenv("PATH");
        setenv("HOME", home.path().c_str(), 1);
        setenv("XDG_DATA_HOME", (home.path() + "/.local/share").c_str(), 1);
        setenv("XDG_DATA_DIRS", (home.path() + "/system").c_str(), 1);
        setenv("PATH", (tools.path() + ":" + oldPath).c_str(), 1);
    }
    ~Manual() override { setenv("PATH", oldPath.c_str(), 1); }
    void installManual(const std::string& folder)
    {
        std::filesystem::create_directories(folder);
        std::ofstream(folder + "/Spatara-manual.pdf") << "%PDF-1.4\n";
    }
    void openTwiceUnderTheHostsChildSignals(void (*handler)(int));
    void viewerExits(int code)
    {
        writeScript(tools.file("xdg-open"),
                    "echo \"$1\" >> '" + tools.file("opened") + "'\nexit " + std::to_string(code) + "\n");
    }

    TempDir home;
    TempDir tools;
    std::string oldPath;
    std::vector<std::string> alerts;
    // The editor here has no window: its alerts come to the alert scope around it, this one.
    XPlatAlertScope alertsHere{[this](const char* message) { alerts.push_back(message); }};
};

TEST_F(Manual, ButtonOpensTheUsersManualWithTheDesktopViewer)
{
    installManual(home.path() + "/.local/share/zev-spatara");
    viewerExits(0);
    clickAt(270, 194);
    EXPECT_EQ(slurp(tools.file("opened")), home.path() + "/.local/share/zev-spatara/Spatara-manual.pdf\n");
    EXPECT_TRUE(alerts.empty());
}

TEST_F(Manual, UsersManualComesBeforeTheSystemsOne)
{
    installManual(home.path() + "/system/doc/zev-spatara");
    viewerExits(0);
    clickAt(270, 194);
    EXPECT_EQ(slurp(tools.file("opened")), home.path() + "/system/doc/zev-spatara/Spatara-manual.pdf\n");
    installManual(home.path() + "/.local/share/zev-spatara");
    clickAt(270, 194);
    EXPECT_EQ(slurp(tools.file("opened")), home.path() + "/system/doc/zev-spatara/Spatara-manual.pdf\n" +
                                               home.path() +
                                               "/.local/share/zev-spatara/Spatara-manual.pdf\n");
}

TEST_F(Manual, ViewerFailingShowsTheAlertWithTheDocumentsPath)
{
    installManual(home.path() + "/.local/share/zev-spatara");
    viewerExits(4);
    clickAt(270, 194);
    ASSERT_EQ(alerts.size(), 1u);
    // The alert names the documents path, whichever place the manual was found in.
    EXPECT_EQ(alerts[0],
              "Could not open manual file:\n~/\"Documents/ZEV Sound Design/Spatara/Spatara-manual.pdf\"");
}

TEST_F(Manual, NoManualAnywhereShowsTheAlertWithTheDocumentsPath)
{
    viewerExits(0);
    clickAt(270, 194);
    ASSERT_EQ(alerts.size(), 1u);
    EXPECT_EQ(alerts[0],
              "Could not open manual file:\n~/\"Documents/ZEV Sound Design/Spatara/Spatara-manual.pdf\"");
    EXPECT_FALSE(std::filesystem::exists(tools.file("opened")));
}

namespace
{
// A host's own SIGCHLD handler that reaps every child, interrupting whatever waits meanwhile.
void reapEveryChild(int)
{
    const int saved = errno;
    while (waitpid(-1, nullptr, WNOHANG) > 0)
    {
    }
    errno = saved;
}
} // namespace

// With the host's SIGCHLD disposition set to handler: the viewer takes the manual, then fails to.
void Manual::openTwiceUnderTheHostsChildSignals(void (*handler)(int))
{
    installManual(home.path() + "/.local/share/zev-spatara");
    struct sigaction host = {}, old = {};
    host.sa_handler = handler; // no SA_RESTART: a host's handler interrupts our waits
    sigaction(SIGCHLD, &host, &old);
    alarm(20); // a hang ends the test program instead of the run
    viewerExits(0);
    clickAt(270, 194);
    EXPECT_TRUE(alerts.empty());
    viewerExits(4);
    clickAt(270, 194);
    alarm(0);
    sigaction(SIGCHLD, &old, nullptr);
    const std::string manual = home.path() + "/.local/share/zev-spatara/Spatara-manual.pdf\n";
    EXPECT_EQ(slurp(tools.file("opened")), manual + manual);
    EXPECT_EQ(alerts.size(), 1u);
}

// A host that ignores SIGCHLD: the kernel reaps its children, waitpid answers ECHILD.
TEST_F(Manual, AHostThatIgnoresChildSignalsIsNotHungAndTheViewersAnswerCounts)
{
    openTwiceUnderTheHostsChildSignals(SIG_IGN);
}

TEST_F(Manual, AHostThatReapsChildrenInItsOwnHandlerIsNotHungAndTheViewersAnswerCounts)
{
    openTwiceUnderTheHostsChildSignals(reapEveryChild);
}

TEST_F(Manual, ButtonDropsItsHighlightAfterOpening)
{
    installManual(home.path() + "/.local/share/zev-spatara");
    viewerExits(0);
    CPoint over(270, 194);
    frame->platformOnMouseMoved(over, CButtonState());
    ASSERT_TRUE(editor->getManualButton()->isHovered());
    clickAt(270, 194);
    EXPECT_FALSE(editor->getManualButton()->isHovered());
}

TEST_F(Manual, PlacesLookedAtTheDocumentsThenBesideThePluginThenTheUsersThenTheSystems)
{
    const auto paths = spatara::manualCandidatePaths();
    ASSERT_EQ(paths.size(), 5u);
    EXPECT_EQ(paths[0], home.path() + "/Documents/ZEV Sound Design/Spatara/Spatara-manual.pdf");
    // This test program stands in for the plug-in's .so.
    const auto beside = std::filesystem::canonical("/proc/self/exe").parent_path();
    EXPECT_EQ(paths[1], (beside / "Spatara-manual.pdf").string());
    EXPECT_EQ(paths[2], home.path() + "/.local/share/zev-spatara/Spatara-manual.pdf");
    EXPECT_EQ(paths[3],
              (beside.parent_path().parent_path() / "share/doc/zev-spatara/Spatara-manual.pdf").string());
    EXPECT_EQ(paths[4], home.path() + "/system/doc/zev-spatara/Spatara-manual.pdf");
}

TEST_F(Manual, TheManualInTheUsersDocumentsIsOpenedFirst)
{
    installManual(home.path() + "/.local/share/zev-spatara");
    installManual(home.path() + "/Documents/ZEV Sound Design/Spatara");
    viewerExits(0);
    clickAt(270, 194);
    EXPECT_EQ(slurp(tools.file("opened")),
              home.path() + "/Documents/ZEV Sound Design/Spatara/Spatara-manual.pdf\n");
    EXPECT_TRUE(alerts.empty());
}
