// From the normalised values that cross between host, editor and presets to the real values the engine uses.
#pragma once

enum SpataraParameter
{
    kDepth = 0,
    kBaseFreq,
    kWidth,
    kProcess,
    kPhase,
    kMode,
    kNumParameters
};

namespace spatara
{
// 2v², 0..2, computed in double precision.
float depthFromNormalised(float v);
// v² × 980 + 20 Hz, 20..1000, in single precision.
float frequencyFromNormalised(float v);
// Whole part of v + 0.5: 0 or 1.
float switchFromNormalised(float v);
// 0 below kEngineModeOneFrom, 1 below kEngineModeTwoFrom, 2 otherwise (NaN included); ModeThresholds.h.
float modeFromNormalised(float v);
} // namespace spatara
