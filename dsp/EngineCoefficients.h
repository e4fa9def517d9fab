#pragma once

#include <cstdint>

// The engine's sample-rate dependent constants.

namespace spatara
{

// Shared by the depth, width and delay smoothing: closes 15/16 of a step in 277 ms.
float smoothingCoefficient(float sampleRate);

// Shared by the two balance envelopes: closes 15/16 of a step in 600 ms.
double envelopeCoefficient(float sampleRate);

// The correlation meter's averages: a time constant of 300 ms (63 % of a step in 300 ms), slow enough to
// read, quick enough to follow a mix part by part.
double correlationCoefficient(float sampleRate);

// Frames between two points handed to the scope: about 4,000 points a second, never fewer than 2,000.
int32_t scopeStride(float sampleRate);

// The lowest base frequency, whose period is the longest delay.
constexpr float kLowestBaseFrequency = 20.0f;

// Frames the effect keeps sounding after its input has stopped: the longest delay, plus one frame in which
// the emphasis of modes 1 and 2 still subtracts the last delayed sample. Interpolated reads never reach
// further back than the whole delay, and the smoothing only scales what is there.
int32_t tailLength(float sampleRate);

// The read position, counted forward from the write index, that lies one period of the base
// frequency back. Kept within 1..32767 so the delay never exceeds what the line holds, whatever the
// sample rate.
int32_t targetDelayPosition(float sampleRate, float baseFrequency);

} // namespace spatara
