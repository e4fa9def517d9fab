// The engine's results are the same to the bit in every build, and its denormal handling relies on
// IEEE arithmetic: -ffast-math (or -Ofast) would reorder and flush differently and change every sample.
#pragma once

#if defined(__FAST_MATH__)
#error "ZEV Spatara needs strict IEEE arithmetic: build it without -ffast-math (and without -Ofast)"
#endif
