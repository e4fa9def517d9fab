// Host-interface class of a VST 2.4 effect: the extended requests (pins, categories, names, canDo,
// parameter properties, speaker arrangements, …) as virtual operations, and the extended host callbacks.
#pragma once

#include "AudioEffect.h"

class AudioEffectX : public AudioEffect
{
  public:
    AudioEffectX(audioMasterCallback audioMaster, VstInt32 numPrograms, VstInt32 numParams);

    VstIntPtr dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt) override;

    // ---- information (UI thread); texts go into the caller's buffer
    virtual bool getEffectName(char*) { return false; }
    virtual bool getVendorString(char*) { return false; }
    virtual bool getProductString(char*) { return false; }
    virtual VstInt32 getVendorVersion() { return 0; }
    virtual VstIntPtr vendorSpecific(VstInt32, VstIntPtr, void*, float) { return 0; }
    // 1 yes, -1 no, 0 don't know.
    virtual VstInt32 canDo(char*) { return 0; }
    virtual VstInt32 getVstVersion() { return kVstVersion; }
    virtual VstPlugCategory getPlugCategory();
    virtual VstInt32 getGetTailSize() { return 0; }

    // ---- pins and channel layout
    virtual bool getInputProperties(VstInt32, VstPinProperties*) { return false; }
    virtual bool getOutputProperties(VstInt32, VstPinProperties*) { return false; }
    virtual bool setSpeakerArrangement(VstSpeakerArrangement*, VstSpeakerArrangement*) { return false; }
    virtual bool getSpeakerArrangement(VstSpeakerArrangement** in, VstSpeakerArrangement** out);
    virtual bool setBypass(bool) { return false; }
    virtual bool setProcessPrecision(VstInt32) { return false; }

    // ---- parameters and programs
    virtual bool canParameterBeAutomated(VstInt32) { return true; }
    virtual bool string2parameter(VstInt32, char*) { return false; }
    virtual bool getParameterProperties(VstInt32, VstParameterProperties*) { return false; }
    virtual bool getProgramNameIndexed(VstInt32, VstInt32, char*) { return false; }
    virtual VstInt32 processEvents(VstEvents*) { return 0; }
    virtual VstInt32 startProcess() { return 0; }
    virtual VstInt32 stopProcess() { return 0; }

    // ---- host callbacks
    // Tells the host that names or displays changed.
    virtual bool updateDisplay();
    // Brackets a user's edit gesture on a parameter, so the host groups the automation it records.
    virtual bool beginEdit(VstInt32 index);
    virtual bool endEdit(VstInt32 index);
    virtual bool ioChanged();
    virtual bool sizeWindow(VstInt32 width, VstInt32 height);
    // The host answers the pin request with 0 for a connected pin (and so does a host that does not know it).
    virtual bool isInputConnected(VstInt32 input);
    virtual bool isOutputConnected(VstInt32 output);
    virtual VstInt32 getInputLatency();
    virtual VstInt32 getOutputLatency();
    // Ask the host for its current rate and block size and keep them.
    virtual float updateSampleRate();
    virtual VstInt32 updateBlockSize();
    virtual VstInt32 canHostDo(char* text);
};
