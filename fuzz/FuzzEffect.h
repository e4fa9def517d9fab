// One effect per fuzzing process, built as a host would build it, for the targets that feed it bytes.
#pragma once

#include "CPresetSystemEditor.h"
#include "Spatara.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>

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

// The header at the front of data, in native order; false when data is too short to hold one.
inline bool takeHeader(const std::uint8_t* data, std::size_t size, bool swap, newpresetheader& header)
{
    if (size < sizeof(newpresetheader)) return false;
    std::memcpy(&header, data, sizeof(header));
    if (swap) byteSwapHeader(&header);
    return true;
}
