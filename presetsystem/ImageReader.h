// Reads 32-bit fields from an image of known length, reversing them when the image was written on a
// machine of the other byte order. Every read is checked against the end: nothing is read past it.
#pragma once

#include <cstddef>
#include <cstdint>

class ImageReader
{
  public:
    ImageReader(const char* data, std::size_t length, bool swap);

    // Whether n bytes are left from offset.
    bool has(std::size_t offset, std::size_t n) const;
    // The 32-bit word at offset (caller checked with has()).
    std::int32_t int32At(std::size_t offset) const;
    float floatAt(std::size_t offset) const;
    const char* at(std::size_t offset) const { return data + offset; }
    std::size_t length() const { return size; }

  private:
    const char* data;
    std::size_t size;
    bool swap;
};
