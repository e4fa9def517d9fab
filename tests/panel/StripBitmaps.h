// Film-strip bitmaps for the button tests, served in place of the product's resources: every image of a
// strip is one solid colour, so a drawn pixel tells which image a control chose.
#pragma once

#include "CColor.h"

#include <cstdint>

namespace StripBitmaps
{
// A 12 × 42 strip of three 14-pixel images.
constexpr int32_t kButtonStrip = 9003;
// A 31 × 70 strip of five 14-pixel images.
constexpr int32_t kRockerStrip = 9005;
// A 10 × 100 strip: rows 0–32, 33–65 and 66–98 are the three images of 33 pixels, row 99 is left over.
constexpr int32_t kHundredPixelStrip = 9100;
// Button images start at this offset in kOffsetStrip (24 × 50): the first 8 rows and 12 columns are
// another colour.
constexpr int32_t kOffsetStrip = 9203;

// The colour of image k (k = 5 for the rows left over in kHundredPixelStrip, 6 outside the offset).
CColor imageColour(int k);
} // namespace StripBitmaps
