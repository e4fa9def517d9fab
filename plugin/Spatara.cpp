#include "Spatara.h"

#include "ADEditor.h"
#include "AEffGUIEditor.h"
#include "CPresetSystemEditor.h"
#include "EngineCoefficients.h"
#include "FactoryPresets.h"
#include "ParameterTable.h"
#include "SpataraVersion.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace
{
constexpr VstInt32 kUniqueId = CCONST('Q', 'w', 's', 'n');
constexpr VstInt32 kVendorVersion = SPATARA_VENDOR_VERSION;
constexpr VstInt32 kMeterRequest = CCONST('Z', 'v', 'M', 't');
constexpr VstInt32 kCorrelationRequest = CCONST('Z', 'v', 'C', 'r');
// The request hosts send to tell an editor the scale of the screen: the scale is the float argument.
constexpr VstInt32 kScaleRequest = CCONST('P', 'r', 'e', 'S');
constexpr VstIntPtr kScaleRequestValue = CCONST('A', 'e', 'C', 's');
// Ours, from the format editions: the user dragged the window to the scale in opt.
constexpr VstInt32 kZoomRequest = CCONST('Z', 'v', 'Z', 'm');

using spatara::isParameter;
using spatara::parameterInfo;

bool fillPinProperties(VstInt32 index, const char* format, VstPinProperties* properties)
{
    if (index > 1) return false;
    // Only the label and the flags are ours to write; the rest of the record stays as the host left it.
    std::snprintf(properties->label, sizeof(properties->label), format, index + 1);
    properties->flags = kVstPinIsActive | kVstPinIsStereo;
    return true;
}
} // namespace

Spatara::Spatara(audioMasterCallback audioMaster) : CPresetSystemEffect(audioMaster)
{
    setNumInputs(2);
    setNumOutputs(2);
    stereoInput = true;
    stereoOutput = true;
    setUniqueID(kUniqueId);
    canProcessReplacing();
    canDoubleReplacing();

    vu = 0.0f;
    real[kMode] = 0.0f;
    // Asked once so hosts see the usual start-up conversation; the answers are not needed.
    getOutputLatency();
    getBlockSize();

    setEditor(new ADEditor(
        this, [this](VstInt32 index) { return getParameterValue(index); },
        [this] { return getStereoMeter(); },
        ADEditor::ScopeSource{[this](bool open) { engine.setScopeOpen(open); },
                              [this](float* pairs, uint32_t maxPoints)
                              { return engine.readScope(pairs, maxPoints); },
                              [this] { return getCorrelation(); }}));

    initPresets();
    CPresetSystemEffect::loadDefaults();
    CPresetSystemEffect::setPresetNo(0);

    suspend();
    resume();
    suspend();
}

Spatara::~Spatara() = default;

// ---------------------------------------------------------------- information

bool Spatara::getEffectName(char* name)
{
    std::strcpy(name, "ZEV Spatara");
    return true;
}

bool Spatara::getVendorString(char* text)
{
    std::strcpy(text, "ZEV Sound Design");
    return true;
}

bool Spatara::getProductString(char* text)
{
    std::strcpy(text, "Simple Spatara");
    return true;
}

VstInt32 Spatara::getVendorVersion()
{
    return kVendorVersion;
}

VstPlugCategory Spatara::getPlugCategory()
{
    return kPlugCategMastering;
}

VstInt32 Spatara::canDo(char* text)
{
    // Only these four; everything else is "don't know", never "no".
    for (const char* known : {"offline", "plugAsChannelInsert", "1in2out", "2in2out"})
        if (std::strcmp(text, known) == 0) return 1;
    return 0;
}

// ---------------------------------------------------------------- life cycle and processing

void Spatara::suspend()
{
    engine.suspend(getSampleRate());
    if (CPresetSystemEditor* e = presetEditor()) e->suspend();
}

void Spatara::resume()
{
    CPresetSystemEffect::resume();
    readPinConnections();
    engine.resume(getSampleRate());
}

void Spatara::readPinConnections()
{
    // Asked here rather than per block: the host callback is no place for the audio thread to go.
    secondInputConnected = isInputConnected(1);
    secondOutputConnected = isOutputConnected(1);
}

template <typename Sample> void Spatara::process(Sample** inputs, Sample** outputs, VstInt32 sampleFrames)
{
    Sample* inL = inputs[0];
    Sample* inR = inputs[1];
    if (!secondInputConnected.load(std::memory_order_relaxed) || !inR ||
        !stereoInput.load(std::memory_order_relaxed) || inR == inL)
        inR = inL;
    Sample* outL = outputs[0];
    Sample* outR = outputs[1];
    // Without a separate second output the right result lands in output 0, after the left one.
    if (!secondOutputConnected.load(std::memory_order_relaxed) || !outR ||
        !stereoOutput.load(std::memory_order_relaxed) || outR == outL)
        outR = outL;
    engine.process(inL, inR, outL, outR, sampleFrames);
}

void Spatara::processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames)
{
    process(inputs, outputs, sampleFrames);
}

void Spatara::processDoubleReplacing(double** inputs, double** outputs, VstInt32 sampleFrames)
{
    process(inputs, outputs, sampleFrames);
}

VstInt32 Spatara::getGetTailSize()
{
    // The longest delay, not the current one: automation may lengthen it after the host has asked.
    return spatara::tailLength(getSampleRate());
}

