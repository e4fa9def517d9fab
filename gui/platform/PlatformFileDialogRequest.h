// What an open or save dialog is asked for: title, start folder, default name and file filters; or, with a
// question, a yes/no question about a file in the same desktop style.
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
    // When set, the dialog asks this instead of choosing a file: yes answers chosen, no cancelled.
    std::string question;
};
