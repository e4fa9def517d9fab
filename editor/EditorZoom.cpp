#include "EditorZoom.h"

#include "COptionMenu.h"
#include "XPlatPrefs.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <string>

namespace spatara
{
namespace
{
constexpr char kZoomKey[] = "EditorZoom";
constexpr char kScopeKey[] = "ScopeOpen";

struct ZoomEntry
{
    const char* title;
    double scale; // 0: follow the desktop
};
constexpr ZoomEntry kEntries[] = {
    {"Zoom 100 %", 1.0},
    {"125 %", 1.25},
    {"150 %", 1.5},
    {"200 %", 2.0},
    {"250 %", 2.5},
    {"300 %", 3.0},
    {"Follow the desktop", 0.0},
};
} // namespace

void fillZoomMenu(COptionMenu& menu)
{
    menu.removeAllEntry();
    for (const ZoomEntry& entry : kEntries)
        menu.addEntry(entry.title);
    const std::optional<double> chosen = chosenZoom();
    for (int32_t i = 0; i < static_cast<int32_t>(std::size(kEntries)); ++i)
        if (kEntries[i].scale == chosen.value_or(0.0)) menu.setCurrent(i);
}

std::optional<double> chosenZoom()
{
    char text[kPrefStringSize] = {};
    if (!XPlatGetPrefString(kZoomKey, text)) return std::nullopt;
    // Only the menu's own scales count: anything else in the file is no choice.
    for (const ZoomEntry& entry : kEntries)
        if (entry.scale > 0.0 && std::strtod(text, nullptr) == entry.scale) return entry.scale;
    return std::nullopt;
}

int32_t nearestZoomEntry(double scale)
{
    int32_t nearest = 0;
    for (int32_t i = 0; i < static_cast<int32_t>(std::size(kEntries)); ++i)
        if (kEntries[i].scale > 0.0 &&
            std::fabs(kEntries[i].scale - scale) < std::fabs(kEntries[nearest].scale - scale))
            nearest = i;
    return nearest;
}

bool chooseZoom(int32_t index)
{
    if (index < 0 || index >= static_cast<int32_t>(std::size(kEntries))) return false;
    const double scale = kEntries[index].scale;
    if (scale > 0.0)
    {
        char text[16];
        std::snprintf(text, sizeof(text), "%g", scale);
        XPlatSetPrefString(kZoomKey, text);
    }
    else
        XPlatRemovePref(kZoomKey);
    XPlatSynchronizePrefs();
    return true;
}
bool scopeWasOpen()
{
    char text[kPrefStringSize] = {};
    return XPlatGetPrefString(kScopeKey, text) && std::string(text) == "1";
}

void rememberScopeOpen(bool open)
{
    if (scopeWasOpen() == open) return;
    if (open)
        XPlatSetPrefString(kScopeKey, "1");
    else
        XPlatRemovePref(kScopeKey);
    XPlatSynchronizePrefs();
}
} // namespace spatara
