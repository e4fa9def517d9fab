// CPresetSystemEffect: the host chunk, in which the host keeps the whole bank with its project.
#include "CPresetSystemEditor.h"
#include "CPresetSystemEffect.h"
#include "ImageReader.h"
#include "ParamConversion.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr std::size_t kOldChunkHeadSize = 32;

std::int32_t readNative(const void* p)
{
    std::int32_t value;
    std::memcpy(&value, p, sizeof(value));
    return value;
}

std::int32_t swapped32(std::int32_t value)
{
    spatara::mySwapBytes(&value);
    return value;
}
} // namespace

VstInt32 CPresetSystemEffect::getChunk(void** data, bool)
{
    // A single program is never asked for alone: the host always gets the whole bank.
    CPresetSystemEditor* e = presetEditor();
    if (!e) return 0;
    std::fill(chunkBuffer.begin(), chunkBuffer.end(), 0);
    const std::vector<char> bank = e->BankToBuffer();
    if (bank.empty() || bank.size() + kHostChunkHeadSize > chunkBuffer.size()) return 0;
    std::memcpy(chunkBuffer.data(), &kChunkVersion, 4);
    const std::int32_t id = getUniqueID();
    std::memcpy(chunkBuffer.data() + 4, &id, 4);
    std::memcpy(chunkBuffer.data() + kHostChunkHeadSize, bank.data(), bank.size());
    *data = chunkBuffer.data();
    return static_cast<VstInt32>(bank.size() + kHostChunkHeadSize);
}

VstInt32 CPresetSystemEffect::setChunk(void* data, VstInt32 byteSize, bool isPreset)
{
    chunkTaken = false;
    CPresetSystemEditor* e = presetEditor();
    if (!e || !data || byteSize < kHostChunkHeadSize) return -1;
    const auto* bytes = static_cast<const char*>(data);
    std::memcpy(oldChunkScratch.data(), bytes, kHostChunkHeadSize);

    const std::int32_t id = readNative(oldChunkScratch.data() + 4);
    bool swapped;
    if (id == getUniqueID())
        swapped = false;
    else if (id == swapped32(getUniqueID()))
        swapped = true;
    else
        return -1;
    std::int32_t version = readNative(oldChunkScratch.data());
    if (swapped) version = swapped32(version);

    if (version == kOldChunkVersion) return setChunkOld(data, byteSize, isPreset, swapped);
    if (version != kChunkVersion) return -1;

    const auto size = static_cast<std::size_t>(byteSize);
    if (size < kHostChunkHeadSize + sizeof(newpresetheader)) return -1;
    newpresetheader header;
    std::memcpy(&header, bytes + kHostChunkHeadSize, sizeof(header));
    if (swapped) spatara::byteSwapHeader(&header);
    const std::size_t chunksAt = kHostChunkHeadSize + sizeof(newpresetheader);
    // Once the bank reader has run the chunk counts as taken, also when the reader refused the bank and
    // put the table back: -1 is kept for chunks that are not ours or that carry no bank at all.
    chunkTaken = e->BufferToBank(bytes + chunksAt, size - chunksAt, &header, swapped);
    return 0;
}

VstInt32 CPresetSystemEffect::setChunkOld(void* data, VstInt32 byteSize, bool, bool swapped)
{
    if (!data || byteSize < static_cast<VstInt32>(kOldChunkHeadSize)) return -1;
    const auto size = static_cast<std::size_t>(byteSize);
    std::fill(oldChunkScratch.begin(), oldChunkScratch.end(), 0);
    std::memcpy(oldChunkScratch.data(), data, std::min(size, oldChunkScratch.size()));

    const ImageReader head(reinterpret_cast<const char*>(oldChunkScratch.data()), kOldChunkHeadSize, swapped);
    const std::int32_t storedPresets = head.int32At(8);
    const std::int32_t current = head.int32At(12);
    if (storedPresets <= 0) return -1; // nothing to read, and nothing to divide by

    const std::size_t perPreset = (size - kOldChunkHeadSize) / static_cast<std::size_t>(storedPresets);
    if (perPreset < kPresetNameSize) return -1;
    const std::size_t storedValues = (perPreset - kPresetNameSize) / 4;
    // The stride follows the values the chunk stores; only the values read are capped at six.
    const std::size_t stride = storedValues * 4 + kPresetNameSize;
    const std::size_t values = std::min<std::size_t>(storedValues, kNumStoredValues);
    const std::size_t presets = std::min<std::size_t>(static_cast<std::size_t>(storedPresets), kNumPresets);
    // Everything is read from the scratch: records that do not fit in it, or that the chunk does not hold,
    // are refused.
    if (kOldChunkHeadSize + presets * stride > std::min(size, oldChunkScratch.size())) return -1;

    const ImageReader records(reinterpret_cast<const char*>(oldChunkScratch.data()), oldChunkScratch.size(),
                              swapped);
    for (std::size_t i = 0; i < presets; ++i)
    {
        const std::size_t base = kOldChunkHeadSize + i * stride;
        const long n = static_cast<long>(i);
        initializePreset(n);
        PresetRecord& record = preset(n);
        std::memcpy(record.name, records.at(base), kPresetNameSize);
        record.name[kPresetNameSize - 1] = 0;
        for (std::size_t j = 0; j < values; ++j)
        {
            if (isDummyOld(static_cast<int>(j))) continue;
            const float value = records.floatAt(base + kPresetNameSize + j * 4);
            // Refused at the first bad value; the presets read so far stay, as they always have.
            if (!(value >= 0.0f && value <= 1.0f)) return -1;
            record.setValue(static_cast<int>(j), value);
        }
    }
    setPresetNo(current < 0 || current > kNumPresets - 1 ? 0 : current);
    chunkTaken = true;
    return 0;
}
