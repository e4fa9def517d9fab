#include "SpataraDpfPlugin.h"

#include "Base64.h"
#include "FactoryPresets.h"
#include "ParameterTable.h"
#include "Spatara.h"
#include "SpataraVersion.h"

#include <cstdio>
#include <cstring>
#include <optional>
#include <vector>

namespace spatara
{
namespace
{
constexpr const char* kBankKey = "bank";
constexpr int kMeterCount = 2; // the balance and the correlation
constexpr int kStateCount = 1;
constexpr int kHostBypassCount = SPATARA_HOST_BYPASS;
} // namespace

SpataraDpfPlugin::SpataraDpfPlugin() : Plugin(kNumParameters + kMeterCount + kHostBypassCount, 0, kStateCount)
{
    effect = new Spatara(&SpataraDpfPlugin::answer);
    vst = effect->getAeffect();
    vst->user = this;
    // The same opening a VST 2.4 host gives it, so the two editions start from the same place.
    dispatch(effOpen, 0, 0, nullptr, 0.0f);
    dispatch(effSetSampleRate, 0, 0, nullptr, static_cast<float>(getSampleRate()));
    dispatch(effSetBlockSize, 0, static_cast<VstIntPtr>(getBufferSize()), nullptr, 0.0f);
}

SpataraDpfPlugin::~SpataraDpfPlugin()
{
    dispatch(effClose, 0, 0, nullptr, 0.0f); // deletes the effect
}

VstIntPtr SpataraDpfPlugin::dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                                     float opt) const
{
    return vst->dispatcher(vst, opcode, index, value, ptr, opt);
}

VstIntPtr SpataraDpfPlugin::answer(AEffect* e, VstInt32 opcode, VstInt32 index, VstIntPtr value, void*,
                                   float opt)
{
    // Called from the effect's constructor too, before user is set: then only the version has an answer.
    const auto* self = e ? static_cast<const SpataraDpfPlugin*>(e->user) : nullptr;
    EditListener* listener = self ? self->editListener : nullptr;
    switch (opcode)
    {
    case audioMasterVersion:
        return kVstVersion;
    // Edits in the effect's editor, on the UI thread: the UI passes them on to the host.
    case audioMasterAutomate:
        if (listener) listener->parameterEdited(static_cast<uint32_t>(index), opt);
        return 0;
    case audioMasterBeginEdit:
    case audioMasterEndEdit:
        if (listener) listener->editGesture(static_cast<uint32_t>(index), opcode == audioMasterBeginEdit);
        return 1;
    case audioMasterUpdateDisplay:
        if (listener) listener->parametersChanged();
        return 1;
    case audioMasterSizeWindow:
        return listener && listener->editorResized(index, static_cast<int>(value)) ? 1 : 0;
    case audioMasterGetSampleRate:
        return self ? static_cast<VstIntPtr>(self->getSampleRate()) : 0;
    case audioMasterGetBlockSize:
        return self ? static_cast<VstIntPtr>(self->getBufferSize()) : 0;
    default:
        // Among them audioMasterPinConnected, where 0 means connected: both pins always are.
        return 0;
    }
}

// ---------------------------------------------------------------- information

const char* SpataraDpfPlugin::getDescription() const
{
    return "Stereo enhancement: widens or emphasises a stereo image without touching the sum of its "
           "channels.";
}

uint32_t SpataraDpfPlugin::getVersion() const
{
    return d_version(SPATARA_VENDOR_VERSION / 1000, SPATARA_VENDOR_VERSION / 100 % 10,
                     SPATARA_VENDOR_VERSION / 10 % 10);
}

int64_t SpataraDpfPlugin::getUniqueId() const
{
    return vst->uniqueID;
}

// ---------------------------------------------------------------- ports and parameters

void SpataraDpfPlugin::initAudioPort(bool input, uint32_t index, DISTRHO::AudioPort& port)
{
    port.groupId = DISTRHO::kPortGroupStereo;
    Plugin::initAudioPort(input, index, port);
}

void SpataraDpfPlugin::initParameter(uint32_t index, DISTRHO::Parameter& parameter)
{
    // The two meters, outputs for hosts to show or record.
    const auto output = [&parameter](const char* name, const char* description, float minimum, float maximum)
    {
        parameter.hints = DISTRHO::kParameterIsOutput;
        parameter.name = name;
        parameter.symbol = name;
        parameter.description = description;
        parameter.ranges = DISTRHO::ParameterRanges(0.0f, minimum, maximum);
    };
    if (index == kMeterIndex)
        return output("meter", "The balance meter, from -0.5 (anti-phase) to +0.5 (mono)", -0.5f, 0.5f);
    if (index == kCorrelationIndex)
        return output("correlation",
                      "The output's phase correlation, from -1 (one channel inverted) to +1 (mono)", -1.0f,
                      1.0f);
#if SPATARA_HOST_BYPASS
    if (index == kBypassIndex)
    {
        parameter.initDesignation(DISTRHO::kParameterDesignationBypass);
        return;
    }
#endif
    if (!isParameter(static_cast<int>(index))) return;
    const ParameterInfo& info = parameterInfo(static_cast<int>(index));
    parameter.hints = DISTRHO::kParameterIsAutomatable;
    if (info.kind == ParameterKind::Toggle) parameter.hints |= DISTRHO::kParameterIsBoolean;
    if (info.kind == ParameterKind::Enumeration) parameter.hints |= DISTRHO::kParameterIsInteger;
    parameter.name = info.name;
    parameter.symbol = info.symbol;
    parameter.unit = info.unit;
    parameter.ranges =
        DISTRHO::ParameterRanges(info.toUnit(kFactoryPresets[0].values[index]), info.minimum, info.maximum);
    // Toggles and the mode show the words the VST 2.4 plug-in shows.
    if (info.valueNames)
    {
        auto* values = new DISTRHO::ParameterEnumerationValue[info.valueNameCount];
        for (int i = 0; i < info.valueNameCount; ++i)
        {
            values[i].value = static_cast<float>(i);
            values[i].label = info.valueNames[i];
        }
        parameter.enumValues.count = static_cast<uint8_t>(info.valueNameCount);
        parameter.enumValues.restrictedMode = true;
        parameter.enumValues.values = values;
    }
}

