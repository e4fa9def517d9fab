// One preset of the table: a NUL-terminated name and the six normalised parameter values.
#pragma once

#include <atomic>
#include <cstddef>

constexpr int kNumPresets = 38;     // presets the user works with (0..37)
constexpr int kNumStoredValues = 6; // stored values per preset (parameters 0..5)
constexpr int kPresetNameSize = 24; // name bytes, terminator included: at most 23 characters

struct PresetRecord
{
    char name[kPresetNameSize];
    float values[kNumStoredValues];

    PresetRecord() = default;
    // A copy takes the name as bytes and the values one by one, each whole (see value()).
    PresetRecord(const PresetRecord& other);
    PresetRecord& operator=(const PresetRecord& other);

    // One value, read or written whole: host automation stores into the current preset from its own thread
    // while the host saves or restores the chunk from another, so every access that may meet it is atomic.
    float value(int i) const
    {
        return std::atomic_ref<float>(const_cast<float&>(values[i])).load(std::memory_order_relaxed);
    }
    void setValue(int i, float v) { std::atomic_ref<float>(values[i]).store(v, std::memory_order_relaxed); }
};

static_assert(sizeof(PresetRecord) == 48, "preset records are stored and copied as 48-byte blocks");

namespace spatara
{
// Names a record: at most 23 bytes are kept, longer text is cut before the character that would not fit
// whole, never refused.
void copyPresetName(PresetRecord& record, const char* text);
} // namespace spatara
