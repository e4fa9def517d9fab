// The user's own zoom of the editor: the entries of the menu a right click on the panel opens, and the
// choice, kept in the preferences for every instance and every edition. A choice comes before the host's
// scale and the desktop's; "Follow the desktop" takes it back.
#pragma once

#include <cstdint>
#include <optional>

class COptionMenu;

namespace spatara
{
// The menu's tag: no parameter, no panel control.
constexpr int32_t kZoomMenuTag = 1100;

// Fills the menu with "Zoom 100 %", "125 %", … "300 %", "Follow the desktop", the current choice marked.
void fillZoomMenu(COptionMenu& menu);
// The scale the user chose, or nothing when the user follows the desktop (or never chose).
std::optional<double> chosenZoom();
// Remembers the menu's entry at index (the preferences are written at once); false for no such entry.
bool chooseZoom(int32_t index);
// The menu's entry of the zoom nearest to scale (a window the user dragged to some size).
int32_t nearestZoomEntry(double scale);

// Whether the stereo scope was open when an editor last opened or closed it, and remembering that.
bool scopeWasOpen();
void rememberScopeOpen(bool open);
} // namespace spatara
