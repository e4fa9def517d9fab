// The numbered bitmaps compiled into the binary: looked up by resource number.
#pragma once

#include <cstddef>
#include <cstdint>

struct EmbeddedResource
{
    int32_t number;
    const unsigned char* data;
    size_t size;
};

namespace spatara
{
// The resource with this number, or null when the build embedded none. Defined by the generated table.
const EmbeddedResource* findEmbeddedResource(int32_t number);
} // namespace spatara
