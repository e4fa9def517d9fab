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
    void int32(std::int32_t value);
    void float32(float value);
    void bytes(const void* data, std::size_t n);
    void zeros(std::size_t n);

    std::vector<char> take() { return std::move(image); }

  private:
    std::vector<char> image;
};
