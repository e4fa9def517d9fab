// Every fact about the six parameters in one table: names, symbols, labels, units, ranges, steps, the
// mapping to the engine and to real units, and the display text. The VST 2.4 plug-in and the other
// editions all read it.
#pragma once

#include "ParameterMapping.h"

namespace spatara
{
enum class ParameterKind
{
    Continuous,
    Toggle,
    Enumeration,
};

struct ParameterInfo
{
    const char* name;   // as hosts list it: "depth"
    const char* symbol; // the same as an identifier, for formats that need one: "wdth_emph"
    const char* label;  // the VST 2.4 label; the blanks are part of it, hosts show them as they are
    const char* unit;   // the real unit of toUnit's values: "%", "Hz" or ""
    ParameterKind kind;
    float minimum; // the range of toUnit's values
    float maximum;
    // Steps of the normalised value offered to VST 2.4 hosts.
    float step;
    float smallStep;
    float largeStep;
    const char* const* valueNames; // what toggles and enumerations show for each whole unit value
    int valueNameCount;
    // The value the engine is given.
    float (*toEngine)(float normalised);
    // The value in real units, and back; the way back returns exactly the normalised value of every
    // factory preset and clamps into the range.
    float (*toUnit)(float normalised);
    float (*fromUnit)(float unitValue);
    // The display text; mode is the mode the engine runs (0, 1, 2), which the width display depends on.
    // text must hold at least 10 bytes.
    void (*display)(float normalised, float mode, char* text);
};

// The entry of a parameter; index must be one of SpataraParameter.
const ParameterInfo& parameterInfo(int index);
bool isParameter(int index);
} // namespace spatara
