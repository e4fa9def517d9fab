#include "CPreferencesStore.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
// Holds an advisory lock on a lock file beside the preferences while it lives. Another process gets at
// most kLockWait to finish its write: a hung host must not hang ours.
class FileLock
{
  public:
    static constexpr int kLockWaitMs = 5000;

    explicit FileLock(const std::string& path) : fd(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600))
    {
        for (int waited = 0; fd >= 0 && ::flock(fd, LOCK_EX | LOCK_NB) != 0; waited += 5)
        {
            if ((errno != EWOULDBLOCK && errno != EINTR) || waited >= kLockWaitMs)
            {
                ::close(fd);
                fd = -1;
                break;
            }
            ::usleep(5000);
        }
    }
    ~FileLock()
    {
        if (fd >= 0) ::close(fd); // closing releases the lock
    }
    FileLock(const FileLock&) = delete;
    FileLock& operator=(const FileLock&) = delete;
    bool held() const { return fd >= 0; }

  private:
    int fd;
};

bool readWholeFile(const std::string& path, std::string& text, bool& tooLarge)
{
    tooLarge = false;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file) return false;
    char buffer[65536];
    std::size_t n;
    while ((n = std::fread(buffer, 1, sizeof(buffer), file)) > 0)
    {
        text.append(buffer, n);
        if (text.size() > kMaxPreferencesFileSize)
        {
            tooLarge = true;
            break;
        }
    }
    std::fclose(file);
    return true;
}

bool writeWholeFile(const std::string& path, const std::string& text)
{
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    if (fd < 0) return false;
    std::size_t done = 0;
    while (done < text.size())
    {
        const ssize_t n = ::write(fd, text.data() + done, text.size() - done);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0)
        {
            ::close(fd);
            return false;
        }
        done += static_cast<std::size_t>(n);
    }
    const bool synced = ::fsync(fd) == 0;
    return ::close(fd) == 0 && synced;
}
} // namespace

CPreferencesStore::CPreferencesStore(std::string path) : fixedPath(std::move(path)) {}

std::string CPreferencesStore::defaultPath()
{
    const char* config = std::getenv("XDG_CONFIG_HOME");
    std::string base;
    if (config && *config == '/')
        base = config;
    else if (const char* home = std::getenv("HOME"); home && *home)
        base = std::string(home) + "/.config";
    else
        base = "/tmp";
    return base + "/zev-spatara/preferences";
}

std::string CPreferencesStore::filePath() const
{
    return fixedPath.empty() ? defaultPath() : fixedPath;
}

PreferenceMap CPreferencesStore::readFile(const std::string& path)
{
    std::string text;
    bool tooLarge = false;
    if (!readWholeFile(path, text, tooLarge)) return {};
    int badLine = 0;
    auto values = tooLarge ? std::nullopt : parsePreferences(text, badLine);
    if (values) return *values;
    if (reportedDamage != path)
    {
        reportedDamage = path;
        if (tooLarge)
            std::fprintf(stderr, "ZEV Spatara: ignoring preferences file %s: too large\n", path.c_str());
        else
            std::fprintf(stderr, "ZEV Spatara: ignoring damaged preferences file %s (line %d)\n",
                         path.c_str(), badLine);
    }
    return {};
}

void CPreferencesStore::setString(const std::string& key, const std::string& value)
{
    std::lock_guard<std::mutex> hold(guard);
    pendingRemovals.erase(key);
    pendingSets[key] = value;
}

void CPreferencesStore::setData(const std::string& key, const std::vector<unsigned char>& value)
{
    std::lock_guard<std::mutex> hold(guard);
    pendingRemovals.erase(key);
    pendingSets[key] = value;
}

void CPreferencesStore::remove(const std::string& key)
{
    std::lock_guard<std::mutex> hold(guard);
    pendingSets.erase(key);
    pendingRemovals.insert(key);
}

std::optional<PreferenceValue> CPreferencesStore::lookUp(const std::string& key)
{
    std::lock_guard<std::mutex> hold(guard);
    if (pendingRemovals.count(key)) return std::nullopt;
    if (auto pending = pendingSets.find(key); pending != pendingSets.end()) return pending->second;
    PreferenceMap values = readFile(filePath());
    if (auto stored = values.find(key); stored != values.end()) return stored->second;
    return std::nullopt;
}

std::optional<std::string> CPreferencesStore::getString(const std::string& key)
{
    auto value = lookUp(key);
    if (auto* string = value ? std::get_if<std::string>(&*value) : nullptr) return *string;
    return std::nullopt;
}

std::optional<std::vector<unsigned char>> CPreferencesStore::getData(const std::string& key)
{
    auto value = lookUp(key);
    if (auto* data = value ? std::get_if<std::vector<unsigned char>>(&*value) : nullptr) return *data;
    return std::nullopt;
}

bool CPreferencesStore::synchronize()
{
    std::lock_guard<std::mutex> hold(guard);
    if (pendingSets.empty() && pendingRemovals.empty()) return true;
    for (const auto& [key, value] : pendingSets)
        if (!isValidPreferenceKey(key)) return false;

    const std::string path = filePath();
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    FileLock lock(path + ".lock");
    if (!lock.held()) return false;

    // Another instance may have written since we last looked: start from what is there now.
    PreferenceMap values = readFile(path);
    for (const std::string& key : pendingRemovals)
        values.erase(key);
    for (const auto& [key, value] : pendingSets)
        values[key] = value;

    const std::string temporary = path + ".tmp-" + std::to_string(::getpid());
    if (!writeWholeFile(temporary, formatPreferences(values)) ||
        std::rename(temporary.c_str(), path.c_str()) != 0)
    {
        std::remove(temporary.c_str());
        return false;
    }
    pendingSets.clear();
    pendingRemovals.clear();
    return true;
}
