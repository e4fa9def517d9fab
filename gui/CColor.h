// An 8-bit RGBA colour, and the toolkit's named colours.
#pragma once

#include <cstdint>

struct CColor
{
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;
    uint8_t alpha = 255;

    constexpr bool operator==(const CColor&) const = default;
};

// Builds a colour from its components, as the classic library's helper does.
constexpr CColor MakeCColor(uint8_t red, uint8_t green, uint8_t blue, uint8_t alpha = 255)
{
    return CColor{red, green, blue, alpha};
}

extern const CColor kTransparentCColor;
extern const CColor kBlackCColor;
extern const CColor kWhiteCColor;
extern const CColor kGreyCColor;
extern const CColor kRedCColor;
extern const CColor kGreenCColor;
extern const CColor kBlueCColor;
extern const CColor kYellowCColor;
extern const CColor kCyanCColor;
extern const CColor kMagentaCColor;
