// The desktop's file dialog program (zenity, else kdialog) run as a child process; the host's own toolkit
// stays out of our way.
#pragma once

#include "PlatformFileDialogRequest.h"

#include <string>
#include <vector>

class PlatformFileDialog
{
  public:
    enum class Program
    {
        none,
        zenity,
        kdialog,
    };
    enum class Outcome
    {
        chosen,
        cancelled,
        // No dialog program could be run.
        unavailable,
    };

    // The first dialog program found on PATH.
    static Program findProgram();
    // The program's command line for the request (program name first).
    static std::vector<std::string> commandLine(Program program, const PlatformFileDialogRequest& request);
    // Runs the dialog and waits for it; on chosen, path holds the file (a question leaves it as it is).
    static Outcome run(const PlatformFileDialogRequest& request, std::string& path);
};
