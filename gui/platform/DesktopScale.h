// The scale the desktop asks of windows, for hosts that tell a plug-in none: the variables toolkits and
// other plug-ins follow, then the X server's font resolution.
#pragma once

#include <functional>
#include <string>

namespace spatara
{
// Reads an environment variable: its value, or null when it is not set.
using VariableReader = std::function<const char*(const char* name)>;

// The first of DPF_SCALE_FACTOR, GDK_SCALE (times GDK_DPI_SCALE), QT_SCALE_FACTOR that gives a number
// from 1 to 4; then Xft.dpi of the X resources over 96 (192 is 2, 144 is 1.5); else 1. A value that is no
// number, or gives a scale outside 1 to 4, is passed over.
double desktopScaleFrom(const VariableReader& variable, const std::string& xResources);
// The same for this process's environment and the X server of $DISPLAY.
double desktopScale();
// The resources of the X server of $DISPLAY (what xrdb -query shows); empty without a server.
std::string xServerResources();
} // namespace spatara
