#include "AudioEffect.h"

#include "AEffEditor.h"
#include "NoThrowCall.h"

#include <cstring>

namespace
{
AudioEffect* effectOf(AEffect* e)
{
    return e ? static_cast<AudioEffect*>(e->object) : nullptr;
}

// These are the plug-in's outermost frames on the host's threads: nothing thrown below may leave them.
VstIntPtr dispatchEffectClass(AEffect* e, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                              float opt)
{
    AudioEffect* effect = effectOf(e);
    if (!effect) return 0;
    if (opcode == effClose)
    {
        callWithoutThrowing([&] { effect->dispatcher(opcode, index, value, ptr, opt); });
        delete effect; // the record lives inside the effect, so nothing may touch e after this
        return 1;
    }
    return callWithoutThrowing(VstIntPtr{0},
                               [&] { return effect->dispatcher(opcode, index, value, ptr, opt); });
}

void processReplacingClass(AEffect* e, float** inputs, float** outputs, VstInt32 sampleFrames)
{
    callWithoutThrowing([&] { effectOf(e)->processReplacing(inputs, outputs, sampleFrames); });
}

void processDoubleReplacingClass(AEffect* e, double** inputs, double** outputs, VstInt32 sampleFrames)
{
    callWithoutThrowing([&] { effectOf(e)->processDoubleReplacing(inputs, outputs, sampleFrames); });
}

// The accumulating process call of old hosts: this plug-in only replaces, so it adds nothing.
void processAccumulatingClass(AEffect*, float**, float**, VstInt32) {}

void setParameterClass(AEffect* e, VstInt32 index, float value)
{
    callWithoutThrowing([&] { effectOf(e)->setParameter(index, value); });
}

float getParameterClass(AEffect* e, VstInt32 index)
{
    return callWithoutThrowing(0.0f, [&] { return effectOf(e)->getParameter(index); });
}
} // namespace

AudioEffect::AudioEffect(audioMasterCallback audioMaster, VstInt32 numPrograms, VstInt32 numParams)
    : audioMaster(audioMaster), numPrograms(numPrograms), numParams(numParams)
{
    cEffect.magic = kEffectMagic;
    cEffect.dispatcher = dispatchEffectClass;
    cEffect.process = processAccumulatingClass;
    cEffect.setParameter = setParameterClass;
    cEffect.getParameter = getParameterClass;
    cEffect.numPrograms = numPrograms;
    cEffect.numParams = numParams;
    cEffect.numInputs = 1;
    cEffect.numOutputs = 2;
    cEffect.ioRatio = 1.0f;
    cEffect.object = this;
    cEffect.uniqueID = CCONST('N', 'o', 'E', 'f');
    cEffect.version = 1;
    cEffect.processReplacing = processReplacingClass;
    cEffect.processDoubleReplacing = processDoubleReplacingClass;
}

AudioEffect::~AudioEffect()
{
    delete editor;
}

VstIntPtr AudioEffect::dispatcher(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt)
{
    switch (opcode)
    {
    case effOpen:
        open();
        return 0;
    case effClose:
        close();
        return 0;
    case effSetProgram:
        if (value >= 0 && value < numPrograms) setProgram(static_cast<VstInt32>(value));
        return 0;
    case effGetProgram:
        return getProgram();
    case effSetProgramName:
        if (ptr) setProgramName(static_cast<char*>(ptr));
        return 0;
    case effGetProgramName:
        if (ptr) getProgramName(static_cast<char*>(ptr));
        return 0;
    case effGetParamLabel:
        if (ptr) getParameterLabel(index, static_cast<char*>(ptr));
        return 0;
    case effGetParamDisplay:
        if (ptr) getParameterDisplay(index, static_cast<char*>(ptr));
        return 0;
    case effGetParamName:
        if (ptr) getParameterName(index, static_cast<char*>(ptr));
        return 0;
    case effGetVu:
        return static_cast<VstIntPtr>(getVu() * 32767.0);
    case effSetSampleRate:
        setSampleRate(opt);
        return 0;
    case effSetBlockSize:
        setBlockSize(static_cast<VstInt32>(value));
        return 0;
    case effMainsChanged:
        if (value)
            resume();
        else
            suspend();
        return 0;
    case effGetChunk:
        return ptr ? getChunk(static_cast<void**>(ptr), index != 0) : 0;
    case effSetChunk:
        return setChunk(ptr, static_cast<VstInt32>(value), index != 0);
    case effEditGetRect:
    case effEditOpen:
    case effEditClose:
    case effEditIdle:
        return dispatchEditor(opcode, index, value, ptr);
    default:
        return 0;
    }
}

