#include "ValueConverters.h"

#include <cmath>
#include <cstdio>
#include <cstring>

namespace spatara
{
namespace
{
constexpr int kMaxText = 17; // 16 characters and the terminator

// Whole part, toward zero, of a value that may be out of int's range or not a number.
int wholePart(double value)
{
    if (!(value > -2147483648.0 && value < 2147483648.0)) return 0;
    return static_cast<int>(value);
}

void writeWhole(float value, char* text)
{
    std::snprintf(text, kMaxText, "%d", wholePart(value));
}
} // namespace

void strictStringConvert(float value, char* text)
{
    writeWhole(value, text);
}

void stepStringConvert(float value, char* text)
{
    writeWhole(value, text);
}

void percentStringConvert(float value, char* text)
{
    std::snprintf(text, kMaxText, "%d%%", wholePart(value * 100.0f));
}

void dampStringConvert(float value, char* text)
{
    const double wide = value;
    if (wide <= 0.0001)
        std::snprintf(text, kMaxText, "closed");
    else if (value < 1.0f)
        std::snprintf(text, kMaxText, "%d%%", wholePart(wide * 100.0));
    else
        std::snprintf(text, kMaxText, "thru"); // also where NaN ends
}

void parameterNameStringConvert(float value, char* text)
{
    static const char* const kCaptions[] = {"S", "M", "depth", "freq", "emph", "width"};
    const int index = wholePart(value);
    std::snprintf(text, kMaxText, "%s", index >= 0 && index < 6 ? kCaptions[index] : "");
}

void frequencyStringConvert(float value, char* text)
{
    // Two pieces, joined: the whole part with a point, and the fraction scaled to the row's precision.
    // The fraction has no leading zeros, so 0.05 reads 0.50Hz; only 10 Hz and up occur in this editor.
    char whole[kMaxText];
    char fraction[kMaxText];
    const int n = wholePart(value);
    const float f = value - static_cast<float>(n);
    const double wide = value;
    if (wide < 0.2)
    {
        std::snprintf(whole, kMaxText, "%d.", n);
        std::snprintf(fraction, kMaxText, "%dHz", wholePart(f * 1000.0));
    }
    else if (value < 1.0f)
    {
        std::snprintf(whole, kMaxText, "%d.", n);
        std::snprintf(fraction, kMaxText, "%dHz", wholePart(f * 100.0f));
    }
    else if (value < 10.0f)
    {
        std::snprintf(whole, kMaxText, "%d.", n);
        std::snprintf(fraction, kMaxText, "%dHz", wholePart(f * 10.0f));
    }
    else if (value < 1000.0f)
    {
        std::snprintf(whole, kMaxText, "%dHz", n);
        fraction[0] = 0;
    }
    else
    {
        const int k = wholePart(wide * 0.001);
        std::snprintf(whole, kMaxText, "%d.", k);
        std::snprintf(fraction, kMaxText, "%dkHz", wholePart((wide - k * 1000.0) * 0.01));
    }
    std::snprintf(text, kMaxText, "%s%s", whole, fraction);
}

void dBStringConvert(float value, char* text)
{
    if (static_cast<double>(value) <= 1e-8)
        std::snprintf(text, kMaxText, "-oo dB");
    else
        std::snprintf(text, kMaxText, "%d dB", wholePart(20.0 * std::log10(static_cast<double>(value))));
}
} // namespace spatara
