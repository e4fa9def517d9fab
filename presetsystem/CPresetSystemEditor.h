// Editor-side base of the preset system. It exists for the whole life of the effect, window or not: the
// effect reaches the preset and bank images, the defaults and the name hooks through it. While its window
// is open it also carries the preset panel and hears the panel's controls.
#pragma once

#include "AEffGUIEditor.h"
#include "CControlListener.h"
#include "PresetImageFormat.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class CPresetSystemEffect;
class COptionMenu;
class CPSKickButton;
class CPSRockerSwitch;
class CZEVTextEdit;

// What a file dialog of the preset system asks for.
struct FileChoice
{
    bool save = false;
    std::string title;
    std::string directory;   // initial directory, ending in "/" (may be empty)
    std::string defaultName; // proposed file name when saving
    std::string typeName;    // "ZEV Preset" or "ZEV Bank"
    std::string extension;   // "zev" or "zvb"
};

class CPresetSystemEditor : public AEffGUIEditor, public CControlListener
{
  public:
    // The preset panel's controls; the main editor's own controls use other tags.
    enum PanelTag : int32_t
    {
        kNameTag = 1000,
        kStepTag = 1001,
        kLoadBankTag = 1002,
        kSaveBankTag = 1003,
        kLoadPresetTag = 1004,
        kSavePresetTag = 1005,
        kPresetListTag = 1012,
        kDefaultBankTag = 1013,
        kDefaultPresetTag = 1014,
        kStoreATag = 1015,
        kStoreBTag = 1016,
        kRecallATag = 1017,
        kRecallBTag = 1018,
        kManualTag = 1019,
    };
    static constexpr int kProgramCount = 38;

    explicit CPresetSystemEditor(AudioEffect* effect);
    ~CPresetSystemEditor() override;

    // ---- hooks the effect calls (UI thread)
    // The effect was switched off; the main editor centres its meter.
    virtual void suspend() {}
    // Loads the user's default bank and preset at construction, then selects preset 0.
    virtual void loadDefaults();
    // The host renamed the current program.
    virtual void nameChangedExternal(const char* name);

    // ---- images of presets, banks and MIDI maps (UI thread, or the host's dispatcher for the chunk)
    // Writers build a new image in the machine's byte order; an empty image means nothing to give.
    virtual std::vector<char> PresetToBuffer();
    virtual std::vector<char> BankToBuffer();
    virtual std::vector<char> MidiToBuffer();
    // Readers take the chunks after a header already put in native order, with the real length of what
    // follows it; swap says the fields were written in the other byte order. They answer whether the image
    // was taken; a refused image leaves the presets as they were.
    virtual bool BufferToPreset(const char* chunks, std::size_t length, const newpresetheader* header,
                                bool swap);
    virtual bool BufferToBank(const char* chunks, std::size_t length, const newpresetheader* header,
                              bool swap);
    virtual bool BufferToMidi(const char* chunks, std::size_t length, const newpresetheader* header,
                              bool swap);
    // Old images: records of a name and the values, no chunk heads.
    virtual bool BufferToPresetOld(const char* data, std::size_t length, bool swap, int numValues);
    virtual bool BufferToBankOld(const char* data, std::size_t length, bool swap, int numPresets,
                                 int numValues);
    virtual bool BufferToMidiOld(const char* data, std::size_t length, bool swap, int count);

    // The window belongs to the main editor built on this class; on its own this editor shows none.
    bool hasWindow() const override { return false; }

    // ---- the editor window (host's UI thread)
    // Adds the preset panel to the frame that the main editor has made; false without frame or effect.
    // The main editor calls it as the last step of its own open.
    bool open(void* parentWindow) override;
    // Forgets the panel's controls (the frame owns and frees them); the main editor calls it first.
    void close() override;

    // ---- the panel's controls (UI thread): tags 1000 to 1019; other tags are the main editor's
    void valueChanged(CControl* control) override;

    // ---- the preset panel; nothing happens while no window is open
    virtual void showPresetName(const char* name);
    virtual void setListEntryTitle(long index, const char* name);
    virtual void selectListEntry(long index);
    CZEVTextEdit* getNameEdit() const { return nameEdit; }
    COptionMenu* getPresetMenu() const { return presetMenu; }
    CPSRockerSwitch* getStepRocker() const { return stepRocker; }
    CPSKickButton* getManualButton() const { return manualButton; }

