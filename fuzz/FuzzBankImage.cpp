// Bank images, new and old, in either byte order.
#include "FuzzEffect.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return feedImage(
        data, size,
        [](CPresetSystemEditor& editor, std::vector<char>& image, bool swap)
        {
            const std::size_t perPreset = image.size() / kNumPresets;
            const int values =
                perPreset > kPresetNameSize ? static_cast<int>((perPreset - kPresetNameSize) / 4) : 0;
            editor.BufferToBankOld(image.data(), image.size(), swap, kNumPresets, values);
        },
        [](CPresetSystemEditor& editor, const char* chunks, std::size_t length, newpresetheader& header,
           bool swap) { editor.BufferToBank(chunks, length, &header, swap); });
}
