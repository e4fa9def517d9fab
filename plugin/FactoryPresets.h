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

// The factory presets that no earlier one repeats by name and values, in table order: the ones a host lists
// (the later "init" slots are left out). Neither allocates.
int distinctFactoryPresetCount();
// The table index of the n-th of them, 0 <= n < distinctFactoryPresetCount(); -1 outside that.
int distinctFactoryPresetIndex(int n);
