// Effect-side base of the preset system: the table of 38 presets the user works with, the default record a
// preset is re-initialised from, the current preset, the host chunk buffers and the (inert) MIDI learn hooks.
// The host sees a single program; all preset switching goes through setPresetNo.
#pragma once

#include "AudioEffectX.h"
#include "PresetRecord.h"

#include <array>
#include <atomic>
#include <vector>

class CPresetSystemEditor;

class CPresetSystemEffect : public AudioEffectX
{
  public:
    static constexpr int kHostChunkHeadSize = 8;
    static constexpr std::int32_t kChunkVersion = 0x02000000;
    static constexpr std::int32_t kOldChunkVersion = 0x01000000;
    static constexpr int kChunkBufferSize = 13729;    // chunk head + the bank image of 38 presets
    static constexpr int kOldChunkScratchSize = 1856; // old chunk head (32) + 38 records of 48 bytes

    explicit CPresetSystemEffect(audioMasterCallback audioMaster);
    ~CPresetSystemEffect() override;

    // ---- programs, as the host sees them (host's UI thread)
    void setProgram(VstInt32 program) override;
    VstInt32 getProgram() override;
    void setProgramName(char* name) override;
    void getProgramName(char* text) override;
    bool getProgramNameIndexed(VstInt32 category, VstInt32 index, char* text) override;

    // ---- parameters (any thread): stores the value into the current preset
    void setParameter(VstInt32 index, float value) override;
    float getParameter(VstInt32 index) override;

    // ---- host chunk (host's dispatcher): always the whole bank behind an 8-byte head
    VstInt32 getChunk(void** data, bool isPreset) override;
    // 0 once the bank reader has run (a bank it refuses leaves the presets as they were); -1 for a chunk
    // that is missing, not ours, of an unknown version or too short to hold a bank, and for a refused old
    // chunk.
    VstInt32 setChunk(void* data, VstInt32 byteSize, bool isPreset) override;
    // Whether the last setChunk took its bank; setChunk answers 0 also for a bank its reader refused.
    bool lastChunkTaken() const { return chunkTaken; }

    void resume() override {}
    VstInt32 processEvents(VstEvents*) override { return 0; } // MIDI is not taken
    VstInt32 canDo(char*) override { return 0; }

    // ---- the preset table (UI thread)
    virtual long getPresetNo() const;
    virtual void setPresetNo(long n);
    virtual void setPresetName(const char* name);

    // ---- MIDI learn: present in the interface, inert in this effect
    virtual void attachMidi(int, int) {}
    virtual void detachMidiParam(int) {}
    virtual void detachMidiCC(int) {}
    virtual int getMidiCC(int) { return 0; }
    virtual int getMidiParam(int) { return 0; }
    virtual int getMidiActivity() { return 0; }
    virtual void beginLearn() {}
    virtual void endLearn() {}
    virtual void setLearnParam(int) {}
    virtual void beginCancel() {}
    virtual void endCancel() {}

    virtual VstInt32 getUniqueID() const;
    // Copies the default record over preset n.
    virtual void initializePreset(long n);
    // True for a parameter number that holds no stored value in the current (old) image layouts.
    virtual bool isDummy(int) { return false; }
    virtual bool isDummyOld(int) { return false; }
    // Copies preset 0 into the default record, then lets the editor load the user's defaults.
    virtual void loadDefaults();
    virtual void initPresets() {}
    virtual void initMidi() {}

    // Direct access for the image converters and the editor (UI thread).
    PresetRecord& preset(long n) { return presets[static_cast<std::size_t>(n)]; }
    const PresetRecord& defaultPreset() const { return defaultRecord; }
    CPresetSystemEditor* presetEditor() const;

  protected:
    // Reads the chunk form of earlier versions, which is never written any more.
    VstInt32 setChunkOld(void* data, VstInt32 byteSize, bool isPreset, bool swapped);
    bool isApplying() const { return applying.load(std::memory_order_relaxed); }

  private:
    std::vector<PresetRecord> presets;
    std::atomic<long> presetNo{0};
    std::vector<unsigned char> oldChunkScratch;
    std::vector<unsigned char> chunkBuffer;
    bool chunkTaken = false;
    PresetRecord defaultRecord{};
    // True while setPresetNo pushes a preset into the effect, so the values are not written back.
    std::atomic<bool> applying{false};

    // Room for the MIDI learn feature, which this effect keeps but does not use.
    struct MidiLearnState
    {
        std::vector<unsigned char> assignments = std::vector<unsigned char>(48);
        std::vector<unsigned char> controllerMap = std::vector<unsigned char>(1024);
        std::vector<unsigned char> learnQueue = std::vector<unsigned char>(8192);
        std::vector<unsigned char> cancelQueue = std::vector<unsigned char>(8192);
        std::vector<unsigned char> activity = std::vector<unsigned char>(4096);
        int learnCount = 0;
        int cancelCount = 0;
        int learnParam = 999;
        bool learning = false;
        bool cancelling = false;
    } midiLearn;
};
