#include "AudioEffectX.h"

#include "AEffEditor.h"

AudioEffectX::AudioEffectX(audioMasterCallback audioMaster, VstInt32 numPrograms, VstInt32 numParams)
    : AudioEffect(audioMaster, numPrograms, numParams)
{
}

VstIntPtr AudioEffectX::dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt)
{
    switch (opcode)
    {
    case effProcessEvents:
        return ptr ? processEvents(static_cast<VstEvents*>(ptr)) : 0;
    case effCanBeAutomated:
        return canParameterBeAutomated(index) ? 1 : 0;
    case effString2Parameter:
        return string2parameter(index, static_cast<char*>(ptr)) ? 1 : 0;
    case effGetProgramNameIndexed:
        return ptr && getProgramNameIndexed(static_cast<VstInt32>(value), index, static_cast<char*>(ptr)) ? 1
                                                                                                          : 0;
    case effGetInputProperties:
        return ptr && getInputProperties(index, static_cast<VstPinProperties*>(ptr)) ? 1 : 0;
    case effGetOutputProperties:
        return ptr && getOutputProperties(index, static_cast<VstPinProperties*>(ptr)) ? 1 : 0;
    case effGetPlugCategory:
        return getPlugCategory();
    case effSetSpeakerArrangement:
        return setSpeakerArrangement(reinterpret_cast<VstSpeakerArrangement*>(value),
                                     static_cast<VstSpeakerArrangement*>(ptr))
                   ? 1
                   : 0;
    case effGetSpeakerArrangement:
        return getSpeakerArrangement(reinterpret_cast<VstSpeakerArrangement**>(value),
                                     static_cast<VstSpeakerArrangement**>(ptr))
                   ? 1
                   : 0;
    case effSetBypass:
        return setBypass(value != 0) ? 1 : 0;
    case effGetEffectName:
        return ptr && getEffectName(static_cast<char*>(ptr)) ? 1 : 0;
    case effGetVendorString:
        return ptr && getVendorString(static_cast<char*>(ptr)) ? 1 : 0;
    case effGetProductString:
        return ptr && getProductString(static_cast<char*>(ptr)) ? 1 : 0;
    case effGetVendorVersion:
        return getVendorVersion();
    case effVendorSpecific:
        return vendorSpecific(index, value, ptr, opt);
    case effCanDo:
        return ptr ? canDo(static_cast<char*>(ptr)) : 0;
    case effGetTailSize:
        return getGetTailSize();
    case effGetParameterProperties:
        return ptr && getParameterProperties(index, static_cast<VstParameterProperties*>(ptr)) ? 1 : 0;
    case effGetVstVersion:
        return getVstVersion();
    case effEditKeyDown:
        return editor && editor->onKeyDown(index, static_cast<VstInt32>(value), static_cast<VstInt32>(opt))
                   ? 1
                   : 0;
    case effEditKeyUp:
        return editor && editor->onKeyUp(index, static_cast<VstInt32>(value), static_cast<VstInt32>(opt)) ? 1
                                                                                                          : 0;
    case effSetEditKnobMode:
        return editor && editor->setKnobMode(static_cast<VstInt32>(value)) ? 1 : 0;
    case effStartProcess:
        return startProcess();
    case effStopProcess:
        return stopProcess();
    case effSetProcessPrecision:
        return setProcessPrecision(static_cast<VstInt32>(value)) ? 1 : 0;
    default:
        return AudioEffect::dispatcher(opcode, index, value, ptr, opt);
    }
}

VstPlugCategory AudioEffectX::getPlugCategory()
{
    return (cEffect.flags & effFlagsIsSynth) ? kPlugCategSynth : kPlugCategUnknown;
}

bool AudioEffectX::getSpeakerArrangement(VstSpeakerArrangement** in, VstSpeakerArrangement** out)
{
    if (in) *in = nullptr;
    if (out) *out = nullptr;
    return false;
}

bool AudioEffectX::updateDisplay()
{
    return callHost(audioMasterUpdateDisplay) != 0;
}

bool AudioEffectX::beginEdit(VstInt32 index)
{
    return callHost(audioMasterBeginEdit, index) != 0;
}

bool AudioEffectX::endEdit(VstInt32 index)
{
    return callHost(audioMasterEndEdit, index) != 0;
}

bool AudioEffectX::ioChanged()
{
    return callHost(audioMasterIOChanged) != 0;
}

bool AudioEffectX::sizeWindow(VstInt32 width, VstInt32 height)
{
    return callHost(audioMasterSizeWindow, width, height) != 0;
}

bool AudioEffectX::isInputConnected(VstInt32 input)
{
    return callHost(audioMasterPinConnected, input, 0) == 0;
}

bool AudioEffectX::isOutputConnected(VstInt32 output)
{
    return callHost(audioMasterPinConnected, output, 1) == 0;
}

VstInt32 AudioEffectX::getInputLatency()
{
    return static_cast<VstInt32>(callHost(audioMasterGetInputLatency));
}

VstInt32 AudioEffectX::getOutputLatency()
{
    return static_cast<VstInt32>(callHost(audioMasterGetOutputLatency));
}

float AudioEffectX::updateSampleRate()
{
    const VstIntPtr rate = callHost(audioMasterGetSampleRate);
    if (rate > 0) setSampleRate(static_cast<float>(rate));
    return sampleRate;
}

VstInt32 AudioEffectX::updateBlockSize()
{
    const VstIntPtr size = callHost(audioMasterGetBlockSize);
    if (size > 0) setBlockSize(static_cast<VstInt32>(size));
    return blockSize;
}

VstInt32 AudioEffectX::canHostDo(char* text)
{
    return callHost(audioMasterCanDo, 0, 0, text) == 1 ? 1 : 0;
}
