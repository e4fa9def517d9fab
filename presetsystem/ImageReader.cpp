#include "ImageReader.h"

#include "ParamConversion.h"

#include <cstring>

ImageReader::ImageReader(const char* data, std::size_t length, bool swap)
    : data(data), size(length), swap(swap)
{
}

bool ImageReader::has(std::size_t offset, std::size_t n) const
{
    return offset <= size && n <= size - offset;
}

std::int32_t ImageReader::int32At(std::size_t offset) const
{
    unsigned char bytes[4];
    std::memcpy(bytes, data + offset, 4);
    if (swap) spatara::mySwapBytes(bytes);
    std::int32_t value;
    std::memcpy(&value, bytes, 4);
    return value;
}

float ImageReader::floatAt(std::size_t offset) const
{
    const std::int32_t bits = int32At(offset);
    float value;
    std::memcpy(&value, &bits, 4);
    return value;
}
