// Bank images, new and old, in either byte order. The first byte picks the reader and the byte order.
#include "FuzzEffect.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) return 0;
    Spatara& effect = fuzzEffect();
    const bool swap = data[0] & 1;
    const bool old = data[0] & 2;
    std::vector<char> image(data + 1, data + size);
    if (old)
    {
        const int values = static_cast<int>(((image.size() / 38) > 24 ? (image.size() / 38 - 24) / 4 : 0));
        effect.presetEditor()->BufferToBankOld(image.data(), image.size(), swap, 38, values);
    }
    else
    {
        newpresetheader header;
        if (takeHeader(reinterpret_cast<const std::uint8_t*>(image.data()), image.size(), swap, header))
            effect.presetEditor()->BufferToBank(image.data() + sizeof(header), image.size() - sizeof(header),
                                                &header, swap);
    }
    checkTableInvariants(effect);
    return 0;
}
