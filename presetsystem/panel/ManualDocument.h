// The user manual: where it is installed and how the panel opens it.
#pragma once

#include <string>
#include <vector>

// The manual's file name wherever it is installed.
inline constexpr const char* kManualFileName = "Spatara-manual.pdf";

// Where the manual is looked for, in this order: beside the plug-in's own .so (scripts/run puts it in
// ~/.vst with the plug-in), the user's data folder ($XDG_DATA_HOME/zev-spatara, a user install), the
// documentation folder of the prefix the plug-in is installed under (<prefix>/lib/vst/Spatara.so:
// <prefix>/share/doc/zev-spatara), then each system data folder of $XDG_DATA_DIRS as doc/zev-spatara.
std::vector<std::string> manualCandidatePaths();

// Opens the first manual found with the desktop's viewer (xdg-open). Answers whether the viewer took it;
// path is set to the manual opened or, when none was found, to the first place looked at.
bool openManual(std::string& path);

// The alert shown when the manual could not be opened: a home-relative path is written from "~/".
std::string manualAlertText(const std::string& path);
