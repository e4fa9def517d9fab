// The mode is one normalised value, read against thresholds in three places. They differ on purpose and
// stay so: each is where users and their old sessions have always met it.
#pragma once

namespace spatara
{
// The mode the engine runs: 0 below the first, 1 below the second, 2 from there up (and for NaN). Compared
// in double, as written, so 0.33f and 0.67f themselves already land on the upper mode.
inline constexpr double kEngineModeOneFrom = 0.33;
inline constexpr double kEngineModeTwoFrom = 0.67;

// The editor's mode button, and the width row's caption and value once the editor is open: the button's
// middle state from a quarter, its last state (emphasis) from three quarters, compared in float.
inline constexpr float kModeButtonMiddleFrom = 0.25f;
inline constexpr float kModeButtonLastFrom = 0.75f;

// When the editor opens, the width row's caption reads "emph" exactly when the engine runs mode 2; later
// changes follow the button's three quarters instead.
inline constexpr double kEmphasisCaptionAtOpenFrom = kEngineModeTwoFrom;
} // namespace spatara
