#include "CPreferencesStore.h"

#include "XPlatFile.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <string>
#include <sys/file.h>
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

enum class FileRead
{
    missing,
    read,
    failed, // there, but not to be read: no permission, a folder, an I/O error, too large
};

FileRead readWholeFile(const std::string& path, std::string& text, std::string& why)
{
    std::FILE* file = std::fopen(path.c_str(), "rb");
    if (!file)
    {
        why = std::strerror(errno);
        return errno == ENOENT ? FileRead::missing : FileRead::failed;
    }
    char buffer[65536];
    std::size_t n;
    while ((n = std::fread(buffer, 1, sizeof(buffer), file)) > 0 && text.size() <= kMaxPreferencesFileSize)
        text.append(buffer, n);
    const bool failed = std::ferror(file) != 0;
    std::fclose(file);
    if (failed) why = "cannot be read";
    if (text.size() > kMaxPreferencesFileSize) why = "too large";
    return why.empty() ? FileRead::read : FileRead::failed;
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

CPreferencesStore::StoredFile CPreferencesStore::readFile(const std::string& path)
{
    std::string text;
    std::string why;
    const FileRead outcome = readWholeFile(path, text, why);
    if (outcome == FileRead::read && text.find('\0') != std::string::npos) why = "not text";
    if (outcome == FileRead::missing || why.empty()) return StoredFile{CPreferencesDocument(text), false};
    if (reportedDamage != path)
    {
        reportedDamage = path;
        std::fprintf(stderr, "ZEV Spatara: ignoring unreadable preferences file %s (%s)\n", path.c_str(),
                     why.c_str());
    }
    return StoredFile{CPreferencesDocument(), true};
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
    return readFile(filePath()).document.get(key);
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
        if (!spatara::isValidPreferenceKey(key)) return false;

    const std::string path = filePath();
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(path).parent_path(), ignored);
    FileLock lock(path + ".lock");
    if (!lock.held()) return false;

    // Another instance may have written since we last looked: start from what is there now.
    StoredFile stored = readFile(path);
    if (stored.unreadable)
    {
        // What we cannot read may still be worth something to the user: kept aside before it is replaced,
        // and left alone when not even a copy can be made.
        std::error_code failed;
        std::filesystem::copy_file(path, path + ".damaged", std::filesystem::copy_options::overwrite_existing,
                                   failed);
        if (failed) return false;
        std::fprintf(stderr, "ZEV Spatara: the unreadable preferences file was kept as %s.damaged\n",
                     path.c_str());
    }
    for (const std::string& key : pendingRemovals)
        stored.document.remove(key);
    for (const auto& [key, value] : pendingSets)
        stored.document.set(key, value);

    // Saved as the presets are: a preferences file linked in from a folder of the user's settings stays
    // linked, and its mode stays. A new one is the user's alone.
    const std::string text = stored.document.text();
    const auto slash = path.rfind('/');
    if (!XPlatFileSave(path.substr(slash + 1).c_str(), path.substr(0, slash + 1).c_str(), text.data(),
                       static_cast<long>(text.size()), 0600))
        return false;
    pendingSets.clear();
    pendingRemovals.clear();
    return true;
}
