#include "ParamConversion.h"

#include <cmath>
#include <utility>

namespace spatara
{
int paramContToLong(float value, int steps)
{
    const int i = static_cast<int>(value * static_cast<float>(steps));
    return i < steps ? i : steps - 1;
}

float paramLongToCont(int i, int steps)
{
    return 0.5f / static_cast<float>(steps) + static_cast<float>(i) / static_cast<float>(steps);
}

float long2float(long i, long n)
{
    return (static_cast<float>(i) + 0.5f) / static_cast<float>(n);
}

long float2long(float value, long n)
{
    const float scaled = std::floor(value * static_cast<float>(n)) + 0.5f;
    if (!(scaled < static_cast<float>(n))) // also catches NaN and infinity, which have no whole part
        return n - 1;
    if (scaled < static_cast<float>(-n)) return -n;
    const long slot = static_cast<long>(scaled);
    return slot >= n ? n - 1 : slot;
}

void mySwapBytes(void* p)
{
    auto* b = static_cast<unsigned char*>(p);
    std::swap(b[0], b[3]);
    std::swap(b[1], b[2]);
}
} // namespace spatara
