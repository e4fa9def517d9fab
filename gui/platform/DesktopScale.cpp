#include "DesktopScale.h"

#include <X11/Xlib.h>

#include <cstdlib>
#include <optional>

namespace spatara
{
namespace
{
constexpr double kSmallest = 1.0;
constexpr double kLargest = 4.0;
constexpr double kPlainDpi = 96.0;

std::optional<double> number(const char* text)
{
    if (!text || !*text) return std::nullopt;
    char* end = nullptr;
    const double value = std::strtod(text, &end);
    while (*end == ' ' || *end == '\t')
        ++end;
    if (end == text || *end != 0) return std::nullopt;
    return value;
}

std::optional<double> usable(std::optional<double> scale)
{
    if (scale && *scale >= kSmallest && *scale <= kLargest) return scale;
    return std::nullopt;
}

// "Xft.dpi:\t144" on a line of its own.
std::optional<double> xftDpi(const std::string& resources)
{
    const std::string key = "Xft.dpi:";
    for (std::size_t at = 0; at < resources.size();)
    {
        const std::size_t end = std::min(resources.find('\n', at), resources.size());
        const std::string line = resources.substr(at, end - at);
        if (line.compare(0, key.size(), key) == 0)
        {
            std::string value = line.substr(key.size());
            value.erase(0, value.find_first_not_of(" \t"));
            return number(value.c_str());
        }
        at = end + 1;
    }
    return std::nullopt;
}
} // namespace

double desktopScaleFrom(const VariableReader& variable, const std::string& xResources)
{
    if (auto scale = usable(number(variable("DPF_SCALE_FACTOR")))) return *scale;
    if (auto gdk = number(variable("GDK_SCALE")))
    {
        const double dpiScale = number(variable("GDK_DPI_SCALE")).value_or(1.0);
        if (auto scale = usable(*gdk * dpiScale)) return *scale;
    }
    if (auto scale = usable(number(variable("QT_SCALE_FACTOR")))) return *scale;
    if (auto dpi = xftDpi(xResources))
        if (auto scale = usable(*dpi / kPlainDpi)) return *scale;
    return 1.0;
}

double desktopScale()
{
    return desktopScaleFrom([](const char* name) { return std::getenv(name); }, xServerResources());
}

std::string xServerResources()
{
    Display* display = XOpenDisplay(nullptr);
    if (!display) return {};
    const char* resources = XResourceManagerString(display);
    std::string text = resources ? resources : "";
    XCloseDisplay(display);
    return text;
}
} // namespace spatara
