// Open and save dialogs: the desktop's dialog program first; the window layer's own browser for opening and
// a path entry inside the frame for saving when none is installed.
#pragma once

#include "CBaseObject.h"
#include "CFileExtension.h"

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
    // Asks, with the same dialog program, whether the existing file at path may be replaced; true only for
    // yes. Without a dialog program nothing is replaced.
    static bool askToReplace(const char* title, const char* path);
    int32_t getNumSelectedFiles() const { return static_cast<int32_t>(selected.size()); }
    const char* getSelectedFile(uint32_t index) const;
    Route getLastRoute() const { return lastRoute; }
    Style getStyle() const { return style; }

  private:
    CNewFileSelector(CFrame* frame, Style style) : frame(frame), style(style) {}
    // Without a dialog program: the built-in browser (opening) or a path typed into the frame (saving).
    bool runFallback();

    CFrame* frame;
    Style style;
    std::string title;
    std::string initialDirectory;
    std::string defaultSaveName;
    std::vector<CFileExtension> extensions;
    std::vector<std::string> selected;
    Route lastRoute = Route::none;
};
