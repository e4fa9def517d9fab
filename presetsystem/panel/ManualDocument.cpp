#include "ManualDocument.h"

#include "ChildProcess.h"

#include <cstdlib>
#include <dlfcn.h>
#include <filesystem>
#include <sstream>
#include <sys/stat.h>

namespace spatara
{
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
} // namespace

std::string manualDocumentsPath()
{
    return std::string("Documents/") + kManualVendorFolder + "/" + kManualFamilyFolder + "/" +
           kManualFileName;
}

std::vector<std::string> manualCandidatePaths()
{
    std::vector<std::string> paths;
    const std::string home = homeFolder();
    if (!home.empty()) paths.push_back(home + "/" + manualDocumentsPath());
    const std::string beside = ownFolder();
    if (!beside.empty()) paths.push_back(beside + kManualFileName);
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

bool openManual()
{
    for (const std::string& candidate : manualCandidatePaths())
    {
        if (!isFile(candidate)) continue;
        const ChildProcessResult viewer = runChildProcess({"xdg-open", candidate});
        return viewer.finished && viewer.exitCode == 0;
    }
    return false;
}

std::string manualAlertText()
{
    // Always the documents path, wherever else the manual was looked for: the words users know it by.
    return "Could not open manual file:\n~/\"" + manualDocumentsPath() + "\"";
}
} // namespace spatara
