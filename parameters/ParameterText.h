// Number-to-text for parameter displays: rounds half away from zero (threshold 0.49999) and writes the
// number in a field of 8 characters, cut after the wanted decimals.
#pragma once

namespace spatara
{
// text must hold at least 10 bytes ("-" + 8 digits + "." worst case, or "Huge!").
void float2string2(float value, int decimals, char* text);
// The display's rounding as a number. It does not floor the added unit: round(1.26, 1) is 1.36; the
// display cuts those digits away.
double round(double value, int decimals);
} // namespace spatara
