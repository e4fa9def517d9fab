#include "PresetRecord.h"

#include "Utf8Text.h"

#include <cstring>

PresetRecord::PresetRecord(const PresetRecord& other)
{
    *this = other;
}

PresetRecord& PresetRecord::operator=(const PresetRecord& other)
{
    std::memcpy(name, other.name, kPresetNameSize);
    for (int i = 0; i < kNumStoredValues; ++i)
        setValue(i, other.value(i));
    return *this;
}

namespace spatara
{
void copyPresetName(PresetRecord& record, const char* text)
{
    // text may be the record's own name.
    const std::size_t length = utf8CutLength(text, kPresetNameSize - 1);
    std::memmove(record.name, text, length);
    std::memset(record.name + length, 0, kPresetNameSize - length);
}
} // namespace spatara
