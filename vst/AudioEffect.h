// Host-interface base of an effect: owns the AEffect record, turns the host's basic requests into virtual
// operations and offers the effect the basic host callbacks.
#pragma once

#include "VstInterface.h"

class AEffEditor;

class AudioEffect
{
  public:
    AudioEffect(audioMasterCallback audioMaster, VstInt32 numPrograms, VstInt32 numParams);
    virtual ~AudioEffect();
    AudioEffect(const AudioEffect&) = delete;
    AudioEffect& operator=(const AudioEffect&) = delete;

    // ---- the record the host talks to
    AEffect* getAeffect() { return &cEffect; }
    // Every dispatcher request (any host thread). Answers 0 for requests this layer does not know.
    virtual VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt);

    // ---- life cycle (host's UI thread)
    virtual void open() {}
    virtual void close() {}
    virtual void suspend() {}
    virtual void resume() {}
    virtual void setSampleRate(float newSampleRate) { sampleRate = newSampleRate; }
    virtual void setBlockSize(VstInt32 newBlockSize) { blockSize = newBlockSize; }
    virtual float getSampleRate() const { return sampleRate; }
    virtual VstInt32 getBlockSize() const { return blockSize; }

    // ---- processing (audio thread)
    virtual void processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames);
    virtual void processDoubleReplacing(double** inputs, double** outputs, VstInt32 sampleFrames);

    // ---- parameters (any thread)
    virtual void setParameter(VstInt32 index, float value);
    virtual float getParameter(VstInt32 index);
    // Sets a parameter and tells the host, so that it records automation.
    virtual void setParameterAutomated(VstInt32 index, float value);
    virtual void getParameterLabel(VstInt32 index, char* label);
    virtual void getParameterDisplay(VstInt32 index, char* text);
    virtual void getParameterName(VstInt32 index, char* text);
    virtual float getVu() { return 0.0f; }

    // ---- programs and state (host's UI thread)
    virtual void setProgram(VstInt32 program) { curProgram = program; }
    virtual VstInt32 getProgram() { return curProgram; }
    virtual void setProgramName(char* name);
    virtual void getProgramName(char* name);
    virtual VstInt32 getChunk(void** data, bool isPreset = false);
    virtual VstInt32 setChunk(void* data, VstInt32 byteSize, bool isPreset = false);

    // ---- setup, called by the effect's constructor
    virtual void setUniqueID(VstInt32 id) { cEffect.uniqueID = id; }
    virtual void setNumInputs(VstInt32 inputs) { cEffect.numInputs = inputs; }
    virtual void setNumOutputs(VstInt32 outputs) { cEffect.numOutputs = outputs; }
    virtual void canProcessReplacing(bool state = true);
    virtual void canDoubleReplacing(bool state = true);
    virtual void programsAreChunks(bool state = true);
    virtual void setInitialDelay(VstInt32 delay) { cEffect.initialDelay = delay; }
    // Takes ownership of the editor; the host sees effFlagsHasEditor once the editor has a window.
    virtual void setEditor(AEffEditor* newEditor);
    virtual AEffEditor* getEditor() const { return editor; }

    // ---- host callbacks
    virtual VstInt32 getMasterVersion();
    virtual VstInt32 getCurrentUniqueId();
    virtual void masterIdle();
    audioMasterCallback getAudioMaster() const { return audioMaster; }

  protected:
    VstIntPtr callHost(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                       float opt = 0.0f);

    audioMasterCallback audioMaster;
    AEffEditor* editor = nullptr;
    float sampleRate = 44100.0f;
    VstInt32 blockSize = 1024;
    VstInt32 numPrograms;
    VstInt32 numParams;
    VstInt32 curProgram = 0;
    AEffect cEffect{};

  private:
    VstIntPtr dispatchEditor(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr);
};
