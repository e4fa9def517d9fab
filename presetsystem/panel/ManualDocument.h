// The user manual: where it is installed and how the panel opens it.
#pragma once

#include <string>
#include <vector>

// The manual's file name wherever it is installed, and the vendor's and the product family's folders in
// the user's documents, where it is looked for first.
inline constexpr const char* kManualFileName = "Spatara-manual.pdf";
inline constexpr const char* kManualVendorFolder = "ZEV Sound Design";
inline constexpr const char* kManualFamilyFolder = "Spatara";

namespace spatara
{
// The manual in the user's documents, relative to the home folder:
// "Documents/ZEV Sound Design/Spatara/Spatara-manual.pdf".
std::string manualDocumentsPath();

// Where the manual is looked for, in this order: the user's documents (~/ + manualDocumentsPath()), beside
// the plug-in's own .so (scripts/run puts it in ~/.vst with the plug-in), the user's data folder
// ($XDG_DATA_HOME/zev-spatara, a user install), the documentation folder of the prefix the plug-in is
// installed under (<prefix>/lib/vst/Spatara.so: <prefix>/share/doc/zev-spatara), then each system data
// folder of $XDG_DATA_DIRS as doc/zev-spatara.
std::vector<std::string> manualCandidatePaths();

// Opens the first manual found with the desktop's viewer (xdg-open). Answers whether the viewer took it.
bool openManual();

// The alert shown when the manual could not be opened: "Could not open manual file:\n~/" and the quoted
// documents path, whichever place was tried.
std::string manualAlertText();
} // namespace spatara
