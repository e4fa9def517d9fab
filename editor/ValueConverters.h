// Value-to-text functions installed on the editor's parameter displays. Each writes at most 16 characters
// into the display's buffer, keeps no state and allocates nothing, so any drawing thread may call it.
#pragma once

namespace spatara
{
// Plain whole number ("%d", truncated).
void strictStringConvert(float value, char* text);
// The same rule as strictStringConvert; kept as its own entry of the converter set.
void stepStringConvert(float value, char* text);
// Percent of a normalised value; above 1 reads above 100% on purpose (the width display relies on it).
void percentStringConvert(float value, char* text);
// "closed", a percentage, or "thru".
void dampStringConvert(float value, char* text);
// The fixed captions: 0 "S", 1 "M", 2 "depth", 3 "freq", 4 "emph", 5 "width".
void parameterNameStringConvert(float value, char* text);
// A frequency in Hz, with the precision its range deserves.
void frequencyStringConvert(float value, char* text);
// Decibels of a linear gain.
void dBStringConvert(float value, char* text);
} // namespace spatara
