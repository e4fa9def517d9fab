#include "EngineCoefficients.h"

#include "DelayLine.h"

#include <cmath>

namespace spatara
{

float smoothingCoefficient(float sampleRate)
{
    // The product with 277 is taken in single precision, the rest in double.
    const float samplesTimesMilliseconds = sampleRate * 277.0f;
    return static_cast<float>(1.0 - std::pow(0.0625, 1.0 / (samplesTimesMilliseconds * 0.001)));
}

double envelopeCoefficient(float sampleRate)
{
    return 1.0 - std::pow(0.0625, 1.0 / (static_cast<double>(sampleRate) * 600.0 * 0.001));
}

double correlationCoefficient(float sampleRate)
{
    constexpr double kTimeConstantSeconds = 0.3;
    return 1.0 - std::exp(-1.0 / (static_cast<double>(sampleRate) * kTimeConstantSeconds));
}

int32_t scopeStride(float sampleRate)
{
    constexpr float kPointsPerSecond = 4000.0f;
    const float frames = sampleRate / kPointsPerSecond;
    return frames >= 2.0f ? static_cast<int32_t>(frames) : 1;
}

int32_t targetDelayPosition(float sampleRate, float baseFrequency)
{
    float position = static_cast<float>(DelayLine::kLength) - sampleRate / baseFrequency;
    // Written so that NaN (a zero rate over a zero frequency) also lands on the longest delay.
    if (!(position >= 1.0f)) position = 1.0f;
    if (position > static_cast<float>(DelayLine::kMask)) position = static_cast<float>(DelayLine::kMask);
    return static_cast<int32_t>(position);
}

int32_t tailLength(float sampleRate)
{
    return DelayLine::kLength - targetDelayPosition(sampleRate, kLowestBaseFrequency) + 1;
}

} // namespace spatara
