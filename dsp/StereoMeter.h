#pragma once

// The balance meter: whether the output leans to the sum or to the difference of its channels.

namespace spatara
{

// From the sum envelope E+ and the difference envelope E-: log base 16 of (4 E+ / E-) minus 0.5,
// within -0.5..+0.5. Equal envelopes give 0, a mono signal +0.5, an anti-phase signal -0.5.
float stereoMeter(double sumEnvelope, double differenceEnvelope);

} // namespace spatara
