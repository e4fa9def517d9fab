// CPresetSystemEditor: the preset, bank and MIDI-map images (writers and bounds-checked readers).
#include "CPresetSystemEditor.h"

#include "CPresetSystemEffect.h"
#include "ImageReader.h"
#include "ImageWriter.h"
#include "ParamConversion.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace
{
constexpr std::size_t kNameChunkSize = kChunkHeadSize + kNamePayloadSize;
constexpr std::size_t kValueChunkSize = kChunkHeadSize + kValuePayloadSize;

bool isNormalised(float value)
{
    return value >= 0.0f && value <= 1.0f;
} // NaN fails

// One chunk of an image: its head, and where its payload starts.
struct ChunkView
{
    std::int32_t type;
    std::int32_t size;
    std::int32_t presetIndex;
    std::size_t payload;
};

// Walks the chunks of an image, refusing any chunk that claims more bytes than are there.
class ChunkWalker
{
  public:
    explicit ChunkWalker(const ImageReader& reader) : reader(reader) {}

    // The next chunk, or false when the image ends before it does.
    bool next(ChunkView& chunk)
    {
        if (!reader.has(offset, kChunkHeadSize)) return false;
        chunk.type = reader.int32At(offset);
        chunk.size = reader.int32At(offset + 4);
        chunk.presetIndex = reader.int32At(offset + 8);
        chunk.payload = offset + kChunkHeadSize;
        if (chunk.size < 0 || !reader.has(chunk.payload, static_cast<std::size_t>(chunk.size))) return false;
        offset = chunk.payload + static_cast<std::size_t>(chunk.size);
        return true;
    }

  private:
    const ImageReader& reader;
    std::size_t offset = 0;
};

// A copy of the whole table, put back when an image is refused half-way.
class TableSnapshot
{
  public:
    explicit TableSnapshot(CPresetSystemEffect& effect) : effect(effect), records(kNumPresets)
    {
        for (int n = 0; n < kNumPresets; ++n)
            records[static_cast<std::size_t>(n)] = effect.preset(n);
    }

    bool restore()
    {
        for (int n = 0; n < kNumPresets; ++n)
            effect.preset(n) = records[static_cast<std::size_t>(n)];
        return false;
    }

  private:
    CPresetSystemEffect& effect;
    std::vector<PresetRecord> records;
};

// Whether a chunk's fields lie within the image. A chunk may declare fewer bytes than its fields take: the
// fields are then read from what follows it in the image, and the next chunk still starts where the declared
// size says, as images have always been read.
bool hasFields(const ImageReader& reader, const ChunkView& chunk, std::size_t needed)
{
    return reader.has(chunk.payload, needed);
}

void copyName(PresetRecord& record, const char* name)
{
    std::memcpy(record.name, name, kPresetNameSize);
    record.name[kPresetNameSize - 1] = 0; // an image may carry 24 characters; the table keeps 23
}

// A bank value out of range is repaired and reported rather than refused, on save as on load, so that one bad
// value never costs the user the other presets. A NaN, which no comparison catches, counts as out of range
// and becomes the bottom of it.
float repairedValue(const char* when, int parameter, float value, long presetIndex, const char* name)
{
    if (isNormalised(value)) return value;
    std::fprintf(stderr, "Invalid parameter %d value %f on %s of preset %ld %s\n", parameter,
                 static_cast<double>(value), when, presetIndex, name);
    return value > 1.0f ? 1.0f : 0.0f;
}
} // namespace

// ---------------------------------------------------------------- writers

newpresetheader CPresetSystemEditor::makeHeader(char fileType, std::int32_t numChunks,
                                                std::int32_t currentPreset, std::int32_t dataSize) const
{
    newpresetheader header{};
    header.uniqueID = presetEffect()->getUniqueID();
    header.fileType = fileType;
    header.version = kPresetImageVersion;
    header.numParams = kNumStoredValues;
    header.numChunks = numChunks;
    header.currentPreset = currentPreset;
    header.dataSize = dataSize;
    return header;
}

int CPresetSystemEditor::storedValueCount() const
{
    int count = 0;
    for (int i = 0; i < kNumStoredValues; ++i)
        if (!presetEffect()->isDummy(i)) ++count;
    return count;
}

std::vector<char> CPresetSystemEditor::PresetToBuffer()
{
    CPresetSystemEffect* fx = presetEffect();
    const int values = storedValueCount();
    const auto dataSize = static_cast<std::int32_t>(kNameChunkSize + values * kValueChunkSize);
    ImageWriter writer(sizeof(newpresetheader) + static_cast<std::size_t>(dataSize));
    writer.header(makeHeader(kFileTypePreset, 1 + values, 0, dataSize));

    const PresetRecord& record = fx->preset(fx->getPresetNo());
    writer.nameChunk(0, record.name);
    // The values as they are: a preset is saved without range check.
    for (int i = 0; i < kNumStoredValues; ++i)
        if (!fx->isDummy(i)) writer.valueChunk(kChunkValue, 0, i, record.value(i));
    return writer.take();
}

