// One effect per fuzzing process, built as a host would build it, for the targets that feed it bytes.
#pragma once

#include "CPresetSystemEditor.h"
#include "Spatara.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

inline VstIntPtr fuzzHost(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float)
{
    return opcode == audioMasterVersion ? kVstVersion : 0;
}

inline Spatara& fuzzEffect()
{
    static Spatara* effect = new Spatara(&fuzzHost);
    return *effect;
}

// Whatever bytes came in, the table must still hold terminated names.
inline void checkTableInvariants(Spatara& effect)
{
    for (int n = 0; n < kNumPresets; ++n)
        if (effect.preset(n).name[kPresetNameSize - 1] != 0) std::abort();
    if (effect.getPresetNo() < 0 || effect.getPresetNo() >= kNumPresets) std::abort();
}

// Feeds one fuzz input to an image reader pair: the first byte picks old or new layout and the byte order,
// the rest is the image (a new one starts with its header).
template <typename ReadOld, typename ReadNew>
int feedImage(const std::uint8_t* data, std::size_t size, ReadOld readOld, ReadNew readNew)
{
    if (size < 1) return 0;
    Spatara& effect = fuzzEffect();
    const bool swap = data[0] & 1;
    // A copy of exactly the given length, so that the sanitizer sees any read past it.
    std::vector<char> image(data + 1, data + size);
    if (data[0] & 2)
    {
        readOld(*effect.presetEditor(), image, swap);
    }
    else if (image.size() >= sizeof(newpresetheader))
    {
        newpresetheader header;
        std::memcpy(&header, image.data(), sizeof(header));
        if (swap) spatara::byteSwapHeader(&header);
        readNew(*effect.presetEditor(), image.data() + sizeof(header), image.size() - sizeof(header), header,
                swap);
    }
    checkTableInvariants(effect);
    return 0;
}
