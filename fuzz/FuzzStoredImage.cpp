// Preset and bank images as a file, a default or a memory hands them over: identifier, type and header
// first, in either byte order, old and new layouts. The first byte asks for the reversed load.
#include "FuzzEffect.h"

#include <vector>

namespace
{
// Reaches the editor's image dispatcher, which files, defaults and memories share.
class ImageLoader : public CPresetSystemEditor
{
  public:
    static void apply(CPresetSystemEditor& editor, const std::vector<char>& image, bool reversed)
    {
        (editor.*(&ImageLoader::applyImage))(image, reversed);
    }
};
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) return 0;
    Spatara& effect = fuzzEffect();
    ImageLoader::apply(*effect.presetEditor(), std::vector<char>(data + 1, data + size), data[0] & 1);
    checkTableInvariants(effect);
    return 0;
}
