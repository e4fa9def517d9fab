#include "ImageWriter.h"

#include "PresetImageFormat.h"
#include "PresetRecord.h"

#include <cstring>

ImageWriter::ImageWriter(std::size_t expectedSize)
{
    image.reserve(expectedSize);
}

void ImageWriter::header(const newpresetheader& header)
{
    bytes(&header, sizeof(header));
}

void ImageWriter::chunkHead(std::int32_t type, std::int32_t size, std::int32_t presetIndex)
{
    int32(type);
    int32(size);
    int32(presetIndex);
}

void ImageWriter::nameChunk(std::int32_t presetIndex, const char* name)
{
    chunkHead(kChunkName, kNamePayloadSize, presetIndex);
    bytes(name, kPresetNameSize);
    zeros(kNamePayloadSize - kPresetNameSize);
}

void ImageWriter::valueChunk(std::int32_t type, std::int32_t presetIndex, std::int32_t number, float value)
{
    chunkHead(type, kValuePayloadSize, presetIndex);
    int32(number);
    int32(0);
    int32(0);
    float32(value);
    int32(0);
}

void ImageWriter::int32(std::int32_t value)
{
    bytes(&value, sizeof(value));
}

void ImageWriter::float32(float value)
{
    bytes(&value, sizeof(value));
}

void ImageWriter::bytes(const void* data, std::size_t n)
{
    const auto* first = static_cast<const char*>(data);
    image.insert(image.end(), first, first + n);
}

void ImageWriter::zeros(std::size_t n)
{
    image.insert(image.end(), n, 0);
}
