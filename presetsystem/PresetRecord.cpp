#include "PresetRecord.h"

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

void copyPresetName(PresetRecord& record, const char* text)
{
    char work[kPresetNameSize] = {};
    std::memcpy(work, text, strnlen(text, kPresetNameSize));
    if (strnlen(work, kPresetNameSize) >= kPresetNameSize - 1)
    {
        std::memcpy(record.name, work, kPresetNameSize);
        record.name[kPresetNameSize - 1] = 0;
    }
    else
    {
        std::memset(record.name, 0, kPresetNameSize);
        std::strcpy(record.name, work);
    }
}
