// Runs a command line through the shell and keeps its exit code, standard output and standard error.
#pragma once

#include <string>

struct CommandResult
{
    int exitCode = -1;
    std::string out;
    std::string err;
};

CommandResult runCommand(const std::string& commandLine);
// Quotes an argument for the shell.
std::string shellQuote(const std::string& argument);
