// The presets the effect ships with, in table order (slot 1 is preset 0).
#pragma once

#include "PresetRecord.h"

#include <array>

struct FactoryPreset
{
    const char* name;
    float values[kNumStoredValues]; // depth, baseFreq, wdth/emph, process, phase, mode (normalised)
};

extern const std::array<FactoryPreset, kNumPresets> kFactoryPresets;
