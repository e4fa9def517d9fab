#pragma once

// Denormal guards. Adding and then subtracting a tiny constant rounds values far below it to zero,
// so recursive and delayed values never decay into the slow denormal range. Both functions rely on
// strict IEEE arithmetic: never build this code with -ffast-math, which would fold them away.

namespace spatara
{

// The guard for samples and smoothed values, in the precision of the value itself.
template <typename T> inline T flushCoarse(T value)
{
    value += T(1e-16);
    value -= T(1e-16);
    return value;
}

// The finer guard for the envelopes and the emphasis term, always in double precision.
inline double flushFine(double value)
{
    value += 1e-21;
    value -= 1e-21;
    return value;
}

} // namespace spatara
