// spatara-editor-host: opens a VST 2.4 plug-in's editor in an X11 window the way a host does.
//   spatara-editor-host PLUGIN.so [--seconds S] [--screenshot FILE.png] [--reopen N] [--set INDEX=VALUE]...
// --set gives a parameter its normalised value before the editor opens (for screenshots of each mode).
// Exit status 0 when the editor opened at its rectangle (and reopened N times), 1 otherwise. It prints the
// times of opening and idling, the longest idle (the first, which draws everything) and how much resident
// memory the first opening added.
#include "HostRecorder.h"
#include "VstTestHost.h"
#include "X11TestWindow.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace
{
using Clock = std::chrono::steady_clock;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

// This process's resident memory in MB, from /proc/self/statm.
double residentMegabytes()
{
    long pages = 0, resident = 0;
    if (FILE* statm = std::fopen("/proc/self/statm", "r"))
    {
        if (std::fscanf(statm, "%ld %ld", &pages, &resident) != 2) resident = 0;
        std::fclose(statm);
    }
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// Idles the editor for the given time; answers whether it showed at the rectangle. Adds up the idle calls.
bool idleUntilShown(VstTestHost& host, X11TestWindow& parent, const ERect& rect, double seconds,
                    double& idleMs, int& idles, double& longestIdleMs)
{
    const auto end = Clock::now() + std::chrono::duration<double>(seconds);
    bool shown = false;
    while (Clock::now() < end)
    {
        const auto start = Clock::now();
        host.idleEditor();
        const double spent = millisecondsSince(start);
        idleMs += spent;
        longestIdleMs = std::max(longestIdleMs, spent);
        ++idles;
        const auto children = parent.children();
        shown = children.size() == 1 && children[0].mapped && children[0].width == rect.right - rect.left &&
                children[0].height == rect.bottom - rect.top;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return shown;
}
} // namespace

int main(int argc, char** argv)
{
    if (argc < 2)
    {
        std::fprintf(
            stderr,
            "usage: %s PLUGIN.so [--seconds S] [--screenshot FILE.png] [--reopen N] [--set INDEX=VALUE]...\n",
            argv[0]);
        return 2;
    }
    double seconds = 0.5;
    std::string screenshot;
    int reopen = 0;
    std::vector<std::pair<int, float>> parameters;
    for (int i = 2; i + 1 < argc; i += 2)
    {
        const std::string option = argv[i];
        if (option == "--seconds")
            seconds = std::atof(argv[i + 1]);
        else if (option == "--screenshot")
            screenshot = argv[i + 1];
        else if (option == "--reopen")
            reopen = std::atoi(argv[i + 1]);
        else if (option == "--set")
        {
            const std::string assignment = argv[i + 1];
            const auto equals = assignment.find('=');
            if (equals == std::string::npos) continue;
            parameters.emplace_back(std::atoi(assignment.substr(0, equals).c_str()),
                                    static_cast<float>(std::atof(assignment.substr(equals + 1).c_str())));
        }
    }
    std::string error;
    auto host = VstTestHost::load(argv[1], HostRecorder::callback, error);
    if (!host)
    {
        std::fprintf(stderr, "cannot load %s: %s\n", argv[1], error.c_str());
        return 1;
    }
    for (const auto& [index, value] : parameters)
        host->getEffect()->setParameter(host->getEffect(), index, value);
    if (!host->hasEditor())
    {
        std::fprintf(stderr, "the plug-in has no editor\n");
        return 1;
    }
    const ERect* rectPointer = host->getEditorRect();
    if (!rectPointer)
    {
        std::fprintf(stderr, "effEditGetRect gave no rectangle\n");
        return 1;
    }
    const ERect rect = *rectPointer;
    X11TestWindow parent(rect.right - rect.left, rect.bottom - rect.top);
    if (!parent.isOpen())
    {
        std::fprintf(stderr, "no X display\n");
        return 1;
    }
    double openMs = 0.0, idleMs = 0.0, longestIdleMs = 0.0;
    int idles = 0;
    const double residentBefore = residentMegabytes();
    double residentAfterFirst = residentBefore;
    for (int round = 0; round <= reopen; ++round)
    {
        const auto start = Clock::now();
        const bool opened = host->openEditor(parent.getWindow());
        openMs += millisecondsSince(start);
        if (!opened || !idleUntilShown(*host, parent, rect, seconds, idleMs, idles, longestIdleMs))
        {
            std::fprintf(stderr, "the editor did not open at %dx%d (round %d)\n", rect.right - rect.left,
                         rect.bottom - rect.top, round);
            return 1;
        }
        if (round == 0) residentAfterFirst = residentMegabytes();
        if (round == 0 && !screenshot.empty() && !parent.screenshot(screenshot))
            std::fprintf(stderr, "screenshot failed\n");
        host->closeEditor();
        if (!parent.children().empty())
        {
            std::fprintf(stderr, "the editor's window stayed after close (round %d)\n", round);
            return 1;
        }
    }
    std::printf(
        "editor %dx%d opened %d time(s); open %.2f ms, idle %.3f ms on average, longest idle %.2f ms; "
        "resident memory +%.1f MB at the first opening\n",
        rect.right - rect.left, rect.bottom - rect.top, reopen + 1, openMs / (reopen + 1),
        idles ? idleMs / idles : 0.0, longestIdleMs, residentAfterFirst - residentBefore);
    return 0;
}
