// Editor-side base of the preset system. It exists for the whole life of the effect, window or not: the
// effect reaches the preset and bank images, the defaults and the name hooks through it.
#pragma once

#include "AEffEditor.h"
#include "PresetImageFormat.h"

#include <cstddef>
#include <vector>

class CPresetSystemEffect;

class CPresetSystemEditor : public AEffEditor
{
  public:
    explicit CPresetSystemEditor(AudioEffect* effect);
    ~CPresetSystemEditor() override;

    // ---- hooks the effect calls (any thread for setParameter, UI thread otherwise)
    // A parameter changed in the effect; the main editor brings its controls up to date.
    virtual void setParameter(long index, float value);
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

    // ---- the preset panel; nothing happens while no window is open
    virtual void showPresetName(const char* name);
    virtual void setListEntryTitle(long index, const char* name);
    virtual void selectListEntry(long index);

  protected:
    CPresetSystemEffect* presetEffect() const;
    newpresetheader makeHeader(char fileType, std::int32_t numChunks, std::int32_t currentPreset,
                               std::int32_t dataSize) const;
    // Value chunks per preset: one for each parameter that holds a stored value.
    int storedValueCount() const;
};
