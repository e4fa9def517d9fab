// One preset of the table: a NUL-terminated name and the six normalised parameter values.
#pragma once

#include <cstddef>

constexpr int kNumPresets = 38;     // presets the user works with (0..37)
constexpr int kNumStoredValues = 6; // stored values per preset (parameters 0..5)
constexpr int kPresetNameSize = 24; // name bytes, terminator included: at most 23 characters

struct PresetRecord
{
    char name[kPresetNameSize];
    float values[kNumStoredValues];
};

static_assert(sizeof(PresetRecord) == 48, "preset records are stored and copied as 48-byte blocks");

// Names a record: at most 23 bytes are kept, longer text is cut before the character that would not fit
// whole, never refused.
void copyPresetName(PresetRecord& record, const char* text);
