#include "ChildProcess.h"

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

extern char** environ;

namespace
{
// The shell runs the program with its arguments, keeps the status pipe (descriptor 3) from it and writes
// the program's exit status there once it has ended.
constexpr const char* kWaiterScript = "\"$@\" 3>&-; echo $? >&3";
constexpr int kStatusDescriptor = 3;

// Reads a descriptor to its end, through interruptions by the host's signal handlers.
std::string readAll(int descriptor)
{
    std::string text;
    char buffer[512];
    for (;;)
    {
        const ssize_t got = read(descriptor, buffer, sizeof(buffer));
        if (got > 0)
            text.append(buffer, static_cast<size_t>(got));
        else if (got == 0 || errno != EINTR)
            break;
    }
    return text;
}

// A pipe whose ends are not inherited by other children of the host.
bool openPipe(int ends[2])
{
    return pipe2(ends, O_CLOEXEC) == 0;
}

void closeBoth(int ends[2])
{
    close(ends[0]);
    close(ends[1]);
}

// Collects the waiter shell. ECHILD: the host's handler or the kernel reaped it already; EINTR: a handler
// ran meanwhile and the wait goes on.
void reap(pid_t child)
{
    int status = 0;
    while (waitpid(child, &status, 0) < 0 && errno == EINTR)
    {
    }
}
} // namespace

ChildProcessResult runChildProcess(const std::vector<std::string>& command,
                                   const ChildProcessOptions& options)
{
    ChildProcessResult result;
    if (command.empty()) return result;
    std::vector<char*> argv = {const_cast<char*>("/bin/sh"), const_cast<char*>("-c"),
                               const_cast<char*>(kWaiterScript), const_cast<char*>("sh")};
    for (const std::string& argument : command)
        argv.push_back(const_cast<char*>(argument.c_str()));
    argv.push_back(nullptr);

    int statusPipe[2];
    if (!openPipe(statusPipe)) return result;
    int outputPipe[2] = {-1, -1};
    if (options.captureOutput && !openPipe(outputPipe))
    {
        closeBoth(statusPipe);
        return result;
    }

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, statusPipe[1], kStatusDescriptor);
    if (options.captureOutput) posix_spawn_file_actions_adddup2(&actions, outputPipe[1], STDOUT_FILENO);
    if (options.quietErrors)
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    // The child starts with the default SIGCHLD and SIGPIPE and no blocked signal, whatever the host set.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t defaults;
    sigemptyset(&defaults);
    sigaddset(&defaults, SIGCHLD);
    sigaddset(&defaults, SIGPIPE);
    posix_spawnattr_setsigdefault(&attributes, &defaults);
    sigset_t noneBlocked;
    sigemptyset(&noneBlocked);
    posix_spawnattr_setsigmask(&attributes, &noneBlocked);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK);

    pid_t child = 0;
    const int spawned = posix_spawn(&child, argv[0], &actions, &attributes, argv.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    close(statusPipe[1]);
    if (options.captureOutput) close(outputPipe[1]);
    if (spawned != 0)
    {
        close(statusPipe[0]);
        if (options.captureOutput) close(outputPipe[0]);
        return result;
    }

    if (options.captureOutput)
    {
        result.output = readAll(outputPipe[0]);
        close(outputPipe[0]);
    }
    const std::string status = readAll(statusPipe[0]);
    close(statusPipe[0]);
    reap(child);
    // A shell killed before it could report leaves nothing to read: the program's end is unknown.
    if (status.empty() || status.back() != '\n') return result;
    char* end = nullptr;
    const long code = std::strtol(status.c_str(), &end, 10);
    if (end == status.c_str() || *end != '\n') return result;
    result.finished = true;
    result.exitCode = static_cast<int>(code);
    return result;
}
