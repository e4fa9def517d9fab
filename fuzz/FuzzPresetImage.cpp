// Preset images, new and old, in either byte order.
#include "FuzzEffect.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return feedImage(
        data, size,
        [](CPresetSystemEditor& editor, std::vector<char>& image, bool swap)
        {
            const int values = image.size() >= 29 ? static_cast<int>((image.size() - 29) / 4) : 0;
            editor.BufferToPresetOld(image.data(), image.size(), swap, values);
        },
        [](CPresetSystemEditor& editor, const char* chunks, std::size_t length, newpresetheader& header,
           bool swap) { editor.BufferToPreset(chunks, length, &header, swap); });
}
