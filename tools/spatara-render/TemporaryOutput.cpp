#include "TemporaryOutput.h"

#include <cstdio>
#include <cstring>
#include <limits.h>
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
} // namespace

TemporaryOutput::TemporaryOutput(const std::string& output)
    : output(output), temporary(output + ".tmp-" + std::to_string(::getpid()))
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
    committed = std::rename(temporary.c_str(), output.c_str()) == 0;
    return committed;
}