std::vector<char> CPresetSystemEditor::BankToBuffer()
{
    CPresetSystemEffect* fx = presetEffect();
    const int values = storedValueCount();
    const std::size_t perPreset = kNameChunkSize + static_cast<std::size_t>(values) * kValueChunkSize;
    const auto dataSize = static_cast<std::int32_t>(perPreset * kNumPresets);
    ImageWriter writer(sizeof(newpresetheader) + static_cast<std::size_t>(dataSize));
    writer.header(makeHeader(kFileTypeBank, (1 + values) * kNumPresets,
                             static_cast<std::int32_t>(fx->getPresetNo()), dataSize));

    for (int n = 0; n < kNumPresets; ++n)
    {
        const PresetRecord& record = fx->preset(n);
        writer.nameChunk(n, record.name);
        // A bank is repaired on save (the table is not).
        for (int i = 0; i < kNumStoredValues; ++i)
            if (!fx->isDummy(i))
                writer.valueChunk(kChunkValue, n, i,
                                  repairedValue("save", i, record.value(i), n, record.name));
    }
    return writer.take();
}

std::vector<char> CPresetSystemEditor::MidiToBuffer()
{
    CPresetSystemEffect* fx = presetEffect();
    const int values = storedValueCount();
    const auto dataSize = static_cast<std::int32_t>(values * kValueChunkSize);
    ImageWriter writer(sizeof(newpresetheader) + static_cast<std::size_t>(dataSize));
    writer.header(makeHeader(kFileTypeMidiMap, values, 0, dataSize));
    // The assignment travels as a parameter.
    for (int i = 0; i < kNumStoredValues; ++i)
        if (!fx->isDummy(i))
            writer.valueChunk(kChunkMidiAssignment, 0, i, fx->getParameter(i + kNumStoredValues));
    return writer.take();
}

// ---------------------------------------------------------------- readers

void CPresetSystemEditor::presentLoadedPreset(long n)
{
    CPresetSystemEffect* fx = presetEffect();
    const char* name = fx->preset(n).name;
    showPresetName(name);
    setListEntryTitle(n, name);
    fx->setPresetName(name);
    fx->setPresetNo(n);
}

bool CPresetSystemEditor::BufferToPreset(const char* chunks, std::size_t length,
                                         const newpresetheader* header, bool swap)
{
    CPresetSystemEffect* fx = presetEffect();
    const long n = fx->getPresetNo();
    const PresetRecord saved = fx->preset(n);

    // Re-initialised first, so whatever the image does not carry takes its default.
    fx->initializePreset(n);
    // A negative count stops here and the preset stays re-initialised: long-standing behaviour, kept.
    if (header->numChunks < 0) return false;

    const ImageReader reader(chunks, length, swap);
    ChunkWalker walker(reader);
    PresetRecord& record = fx->preset(n);
    for (std::int32_t c = 0; c < header->numChunks; ++c)
    {
        ChunkView chunk{};
        bool valid = walker.next(chunk);
        if (valid && chunk.type == kChunkName)
        {
            valid = hasFields(reader, chunk, kPresetNameSize);
            if (valid)
            {
                copyName(record, reader.at(chunk.payload));
                setListEntryTitle(n, record.name);
            }
        }
        else if (valid && chunk.type == kChunkValue)
        {
            valid = hasFields(reader, chunk, kValueOffsetInPayload + 4);
            if (valid)
            {
                const auto parameter = static_cast<std::uint32_t>(reader.int32At(chunk.payload));
                const float value = reader.floatAt(chunk.payload + kValueOffsetInPayload);
                if (parameter < static_cast<std::uint32_t>(kNumStoredValues))
                {
                    valid = isNormalised(value);
                    if (valid) record.setValue(static_cast<int>(parameter), value);
                }
            }
        }
        if (!valid)
        {
            fx->preset(n) = saved;
            return false;
        }
    }

    presentLoadedPreset(n);
    return true;
}

bool CPresetSystemEditor::BufferToBank(const char* chunks, std::size_t length, const newpresetheader* header,
                                       bool swap)
{
    CPresetSystemEffect* fx = presetEffect();
    if (header->numChunks < 0) return false;
    std::int32_t current = header->currentPreset;
    if (current < 0 || current >= kNumPresets) current = 0;

    TableSnapshot saved(*fx);

    const ImageReader reader(chunks, length, swap);
    ChunkWalker walker(reader);
    for (std::int32_t c = 0; c < header->numChunks; ++c)
    {
        ChunkView chunk{};
        if (!walker.next(chunk)) return saved.restore();
        if (chunk.presetIndex < 0 || chunk.presetIndex >= kNumPresets) continue;
        PresetRecord& record = fx->preset(chunk.presetIndex);
        if (chunk.type == kChunkName)
        {
            if (!hasFields(reader, chunk, kPresetNameSize)) return saved.restore();
            fx->initializePreset(chunk.presetIndex);
            copyName(record, reader.at(chunk.payload));
            setListEntryTitle(chunk.presetIndex, record.name);
        }
        else if (chunk.type == kChunkValue)
        {
            if (!hasFields(reader, chunk, kValueOffsetInPayload + 4)) return saved.restore();
            const auto parameter = static_cast<std::uint32_t>(reader.int32At(chunk.payload));
            const float value = repairedValue("load", static_cast<int>(parameter),
                                              reader.floatAt(chunk.payload + kValueOffsetInPayload),
                                              chunk.presetIndex, record.name);
            if (parameter < static_cast<std::uint32_t>(kNumStoredValues))
                record.setValue(static_cast<int>(parameter), value);
        }
    }

    selectListEntry(current);
    showPresetName(fx->preset(current).name);
    fx->setPresetNo(current);
    return true;
}