VstIntPtr AudioEffect::dispatchEditor(VstInt32 opcode, VstInt32, VstIntPtr, void* ptr)
{
    if (!editor) return 0;
    switch (opcode)
    {
    case effEditGetRect:
        return editor->getRect(static_cast<ERect**>(ptr)) ? 1 : 0;
    case effEditOpen:
        return editor->open(ptr) ? 1 : 0;
    case effEditClose:
        editor->close();
        return 0;
    case effEditIdle:
        editor->idle();
        return 0;
    default:
        return 0;
    }
}

void AudioEffect::processReplacing(float**, float**, VstInt32) {}

void AudioEffect::processDoubleReplacing(double**, double**, VstInt32) {}

void AudioEffect::setParameter(VstInt32, float) {}

float AudioEffect::getParameter(VstInt32)
{
    return 0.0f;
}

void AudioEffect::setParameterAutomated(VstInt32 index, float value)
{
    setParameter(index, value);
    callHost(audioMasterAutomate, index, 0, nullptr, value);
}

void AudioEffect::getParameterLabel(VstInt32, char* label)
{
    label[0] = 0;
}

void AudioEffect::getParameterDisplay(VstInt32, char* text)
{
    text[0] = 0;
}

void AudioEffect::getParameterName(VstInt32, char* text)
{
    text[0] = 0;
}

void AudioEffect::setProgramName(char*) {}

void AudioEffect::getProgramName(char* name)
{
    name[0] = 0;
}

VstInt32 AudioEffect::getChunk(void**, bool)
{
    return 0;
}

VstInt32 AudioEffect::setChunk(void*, VstInt32, bool)
{
    return 0;
}

void AudioEffect::canProcessReplacing(bool state)
{
    if (state)
        cEffect.flags |= effFlagsCanReplacing;
    else
        cEffect.flags &= ~effFlagsCanReplacing;
}

void AudioEffect::canDoubleReplacing(bool state)
{
    if (state)
        cEffect.flags |= effFlagsCanDoubleReplacing;
    else
        cEffect.flags &= ~effFlagsCanDoubleReplacing;
}

void AudioEffect::programsAreChunks(bool state)
{
    if (state)
        cEffect.flags |= effFlagsProgramChunks;
    else
        cEffect.flags &= ~effFlagsProgramChunks;
}

void AudioEffect::setEditor(AEffEditor* newEditor)
{
    if (editor != newEditor) delete editor;
    editor = newEditor;
    if (editor && editor->hasWindow())
        cEffect.flags |= effFlagsHasEditor;
    else
        cEffect.flags &= ~effFlagsHasEditor;
}

VstInt32 AudioEffect::getMasterVersion()
{
    const VstIntPtr version = callHost(audioMasterVersion);
    return version ? static_cast<VstInt32>(version) : 1;
}

VstInt32 AudioEffect::getCurrentUniqueId()
{
    return static_cast<VstInt32>(callHost(audioMasterCurrentId));
}

void AudioEffect::masterIdle()
{
    callHost(audioMasterIdle);
}

VstIntPtr AudioEffect::callHost(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt)
{
    return audioMaster ? audioMaster(&cEffect, opcode, index, value, ptr, opt) : 0;
}
