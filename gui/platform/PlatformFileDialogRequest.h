// What an open or save dialog is asked for: title, start folder, default name and file filters.
#pragma once

#include <string>
#include <vector>

struct PlatformFileFilter
{
    std::string description;
    // Without the dot: "zev".
    std::string extension;
};

struct PlatformFileDialogRequest
{
    bool save = false;
    bool directory = false;
    std::string title;
    std::string initialDirectory;
    std::string defaultName;
    std::vector<PlatformFileFilter> filters;
};
