// Conversions between normalised parameter values and whole-number steps, and the byte reverser used by
// every reader of images written on a machine of the other byte order.
#pragma once

namespace spatara
{
// Step index of a normalised value; values at or past 1.0 give the last step. There is no lower clamp.
int paramContToLong(float value, int steps);
// The centre of step i as a normalised value.
float paramLongToCont(int i, int steps);
// (i + 0.5) / n: the centre of slot i of n.
float long2float(long i, long n);
// Slot of a normalised value among n slots, capped at n - 1.
long float2long(float value, long n);
// Reverses the four bytes at p in place.
void mySwapBytes(void* p);
} // namespace spatara