    // ---- preset and bank files (UI thread); failures are silent, as users expect of a cancelled dialog
    virtual void loadPreset(bool endianReversed);
    virtual void savePreset();
    virtual void loadBank(bool endianReversed);
    virtual void saveBank();

    // ---- defaults and memories in the preferences (UI thread)
    virtual void saveDefaultBank();
    virtual void resetDefaultBank();
    virtual void loadDefaultBank();
    virtual void saveDefaultPreset();
    virtual void resetDefaultPreset();
    virtual void loadDefaultPreset();
    virtual void storeA();
    virtual void storeB();
    virtual void recallA();
    virtual void recallB();
    // MIDI-map files exist in the format only; nothing in this plug-in loads or saves them.
    virtual void loadMidi(bool) {}
    virtual void saveMidi() {}
    virtual void saveDefaultMidi() {}
    virtual void resetDefaultMidi();
    virtual void loadDefaultMidi() {}
    // The folder and file names last used in the dialogs, kept across sessions.
    virtual void storePathsAndFilenames();
    virtual void recallPathsAndFilenames();
    // The user typed a new name for the current preset.
    void nameChangedInternal(const char* name);

    // Where the file dialogs get their answer; tests put their own chooser here. Answers the chosen path,
    // or nothing when the user cancelled or no dialog could be shown.
    using FileChooser = std::function<std::optional<std::string>(const FileChoice&)>;
    void setFileChooser(FileChooser chooser) { fileChooser = std::move(chooser); }

    const char* getPresetPath() const { return presetPath; }
    const char* getPresetFileName() const { return presetFileName; }
    const char* getBankFileName() const { return bankFileName; }

  protected:
    // The dialog itself: the desktop's file dialog over the editor while its window is open; nothing
    // otherwise.
    virtual std::optional<std::string> runFileDialog(const FileChoice& choice);
    // Reads a preset or bank file (its identifier first) and hands its image to applyImage; answers whether
    // the image was taken.
    bool applyFileImage(const char* fileName, const char* directory, bool endianReversed);
    // Whether an image carries this plug-in's identifier, in either byte order.
    bool isOwnImage(const std::vector<char>& image) const;
    // Hands a preset or bank image (identifier, type, header, chunks) to its reader, byte order by the
    // identifier, turned round when a reversed load was asked for. Answers whether the reader took it.
    bool applyImage(const std::vector<char>& image, bool endianReversed);
    // Writes an image to a file, keeping the old one as it was unless the new one is complete (XPlatFileSave).
    bool writeFileImage(const char* fileName, const char* directory, const std::vector<char>& image);
    // Repaints the whole editor (a bank or preset load may change every control).
    virtual void redrawFrame();
    // Opens the manual, or tells the user why it could not be opened.
    virtual void openManualDocument();

    CPresetSystemEffect* presetEffect() const;
    newpresetheader makeHeader(char fileType, std::int32_t numChunks, std::int32_t currentPreset,
                               std::int32_t dataSize) const;
    // A preset image was read into preset n: the panel shows it, the effect takes its name and values.
    void presentLoadedPreset(long n);
    // Value chunks per preset: one for each parameter that holds a stored value.
    int storedValueCount() const;

    static constexpr int kPathSize = 257; // 256 characters and the terminator
    char presetPath[kPathSize] = {};
    char bankFileName[kPathSize] = {};
    char presetFileName[kPathSize] = {};

  private:
    void createPresetPanel();
    void renamePreset(CZEVTextEdit* edit);
    void stepPreset(float direction);
    void choosePreset(float menuValue);
    // Makes index current with name: list, name field and effect.
    void selectPreset(long index, const char* name);

    void storeImage(const char* key, const std::vector<char>& image);
    void removeKey(const char* key);
    void applyStoredImage(const char* key);
    std::optional<std::string> chooseFile(const FileChoice& choice);
    FileChooser fileChooser;

    // The panel's controls that the editor updates while the window is open (the frame owns them).
    CZEVTextEdit* nameEdit = nullptr;
    COptionMenu* presetMenu = nullptr;
    CPSRockerSwitch* stepRocker = nullptr;
    CPSKickButton* manualButton = nullptr;
};
