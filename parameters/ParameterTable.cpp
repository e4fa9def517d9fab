#include "ParameterTable.h"

#include "ParameterText.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>

namespace spatara
{
namespace
{
constexpr float kFine = 1.0f / 256.0f, kFiner = 1.0f / 1024.0f, kCoarse = 1.0f / 64.0f;
const char* const kOnOff[] = {"Off", "On"};
// Shown one above its value: mode 0 is "Mode1".
const char* const kModeNames[] = {"Mode1", "Mode2", "Mode3"};

float identity(float v)
{
    return v;
}

float percent(float v)
{
    return 100.0f * v;
}

std::uint32_t bitsOf(float v)
{
    return std::bit_cast<std::uint32_t>(v);
}

// The first normalised value in 0..1 whose unit value is not below u (above it: past the last); the unit
// mappings rise monotonically, and positive floats order as their bit patterns do.
std::uint32_t firstNotBelow(float (*toUnit)(float), float u, bool orAbove)
{
    std::uint32_t low = 0, high = bitsOf(1.0f) + 1;
    while (low < high)
    {
        const std::uint32_t mid = low + (high - low) / 2;
        const float image = toUnit(std::bit_cast<float>(mid));
        if (orAbove ? image > u : image >= u)
            high = mid;
        else
            low = mid + 1;
    }
    return low;
}

// The way back from a unit value. Many normalised values can share one unit value (the frequency's square
// loses digits), so of all that map to it exactly, the one with the fewest decimal digits is taken: presets
// are written with round numbers, and so each comes back as it was stored.
float invert(float (*toUnit)(float), float u)
{
    if (std::isnan(u)) return 0.0f; // no value: the bottom of the range
    u = std::clamp(u, toUnit(0.0f), toUnit(1.0f));
    const std::uint32_t first = firstNotBelow(toUnit, u, false);
    const std::uint32_t past = firstNotBelow(toUnit, u, true);
    if (first >= past) return std::bit_cast<float>(std::min(first, bitsOf(1.0f))); // u falls between images
    const double low = std::bit_cast<float>(first), high = std::bit_cast<float>(past - 1);
    if (low == 0.0) return 0.0f;
    for (int digits = 1; digits <= 9; ++digits)
    {
        const double scale = std::pow(10.0, digits - 1 - static_cast<int>(std::floor(std::log10(high))));
        // Checked as floats: 0.8 as a float lies above the decimal 0.8, so the decimal below counts too.
        for (const double decimal : {std::floor(low * scale) / scale, std::ceil(low * scale) / scale})
        {
            const auto candidate = static_cast<float>(decimal);
            if (candidate >= low && candidate <= high) return candidate;
        }
    }
    return static_cast<float>(low);
}

float percentBack(float u)
{
    return invert(percent, u);
}

float hertzBack(float u)
{
    return invert(frequencyFromNormalised, u);
}

float toggleBack(float u)
{
    return u >= 0.5f ? 1.0f : 0.0f;
}

float modeBack(float u)
{
    // The enumeration's 0, 1, 2 are the normalised 0, 0.5, 1 that presets store; no value is the first.
    return std::isnan(u) ? 0.0f : std::clamp(std::round(u), 0.0f, 2.0f) * 0.5f;
}

void depthDisplay(float v, float, char* text)
{
    float2string2(100.0f * v, 1, text);
}

void frequencyDisplay(float v, float, char* text)
{
    float2string2(frequencyFromNormalised(v), 2, text);
}

void widthDisplay(float v, float mode, char* text)
{
    // Mode 1 counts down while mode 0 counts up for the same knob movement; users know it that way.
    const float shown = mode == 0.0f ? 300.0f * v + 100.0f : mode == 1.0f ? 400.0f - 300.0f * v : 100.0f * v;
    float2string2(shown, 1, text);
}

void switchDisplay(float v, float, char* text)
{
    std::strcpy(text, kOnOff[switchFromNormalised(v) >= 0.5f ? 1 : 0]);
}

void modeDisplay(float, float mode, char* text)
{
    std::strcpy(text, kModeNames[mode == 0.0f ? 0 : mode == 1.0f ? 1 : 2]);
}

const ParameterInfo kParameters[kNumParameters] = {
    {"depth", "depth", "    %   ", "%", ParameterKind::Continuous, 0.0f, 100.0f, kFine, kFiner, kCoarse,
     nullptr, 0, depthFromNormalised, percent, percentBack, depthDisplay},
    {"baseFreq", "baseFreq", "    Hz   ", "Hz", ParameterKind::Continuous, 20.0f, 1000.0f, kFine, kFiner,
     kCoarse, nullptr, 0, frequencyFromNormalised, frequencyFromNormalised, hertzBack, frequencyDisplay},
    {"wdth/emph", "wdth_emph", "    %    ", "%", ParameterKind::Continuous, 0.0f, 100.0f, kFine, kFiner,
     kCoarse, nullptr, 0, identity, percent, percentBack, widthDisplay},
    {"process", "process", "         ", "", ParameterKind::Toggle, 0.0f, 1.0f, 1.0f, 1.0f, 1.0f, kOnOff, 2,
     switchFromNormalised, switchFromNormalised, toggleBack, switchDisplay},
    {"phase", "phase", "         ", "", ParameterKind::Toggle, 0.0f, 1.0f, 1.0f, 1.0f, 1.0f, kOnOff, 2,
     switchFromNormalised, switchFromNormalised, toggleBack, switchDisplay},
    {"mode", "mode", "         ", "", ParameterKind::Enumeration, 0.0f, 2.0f, 0.5f, 0.5f, 0.5f, kModeNames, 3,
     modeFromNormalised, modeFromNormalised, modeBack, modeDisplay},
};
} // namespace

const ParameterInfo& parameterInfo(int index)
{
    return kParameters[index];
}

bool isParameter(int index)
{
    return index >= 0 && index < kNumParameters;
}
} // namespace spatara
