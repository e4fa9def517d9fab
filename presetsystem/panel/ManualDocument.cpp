#include "ManualDocument.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <spawn.h>
#include <sstream>
#include <sys/stat.h>
#include <sys/wait.h>

extern char** environ;

namespace
{
std::string environmentOr(const char* name, const std::string& fallback)
{
    const char* value = std::getenv(name);
    return value && *value ? value : fallback;
}

std::string homeFolder()
{
    return environmentOr("HOME", "");
}

// The folder of the binary that holds this code: the plug-in's .so in a host.
std::string ownFolder()
{
    Dl_info info{};
    if (!dladdr(reinterpret_cast<void*>(&manualCandidatePaths), &info) || !info.dli_fname) return {};
    // The name the binary was loaded by may be relative to the host's working folder.
    std::error_code error;
    const auto file = std::filesystem::weakly_canonical(std::filesystem::absolute(info.dli_fname), error);
    if (error || !file.has_parent_path()) return {};
    return file.parent_path().string() + "/";
}

bool isFile(const std::string& path)
{
    struct stat status
    {
    };
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

// Answers whether the program ran and exited with 0.
bool runAndWait(const char* program, const std::string& argument)
{
    char* argv[] = {const_cast<char*>(program), const_cast<char*>(argument.c_str()), nullptr};
    pid_t child = 0;
    if (posix_spawnp(&child, program, nullptr, nullptr, argv, environ) != 0) return false;
    int status = 0;
    while (waitpid(child, &status, 0) < 0)
    {
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
} // namespace

std::vector<std::string> manualCandidatePaths()
{
    std::vector<std::string> paths;
    const std::string beside = ownFolder();
    if (!beside.empty()) paths.push_back(beside + kManualFileName);
    const std::string home = homeFolder();
    const std::string dataHome = environmentOr("XDG_DATA_HOME", home.empty() ? "" : home + "/.local/share");
    if (!dataHome.empty()) paths.push_back(dataHome + "/zev-spatara/" + kManualFileName);
    // An install under any prefix: the plug-in in <prefix>/lib/vst, the manual in <prefix>/share/doc.
    if (!beside.empty())
    {
        const auto prefix = std::filesystem::path(beside).parent_path().parent_path().parent_path();
        if (!prefix.empty()) paths.push_back((prefix / "share/doc/zev-spatara" / kManualFileName).string());
    }
    std::istringstream dataDirs(environmentOr("XDG_DATA_DIRS", "/usr/local/share:/usr/share"));
    for (std::string folder; std::getline(dataDirs, folder, ':');)
        if (!folder.empty()) paths.push_back(folder + "/doc/zev-spatara/" + kManualFileName);
    return paths;
}

bool openManual(std::string& path)
{
    const auto candidates = manualCandidatePaths();
    path = candidates.empty() ? std::string(kManualFileName) : candidates.front();
    for (const std::string& candidate : candidates)
    {
        if (!isFile(candidate)) continue;
        path = candidate;
        return runAndWait("xdg-open", candidate);
    }
    return false;
}

std::string manualAlertText(const std::string& path)
{
    const std::string home = homeFolder();
    if (!home.empty() && path.size() > home.size() + 1 && path.compare(0, home.size(), home) == 0 &&
        path[home.size()] == '/')
        return "Could not open manual file:\n~/\"" + path.substr(home.size() + 1) + "\"";
    return "Could not open manual file:\n\"" + path + "\"";
}
