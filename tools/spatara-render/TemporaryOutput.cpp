#include "TemporaryOutput.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
// What the handler removes; written before the handlers are installed, cleared before they go.
char pendingPath[PATH_MAX] = {};

void removeAndDie(int signal)
{
    if (pendingPath[0]) ::unlink(pendingPath);
    // The handler was reset to the default on entry: the signal, delivered again once this returns, ends
    // the program as it would have without us.
    ::raise(signal);
}

// Where the output really goes: an output that is a symbolic link stays one, and the file it leads to gets
// the result.
std::string linkTarget(const std::string& output)
{
    std::error_code unresolved;
    const std::filesystem::path target = std::filesystem::weakly_canonical(output, unresolved);
    return unresolved ? output : target.string();
}
} // namespace

TemporaryOutput::TemporaryOutput(const std::string& output)
    : output(linkTarget(output)), temporary(this->output + ".tmp-" + std::to_string(::getpid()))
{
    if (temporary.size() >= sizeof(pendingPath)) return; // the file could not be made anyway
    std::memcpy(pendingPath, temporary.c_str(), temporary.size() + 1);
    struct sigaction action = {};
    action.sa_handler = removeAndDie;
    action.sa_flags = SA_RESETHAND;
    sigemptyset(&action.sa_mask);
    for (std::size_t i = 0; i < sizeof(kSignals) / sizeof(kSignals[0]); ++i)
        ::sigaction(kSignals[i], &action, &previous[i]);
}

TemporaryOutput::~TemporaryOutput()
{
    if (!committed) std::remove(temporary.c_str());
    for (std::size_t i = 0; i < sizeof(kSignals) / sizeof(kSignals[0]); ++i)
        ::sigaction(kSignals[i], &previous[i], nullptr);
    pendingPath[0] = 0;
}

bool TemporaryOutput::commit()
{
    // An older output keeps the mode its owner gave it.
    struct stat older = {};
    if (::stat(output.c_str(), &older) == 0 && ::chmod(temporary.c_str(), older.st_mode & 07777) != 0)
        return false;
    committed = std::rename(temporary.c_str(), output.c_str()) == 0;
    return committed;
}
