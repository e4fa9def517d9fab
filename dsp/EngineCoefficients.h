#pragma once

#include <cstdint>

// The engine's sample-rate dependent constants.

namespace spatara
{

// Shared by the depth, width and delay smoothing: closes 15/16 of a step in 277 ms.
float smoothingCoefficient(float sampleRate);

// Shared by the two balance envelopes: closes 15/16 of a step in 600 ms.
double envelopeCoefficient(float sampleRate);

// The read position, counted forward from the write index, that lies one period of the base
// frequency back. Kept within 1..32767 so the delay never exceeds what the line holds, whatever the
// sample rate.
int32_t targetDelayPosition(float sampleRate, float baseFrequency);

} // namespace spatara
