#include "ImageBytes.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

namespace
{
constexpr std::size_t kHeaderSize = 41;
constexpr std::size_t kChunkHead = 12;
} // namespace

std::int32_t int32At(const Bytes& image, std::size_t offset)
{
    std::int32_t value;
    std::memcpy(&value, image.data() + offset, 4);
    return value;
}

float floatAt(const Bytes& image, std::size_t offset)
{
    float value;
    std::memcpy(&value, image.data() + offset, 4);
    return value;
}

void putInt32(Bytes& image, std::size_t offset, std::int32_t value)
{
    std::memcpy(image.data() + offset, &value, 4);
}

void putFloat(Bytes& image, std::size_t offset, float value)
{
    std::memcpy(image.data() + offset, &value, 4);
}

void reverseWord(Bytes& image, std::size_t offset)
{
    std::reverse(image.begin() + static_cast<std::ptrdiff_t>(offset),
                 image.begin() + static_cast<std::ptrdiff_t>(offset + 4));
}

Bytes reversedImage(const Bytes& image)
{
    Bytes out = image;
    reverseWord(out, 0);
    for (std::size_t offset = 5; offset < kHeaderSize; offset += 4)
        reverseWord(out, offset);
    std::size_t offset = kHeaderSize;
    while (offset + kChunkHead <= image.size())
    {
        const std::int32_t type = int32At(image, offset);
        const std::int32_t size = int32At(image, offset + 4);
        for (std::size_t word = 0; word < kChunkHead; word += 4)
            reverseWord(out, offset + word);
        if (type != 0)
            for (std::size_t word = 0; word + 4 <= static_cast<std::size_t>(size); word += 4)
                reverseWord(out, offset + kChunkHead + word);
        offset += kChunkHead + static_cast<std::size_t>(size);
    }
    return out;
}

Bytes reversedHostChunk(const Bytes& chunk)
{
    Bytes head(chunk.begin(), chunk.begin() + 8);
    reverseWord(head, 0);
    reverseWord(head, 4);
    const Bytes bank = reversedImage(Bytes(chunk.begin() + 8, chunk.end()));
    head.insert(head.end(), bank.begin(), bank.end());
    return head;
}

Bytes imageHeader(std::int32_t uniqueId, char fileType, std::int32_t numChunks, std::int32_t currentPreset)
{
    Bytes image(kHeaderSize, 0);
    putInt32(image, 0, uniqueId);
    image[4] = fileType;
    putInt32(image, 5, 0x01090900);
    putInt32(image, 9, 6);
    putInt32(image, 13, numChunks);
    putInt32(image, 17, currentPreset);
    return image;
}

void appendChunk(Bytes& image, std::int32_t type, std::int32_t presetIndex, const Bytes& payload)
{
    const std::size_t at = image.size();
    image.resize(at + kChunkHead);
    putInt32(image, at, type);
    putInt32(image, at + 4, static_cast<std::int32_t>(payload.size()));
    putInt32(image, at + 8, presetIndex);
    image.insert(image.end(), payload.begin(), payload.end());
    putInt32(image, 21, static_cast<std::int32_t>(image.size() - kHeaderSize));
}

Bytes namePayload(const char* name)
{
    Bytes payload(156, 0);
    std::memcpy(payload.data(), name, std::min<std::size_t>(std::strlen(name), 24));
    return payload;
}

Bytes valuePayload(std::uint32_t parameter, float value)
{
    Bytes payload(20, 0);
    putInt32(payload, 0, static_cast<std::int32_t>(parameter));
    putFloat(payload, 12, value);
    return payload;
}

Bytes oldHostChunk(std::int32_t uniqueId, std::int32_t count, std::int32_t current, int values,
                   float (*value)(int preset, int j))
{
    Bytes chunk(32, 0);
    putInt32(chunk, 0, 0x01000000);
    putInt32(chunk, 4, uniqueId);
    putInt32(chunk, 8, count);
    putInt32(chunk, 12, current);
    for (int n = 0; n < count; ++n)
    {
        char name[24] = {};
        std::snprintf(name, sizeof(name), "legacy %d", n);
        Bytes record(name, name + sizeof(name));
        record.resize(sizeof(name) + 4 * static_cast<std::size_t>(values), 0);
        for (int j = 0; j < values; ++j)
            putFloat(record, 24 + static_cast<std::size_t>(j) * 4, value(n, j));
        chunk.insert(chunk.end(), record.begin(), record.end());
    }
    return chunk;
}
