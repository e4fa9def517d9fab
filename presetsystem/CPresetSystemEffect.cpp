#include "CPresetSystemEffect.h"

#include "CPresetSystemEditor.h"

#include <cstring>

namespace
{
constexpr VstInt32 kHostPrograms = 1;

bool isNormalised(float value)
{
    return value >= 0.0f && value <= 1.0f;
} // NaN fails
} // namespace

CPresetSystemEffect::CPresetSystemEffect(audioMasterCallback audioMaster)
    : AudioEffectX(audioMaster, kHostPrograms, kNumStoredValues), presets(kNumPresets),
      oldChunkScratch(kOldChunkScratchSize), chunkBuffer(kChunkBufferSize)
{
    programsAreChunks(true);
    curProgram = 0;
    defaultRecord = presets[0];
    // Set and cleared once, as at every preset change; the table is still all zero here.
    applying = true;
    applying = false;
}

CPresetSystemEffect::~CPresetSystemEffect() = default;

void CPresetSystemEffect::setProgram(VstInt32) {}

VstInt32 CPresetSystemEffect::getProgram()
{
    return 0;
}

void CPresetSystemEffect::setProgramName(char* name)
{
    spatara::copyPresetName(preset(getPresetNo()), name);
    if (CPresetSystemEditor* e = presetEditor()) e->nameChangedExternal(name);
}

void CPresetSystemEffect::getProgramName(char* text)
{
    // Hosts hand over more than the 24 bytes of a program name; the 25th byte always terminates.
    std::memcpy(text, preset(getPresetNo()).name, kPresetNameSize);
    text[kPresetNameSize] = 0;
}

bool CPresetSystemEffect::getProgramNameIndexed(VstInt32, VstInt32 index, char* text)
{
    if (index < 0 || index >= kNumPresets) return false;
    std::memcpy(text, preset(index).name, kPresetNameSize);
    text[kPresetNameSize] = 0;
    return true;
}

void CPresetSystemEffect::setParameter(VstInt32 index, float value)
{
    if (index < 0 || index >= kNumStoredValues) return;
    // Automation may arrive on the audio thread while the UI thread reads the table.
    preset(getPresetNo()).setValue(index, value);
}

float CPresetSystemEffect::getParameter(VstInt32 index)
{
    if (index < 0 || index >= kNumStoredValues) return -1.0f;
    return preset(getPresetNo()).value(index);
}

long CPresetSystemEffect::getPresetNo() const
{
    return presetNo.load(std::memory_order_relaxed);
}

void CPresetSystemEffect::setPresetNo(long n)
{
    if (n < 0 || n >= kNumPresets) return; // there is no such preset; the current one stays
    applying = true;
    curProgram = 0;
    presetNo = n;
    for (int i = 0; i < kNumStoredValues; ++i)
    {
        const float value = preset(n).value(i);
        if (isNormalised(value)) // a value out of range is skipped and the effect keeps its own
            setParameter(i, value);
    }
    updateDisplay();
    // Hosts that only save automation after a gesture learn of every preset change this way, on purpose.
    beginEdit(0);
    endEdit(0);
    applying = false;
}

void CPresetSystemEffect::setPresetName(const char* name)
{
    curProgram = 0;
    if (name) spatara::copyPresetName(preset(getPresetNo()), name);
    updateDisplay();
}

VstInt32 CPresetSystemEffect::getUniqueID() const
{
    return cEffect.uniqueID;
}

void CPresetSystemEffect::initializePreset(long n)
{
    if (n < 0 || n >= kNumPresets) return;
    preset(n) = defaultRecord;
}

void CPresetSystemEffect::loadDefaults()
{
    defaultRecord = preset(0);
    if (CPresetSystemEditor* e = presetEditor()) e->loadDefaults();
}

CPresetSystemEditor* CPresetSystemEffect::presetEditor() const
{
    return static_cast<CPresetSystemEditor*>(editor);
}
