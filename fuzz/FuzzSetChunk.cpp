// Host chunks as a project file might hold them: any bytes, any length.
#include "FuzzEffect.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Spatara& effect = fuzzEffect();
    // A copy of exactly the given length, so that the sanitizer sees any read past it.
    std::vector<std::uint8_t> chunk(data, data + size);
    effect.setChunk(chunk.data(), static_cast<VstInt32>(chunk.size()), false);
    checkTableInvariants(effect);
    void* out = nullptr;
    if (effect.getChunk(&out, false) != 13729) std::abort();
    return 0;
}