VstIntPtr Spatara::vendorSpecific(VstInt32 index, VstIntPtr value, void* ptr, float opt)
{
    if (index == kScaleRequest && value == kScaleRequestValue)
    {
        auto* editor = dynamic_cast<AEffGUIEditor*>(getEditor());
        return editor && editor->setHostScale(opt) ? 1 : 0;
    }
    if (index == kZoomRequest)
    {
        auto* editor = dynamic_cast<ADEditor*>(getEditor());
        return editor && editor->zoomTo(opt) ? 1 : 0;
    }
    if ((index != kMeterRequest && index != kCorrelationRequest) || !ptr) return 0;
    *static_cast<float*>(ptr) = index == kMeterRequest ? engine.meter() : engine.correlation();
    return 1;
}

// ---------------------------------------------------------------- pins and channel layout

bool Spatara::getInputProperties(VstInt32 index, VstPinProperties* properties)
{
    return fillPinProperties(index, "My %1d In", properties);
}

bool Spatara::getOutputProperties(VstInt32 index, VstPinProperties* properties)
{
    return fillPinProperties(index, "My %1d Out", properties);
}

bool Spatara::setSpeakerArrangement(VstSpeakerArrangement* input, VstSpeakerArrangement* output)
{
    if (input && output && output->numChannels == 2 && (input->numChannels == 1 || input->numChannels == 2))
    {
        stereoInput = input->numChannels == 2;
        stereoOutput = true;
        return true;
    }
    stereoInput = true;
    stereoOutput = true;
    return false;
}

float Spatara::getVu()
{
    const float value = vu;
    vu = 0.0f;
    return value;
}

// ---------------------------------------------------------------- parameters

void Spatara::setParameter(VstInt32 index, float value)
{
    // A NaN carries no value: it is dropped before it reaches the preset table or the engine, which glides
    // on from what it had. An infinity stands for the end of the range it points to.
    if (std::isnan(value)) return;
    if (std::isinf(value)) value = value > 0.0f ? 1.0f : 0.0f;
    if (!isApplying()) CPresetSystemEffect::setParameter(index, value);

    if (isParameter(index))
    {
        normalised[index].store(value, std::memory_order_relaxed);
        const float realValue = parameterInfo(index).toEngine(value);
        switch (index)
        {
        case kDepth:
            engine.setDepth(realValue);
            break;
        case kBaseFreq:
            engine.setBaseFrequency(realValue);
            break;
        case kWidth:
            engine.setWidth(realValue);
            break;
        case kProcess:
            engine.setProcess(realValue);
            break;
        case kPhase:
            engine.setPhase(realValue);
            break;
        case kMode:
            engine.setMode(realValue);
            break;
        default:
            break;
        }
        real[index].store(realValue, std::memory_order_relaxed);
    }

    if (CPresetSystemEditor* e = presetEditor()) e->setParameter(index, value);
}

float Spatara::getParameter(VstInt32 index)
{
    return isParameter(index) ? normalised[index].load(std::memory_order_relaxed) : 0.0f;
}

float Spatara::getParameterValue(VstInt32 index) const
{
    return isParameter(index) ? real[index].load(std::memory_order_relaxed) : 0.0f;
}

void Spatara::getParameterName(VstInt32 index, char* text)
{
    if (isParameter(index)) std::strcpy(text, parameterInfo(index).name);
}

void Spatara::getParameterLabel(VstInt32 index, char* label)
{
    std::strcpy(label, isParameter(index) ? parameterInfo(index).label : " ");
}

void Spatara::getParameterDisplay(VstInt32 index, char* text)
{
    if (isParameter(index))
        parameterInfo(index).display(getParameter(index), getParameterValue(kMode), text);
    else
        std::strcpy(text, "UNDEF");
}

bool Spatara::getParameterProperties(VstInt32 index, VstParameterProperties* properties)
{
    if (!isParameter(index)) return false;
    const spatara::ParameterInfo& info = parameterInfo(index);
    std::memset(properties, 0, sizeof(*properties));
    getParameterName(index, properties->label);
    std::snprintf(properties->shortLabel, sizeof(properties->shortLabel), "%.7s", properties->label);
    properties->flags = kVstParameterUsesFloatStep;
    if (info.kind == spatara::ParameterKind::Toggle) properties->flags |= kVstParameterIsSwitch;
    properties->stepFloat = info.step;
    properties->smallStepFloat = info.smallStep;
    properties->largeStepFloat = info.largeStep;
    return true;
}

bool Spatara::canParameterBeAutomated(VstInt32 index)
{
    return isParameter(index);
}

bool Spatara::isDummy(int index)
{
    return !isParameter(index);
}

bool Spatara::isDummyOld(int index)
{
    return !isParameter(index);
}

// ---------------------------------------------------------------- presets

void Spatara::initPresets()
{
    for (int n = 0; n < kNumPresets; ++n)
    {
        PresetRecord& record = preset(n);
        std::memset(record.name, 0, sizeof(record.name));
        std::strncpy(record.name, kFactoryPresets[n].name, kPresetNameSize - 1);
        for (int i = 0; i < kNumStoredValues; ++i)
            record.setValue(i, kFactoryPresets[n].values[i]);
    }
}
