#include "ParameterText.h"

#include <cmath>
#include <cstring>
#include <string>

namespace spatara
{

double round(double value, int decimals)
{
    const double s = std::trunc(std::pow(10.0, decimals)) * value;
    const double f = s - std::trunc(s);
    if (f >= 0.49999) return (s + 1.0) * std::pow(0.1, decimals);
    if (f <= -0.49999) return (s - 1.0) * std::pow(0.1, decimals);
    return value;
}

void float2string2(float value, int decimals, char* text)
{
    constexpr int kField = 8;
    const double rounded = round(value, decimals);
    if (rounded > 99999999.0 || rounded < -9999999.0)
    {
        std::strcpy(text, "Huge!");
        return;
    }
    const double magnitude = std::fabs(rounded);
    std::string out = rounded < 0.0 ? "-" : "";
    out += std::to_string(static_cast<long long>(std::floor(magnitude)));
    out += '.';

    // Fraction digits fill the field, written from the last place backwards.
    const int places = kField - static_cast<int>(out.size());
    if (places > 0)
    {
        auto fraction = static_cast<long long>(std::fmod(magnitude, 1.0) * std::pow(10.0, places));
        std::string digits(static_cast<std::size_t>(places), '0');
        for (int i = places - 1; i >= 0 && fraction > 0; --i, fraction /= 10)
            digits[static_cast<std::size_t>(i)] = static_cast<char>('0' + fraction % 10);
        out += digits;
    }

    const std::size_t point = out.find('.');
    out.resize(decimals > 0 ? std::min(out.size(), point + 1 + static_cast<std::size_t>(decimals)) : point);
    std::strcpy(text, out.c_str());
}

} // namespace spatara
