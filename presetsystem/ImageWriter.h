// Builds an image in the machine's own byte order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

struct newpresetheader;

class ImageWriter
{
  public:
    explicit ImageWriter(std::size_t expectedSize);

    void header(const newpresetheader& header);
    // A chunk head: type, payload size, preset index.
    void chunkHead(std::int32_t type, std::int32_t size, std::int32_t presetIndex);
    // A name chunk: the record's 24 name bytes as they are, then zeros to the end of the payload.
    void nameChunk(std::int32_t presetIndex, const char* name);
    // A chunk of a value's size (a parameter value or a MIDI assignment): number, 0, 0, value, 0.
    void valueChunk(std::int32_t type, std::int32_t presetIndex, std::int32_t number, float value);
    void int32(std::int32_t value);
    void float32(float value);
    void bytes(const void* data, std::size_t n);
    void zeros(std::size_t n);

    std::vector<char> take() { return std::move(image); }

  private:
    std::vector<char> image;
};
