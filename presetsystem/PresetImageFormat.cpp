#include "PresetImageFormat.h"

#include "ParamConversion.h"

namespace spatara
{
void byteSwapHeader(newpresetheader* header)
{
    auto* bytes = reinterpret_cast<unsigned char*>(header);
    for (int offset = 5; offset < static_cast<int>(sizeof(newpresetheader)); offset += 4)
        mySwapBytes(bytes + offset);
}
} // namespace spatara
