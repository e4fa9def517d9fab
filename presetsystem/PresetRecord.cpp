#include "PresetRecord.h"

#include "Utf8Text.h"

#include <cstring>

void copyPresetName(PresetRecord& record, const char* text)
{
    // text may be the record's own name.
    const std::size_t length = utf8CutLength(text, kPresetNameSize - 1);
    std::memmove(record.name, text, length);
    std::memset(record.name + length, 0, kPresetNameSize - length);
}
