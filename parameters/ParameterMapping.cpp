#include "ParameterMapping.h"

#include "ModeThresholds.h"

#include <cmath>

namespace spatara
{

float depthFromNormalised(float v)
{
    const double twice = 2.0 * static_cast<double>(v);
    return static_cast<float>(twice * twice * 0.5);
}

float frequencyFromNormalised(float v)
{
    return (v * v) * 980.0f + 20.0f;
}

float switchFromNormalised(float v)
{
    return std::trunc(v + 0.5f);
}

float modeFromNormalised(float v)
{
    // Compared in double: 0.33f and 0.67f themselves land on the upper mode.
    if (v < spatara::kEngineModeOneFrom) return 0.0f;
    if (v >= spatara::kEngineModeOneFrom && v < spatara::kEngineModeTwoFrom) return 1.0f;
    return 2.0f;
}

} // namespace spatara
