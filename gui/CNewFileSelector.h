// Open and save dialogs: the desktop's dialog program first; the window layer's own browser for opening and
// a path entry inside the frame for saving when none is installed.
#pragma once

#include "CBaseObject.h"
#include "CFileExtension.h"

#include <optional>
#include <string>
#include <vector>

class CFrame;

class CNewFileSelector : public CBaseObject
{
  public:
    enum Style
    {
        kSelectFile,
        kSelectSaveFile,
        kSelectDirectory,
    };
    // Which way the last runModal asked the user.
    enum class Route
    {
        none,
        dialogProgram,
        builtInBrowser,
        pathEntry,
    };

    // A selector for the editor in frame (may be null: then only the dialog program can be used).
    static CNewFileSelector* create(CFrame* frame = nullptr, Style style = kSelectFile);

    void setTitle(const char* newTitle) { title = newTitle ? newTitle : ""; }
    void setInitialDirectory(const char* directory) { initialDirectory = directory ? directory : ""; }
    void setDefaultSaveName(const char* name) { defaultSaveName = name ? name : ""; }
    void addFileExtension(const CFileExtension& extension) { extensions.push_back(extension); }
    // Also the first filter offered.
    void setDefaultExtension(const CFileExtension& extension);
    void setAllowMultiFileSelection(bool) {}

    // Asks the user and waits; true when a file was chosen.
    bool runModal();
    // Asks whether the existing file at path may be replaced (with the dialog program that chose it, or in
    // the frame without one). Answers the path to save to: path for yes, another path typed in the frame
    // instead, nothing for no.
    std::optional<std::string> confirmReplacing(const std::string& path);
    int32_t getNumSelectedFiles() const { return static_cast<int32_t>(selected.size()); }
    const char* getSelectedFile(uint32_t index) const;
    Route getLastRoute() const { return lastRoute; }
    Style getStyle() const { return style; }

  private:
    CNewFileSelector(CFrame* frame, Style style) : frame(frame), style(style) {}
    // Without a dialog program: the built-in browser (opening) or a path typed into the frame (saving).
    bool runFallback();
    // A path typed into the frame under prompt, starting from start; nothing when cancelled or no window.
    std::optional<std::string> runPathEntry(const std::string& prompt, const std::string& start);

    CFrame* frame;
    Style style;
    std::string title;
    std::string initialDirectory;
    std::string defaultSaveName;
    std::vector<CFileExtension> extensions;
    std::vector<std::string> selected;
    Route lastRoute = Route::none;
};