bool CPresetSystemEditor::BufferToMidi(const char* chunks, std::size_t length, const newpresetheader* header,
                                       bool swap)
{
    CPresetSystemEffect* fx = presetEffect();
    if (header->numChunks < 1) return false;
    const ImageReader reader(chunks, length, swap);
    ChunkWalker walker(reader);
    for (std::int32_t c = 0; c < header->numChunks; ++c)
    {
        ChunkView chunk{};
        if (!walker.next(chunk)) return false; // assignments already made are kept, as with a bad value
        if (chunk.type != kChunkMidiAssignment || !hasFields(reader, chunk, kValueOffsetInPayload + 4))
            continue;
        const auto parameter = static_cast<std::uint32_t>(reader.int32At(chunk.payload));
        const float value = reader.floatAt(chunk.payload + kValueOffsetInPayload);
        if (parameter < static_cast<std::uint32_t>(kNumStoredValues) && isNormalised(value))
            fx->setParameter(static_cast<VstInt32>(parameter) + kNumStoredValues, value);
    }
    return true;
}

bool CPresetSystemEditor::BufferToPresetOld(const char* data, std::size_t length, bool swap, int numValues)
{
    CPresetSystemEffect* fx = presetEffect();
    const int values = std::clamp(numValues, 0, kNumStoredValues);
    const ImageReader reader(data, length, swap);
    if (!reader.has(0, kPresetNameSize + static_cast<std::size_t>(values) * 4)) return false;

    const long n = fx->getPresetNo();
    const PresetRecord saved = fx->preset(n);
    fx->initializePreset(n);
    PresetRecord& record = fx->preset(n);
    copyName(record, reader.at(0));
    for (int j = 0; j < values; ++j)
    {
        if (fx->isDummyOld(j)) continue; // still occupies its four bytes
        const float value = reader.floatAt(kPresetNameSize + static_cast<std::size_t>(j) * 4);
        if (!isNormalised(value))
        {
            fx->preset(n) = saved;
            return false;
        }
        record.setValue(j, value);
    }

    presentLoadedPreset(n);
    return true;
}

bool CPresetSystemEditor::BufferToBankOld(const char* data, std::size_t length, bool swap, int numPresets,
                                          int numValues)
{
    CPresetSystemEffect* fx = presetEffect();
    const int values = std::clamp(numValues, 0, kNumStoredValues);
    const int presets = std::clamp(numPresets, 0, kNumPresets);
    const std::size_t stride = static_cast<std::size_t>(values) * 4 + kPresetNameSize;
    const ImageReader reader(data, length, swap);
    if (!reader.has(0, stride * static_cast<std::size_t>(presets))) return false;

    TableSnapshot saved(*fx);
    for (int n = 0; n < presets; ++n)
    {
        const std::size_t base = static_cast<std::size_t>(n) * stride;
        fx->initializePreset(n);
        PresetRecord& record = fx->preset(n);
        copyName(record, reader.at(base));
        setListEntryTitle(n, record.name);
        for (int j = 0; j < values; ++j)
        {
            if (fx->isDummyOld(j)) continue;
            const float value = reader.floatAt(base + kPresetNameSize + static_cast<std::size_t>(j) * 4);
            if (!isNormalised(value)) return saved.restore();
            record.setValue(j, value);
        }
    }

    // An old bank always ends on preset 0, whatever was current.
    selectListEntry(0);
    showPresetName(fx->preset(0).name);
    fx->setPresetNo(0);
    return true;
}

bool CPresetSystemEditor::BufferToMidiOld(const char* data, std::size_t length, bool swap, int count)
{
    CPresetSystemEffect* fx = presetEffect();
    const ImageReader reader(data, length, swap);
    const int values = std::clamp(count, 0, kNumStoredValues);
    for (int j = 0; j < values; ++j)
    {
        if (fx->isDummyOld(j)) continue;
        if (!reader.has(static_cast<std::size_t>(j) * 4, 4)) return false;
        const float value = reader.floatAt(static_cast<std::size_t>(j) * 4);
        if (!isNormalised(value)) return false; // stops here; assignments already made stay
        fx->setParameter(j + kNumStoredValues, value);
    }
    return true;
}
