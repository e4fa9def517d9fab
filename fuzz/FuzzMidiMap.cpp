// MIDI-map images, new and old, in either byte order.
#include "FuzzEffect.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    return feedImage(
        data, size,
        [](CPresetSystemEditor& editor, std::vector<char>& image, bool swap)
        { editor.BufferToMidiOld(image.data(), image.size(), swap, static_cast<int>(image.size() / 4)); },
        [](CPresetSystemEditor& editor, const char* chunks, std::size_t length, newpresetheader& header,
           bool swap) { editor.BufferToMidi(chunks, length, &header, swap); });
}
