// The ZEV Spatara effect: host answers, the six parameters and the factory presets, on top of the preset
// system; the audio itself is the stereo enhancement engine's.
#pragma once

#include "CPresetSystemEffect.h"
#include "ParameterMapping.h"
#include "StereoEngine.h"

#include <atomic>

class Spatara : public CPresetSystemEffect
{
  public:
    explicit Spatara(audioMasterCallback audioMaster);
    ~Spatara() override;

    // ---- information (host's UI thread)
    bool getEffectName(char* name) override;
    bool getVendorString(char* text) override;
    bool getProductString(char* text) override;
    VstInt32 getVendorVersion() override;
    VstPlugCategory getPlugCategory() override;
    VstInt32 canDo(char* text) override;

    // ---- life cycle (host's UI thread, never while processing)
    void suspend() override;
    void resume() override;

    // ---- processing (audio thread)
    void processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) override;
    void processDoubleReplacing(double** inputs, double** outputs, VstInt32 sampleFrames) override;
    // Frames of echo after the input stops, at the current sample rate (host's UI thread).
    VstInt32 getGetTailSize() override;
    // The balance meter, -0.5 (anti-phase) .. +0.5 (mono); any thread.
    float getStereoMeter() const { return engine.meter(); }
    // The output's phase correlation, -1 .. +1 (0 in silence); any thread.
    float getCorrelation() const { return engine.correlation(); }
    // The next block starts at the parameters' values instead of gliding to them (any thread).
    void jumpAtNextBlock() { engine.jumpAtNextBlock(); }
    // Our own requests: 'ZvMt' writes the balance meter into the float at ptr, 'ZvCr' the output's phase
    // correlation (-1..+1), so offline hosts can show them.
    // And the hosts' 'PreS' with value 'AeCs': the editor's scale is opt (1 to 4), open or not; and 'ZvZm'
    // from the format editions: the user dragged the window to the scale opt.
    VstIntPtr vendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt) override;

    // ---- pins and channel layout (host's UI thread)
    bool getInputProperties(VstInt32 index, VstPinProperties* properties) override;
    bool getOutputProperties(VstInt32 index, VstPinProperties* properties) override;
    bool setSpeakerArrangement(VstSpeakerArrangement* input, VstSpeakerArrangement* output) override;
    // Reads and clears the vu value, which nothing feeds: hosts always read 0, as they always have.
    float getVu() override;

    // ---- parameters (any thread: host automation, the editor, the preset system)
    void setParameter(VstInt32 index, float value) override;
    float getParameter(VstInt32 index) override;
    // The mapped real value (depth, Hz, width, process, phase, mode); 0 for an unknown index.
    float getParameterValue(VstInt32 index) const;
    void getParameterName(VstInt32 index, char* text) override;
    void getParameterLabel(VstInt32 index, char* label) override;
    void getParameterDisplay(VstInt32 index, char* text) override;
    bool getParameterProperties(VstInt32 index, VstParameterProperties* properties) override;
    bool canParameterBeAutomated(VstInt32 index) override;
    bool isDummy(int index) override;
    bool isDummyOld(int index) override;

    // ---- presets (UI thread)
    void initPresets() override;

    // ---- state of the channel layout, as the engine sees it
    bool hasStereoInput() const { return stereoInput; }
    bool hasStereoOutput() const { return stereoOutput; }

  private:
    template <typename Sample> void process(Sample** inputs, Sample** outputs, VstInt32 sampleFrames);
    // Asks the host which of the second pins are connected; the audio thread only reads the answers.
    void readPinConnections();

    spatara::StereoEngine engine;
    std::atomic<bool> secondInputConnected{true};
    std::atomic<bool> secondOutputConnected{true};
    std::atomic<float> normalised[kNumParameters] = {};
    std::atomic<float> real[kNumParameters] = {};
    std::atomic<bool> stereoInput{true};
    std::atomic<bool> stereoOutput{true};
    float vu = 0.0f;
};
