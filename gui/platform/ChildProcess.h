// Runs a desktop program (a dialog, an alert, a document viewer) as a child process and waits for it,
// whatever the host does with SIGCHLD.
#pragma once

#include <string>
#include <vector>

// How a child program ended.
struct ChildProcessResult
{
    // Whether the program ran to its end and its exit status is known.
    bool finished = false;
    // Its exit status; 127 when it was not found, 126 when it could not be run.
    int exitCode = -1;
    // Its standard output, when it was asked for.
    std::string output;
};

struct ChildProcessOptions
{
    // Collect the program's standard output instead of letting it reach the host's.
    bool captureOutput = false;
    // Send the program's error chatter to /dev/null instead of the host's terminal.
    bool quietErrors = false;
};

// Runs command (program looked up on PATH, then its arguments) and returns once it has ended. A host may
// ignore SIGCHLD, so that children are reaped by the kernel, or reap every child in a handler of its own:
// either way the status would be lost to waitpid. So a small shell between us and the program waits for it
// with the default disposition and hands its status back through a pipe, and waitpid's ECHILD and EINTR
// are expected, not retried forever.
ChildProcessResult runChildProcess(const std::vector<std::string>& command,
                                   const ChildProcessOptions& options = {});