float SpataraDpfPlugin::getParameterValue(uint32_t index) const
{
    if (index == kMeterIndex) return effect->getStereoMeter();
    if (index == kCorrelationIndex) return effect->getCorrelation();
#if SPATARA_HOST_BYPASS
    // Bypassed is the effect's "process" off.
    if (index == kBypassIndex)
        return switchFromNormalised(vst->getParameter(vst, kProcess)) >= 0.5f ? 0.0f : 1.0f;
#endif
    if (!isParameter(static_cast<int>(index))) return 0.0f;
    return parameterInfo(static_cast<int>(index))
        .toUnit(vst->getParameter(vst, static_cast<VstInt32>(index)));
}

void SpataraDpfPlugin::setParameterValue(uint32_t index, float value)
{
#if SPATARA_HOST_BYPASS
    if (index == kBypassIndex)
    {
        vst->setParameter(vst, kProcess, value > 0.5f ? 0.0f : 1.0f);
        return;
    }
#endif
    if (!isParameter(static_cast<int>(index))) return;
    // A port that shows what the effect already has changes nothing: an edit in the editor comes back
    // from the host this way, and a restored bank meets the ports it was saved with.
    if (getParameterValue(index) == value) return;
    vst->setParameter(vst, static_cast<VstInt32>(index),
                      parameterInfo(static_cast<int>(index)).fromUnit(value));
}

// ---------------------------------------------------------------- state

void SpataraDpfPlugin::initState(uint32_t, DISTRHO::State& state)
{
    state.key = kBankKey;
    state.label = "Bank";
    state.description = "The whole bank: presets, names and the current preset";
}

DISTRHO::String SpataraDpfPlugin::getState(const char* key) const
{
    if (std::strcmp(key, kBankKey) != 0) return DISTRHO::String();
    void* data = nullptr;
    const auto size = dispatch(effGetChunk, 0, 0, &data, 0.0f);
    if (size <= 0 || !data) return DISTRHO::String();
    const auto* bytes = static_cast<const unsigned char*>(data);
    return DISTRHO::String(base64Encode(std::vector<unsigned char>(bytes, bytes + size)).c_str());
}

void SpataraDpfPlugin::setState(const char* key, const char* value)
{
    // An empty value is a fresh instance's default: the bank stays as the effect made it.
    if (std::strcmp(key, kBankKey) != 0 || !value || !*value) return;
    // The preferences' own base64, which refuses what is not base64 rather than skipping it.
    std::optional<std::vector<unsigned char>> bytes = base64Decode(value);
    bool taken = false;
    if (bytes && !bytes->empty())
    {
        // LV2 hosts restore a session into a running instance, where a VST 2.4 host gives the chunk before
        // it switches the effect on. Switched off and on around it, the effect starts on the restored values
        // instead of gliding to them, as it does there. No host runs the plug-in while it restores.
        const bool wasActive = active;
        if (wasActive) dispatch(effMainsChanged, 0, 0, nullptr, 0.0f);
        // The effect checks the bytes and refuses a bad bank, keeping its presets. It answers 0 once its bank
        // reader has run, taken or not, so the verdict is asked for separately.
        taken = dispatch(effSetChunk, 0, static_cast<VstIntPtr>(bytes->size()), bytes->data(), 0.0f) == 0 &&
                effect->lastChunkTaken();
        if (wasActive) dispatch(effMainsChanged, 0, 1, nullptr, 0.0f);
    }
    if (!taken)
        std::fputs("ZEV Spatara: the bank in the saved state is damaged; the bank is kept as it was\n",
                   stderr);
}

// ---------------------------------------------------------------- processing

void SpataraDpfPlugin::activate()
{
    dispatch(effMainsChanged, 0, 1, nullptr, 0.0f);
    // A VST 2.4 host sets the parameters before it switches the effect on, which then starts on them. Hosts
    // of these formats hand the values they set before over with the first block instead (LV2 ports,
    // VST3 and CLAP events): those are taken as a jump too, and only later changes glide.
    effect->jumpAtNextBlock();
    active = true;
}

void SpataraDpfPlugin::deactivate()
{
    active = false;
    dispatch(effMainsChanged, 0, 0, nullptr, 0.0f);
}

void SpataraDpfPlugin::sampleRateChanged(double newSampleRate)
{
    dispatch(effSetSampleRate, 0, 0, nullptr, static_cast<float>(newSampleRate));
}

void SpataraDpfPlugin::bufferSizeChanged(uint32_t newBufferSize)
{
    dispatch(effSetBlockSize, 0, static_cast<VstIntPtr>(newBufferSize), nullptr, 0.0f);
}

void SpataraDpfPlugin::run(const float** inputs, float** outputs, uint32_t frames)
{
    // The effect only reads its inputs; the VST 2.4 signature just does not say so.
    float* in[2] = {const_cast<float*>(inputs[0]), const_cast<float*>(inputs[1])};
    vst->processReplacing(vst, in, outputs, static_cast<VstInt32>(frames));
}
} // namespace spatara

START_NAMESPACE_DISTRHO

Plugin* createPlugin()
{
    return new spatara::SpataraDpfPlugin();
}

END_NAMESPACE_DISTRHO
