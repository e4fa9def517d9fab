#include "XPlatFile.h"

#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{
constexpr std::size_t kJoinedPathSize = 520;

std::FILE* fileOf(void* handle)
{
    return static_cast<std::FILE*>(handle);
}

// Opens a file to load only when it is a regular file of a plausible size. Opening does not wait (a FIFO
// would wait for a writer) and the checks are made on what was opened, so nothing can be swapped in
// between. Read and update, as loads have always opened: a file the user cannot write does not load.
std::FILE* openForLoading(const char* path)
{
    const int fd = ::open(path, O_RDWR | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return nullptr;
    struct stat status
    {
    };
    if (::fstat(fd, &status) != 0 || !S_ISREG(status.st_mode) || status.st_size > kMaxLoadedFileSize)
    {
        ::close(fd);
        return nullptr;
    }
    std::FILE* file = ::fdopen(fd, "rb+");
    if (!file) ::close(fd);
    return file;
}

// Where a save really goes: through symbolic links to the file they lead to (which need not exist yet).
std::string saveTarget(const std::string& path)
{
    std::string target = path;
    for (int hops = 0; hops < 40; ++hops)
    {
        char link[PATH_MAX];
        const ssize_t length = ::readlink(target.c_str(), link, sizeof(link) - 1);
        if (length < 0) break; // no link (or no file): this is it
        link[length] = 0;
        if (link[0] == '/')
            target = link;
        else
            target = target.substr(0, target.rfind('/') + 1) + link;
    }
    return target;
}

bool writeAll(int fd, const char* data, std::size_t count, off_t offset)
{
    while (count > 0)
    {
        const ssize_t written = ::pwrite(fd, data, count, offset);
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        data += written;
        count -= static_cast<std::size_t>(written);
        offset += written;
    }
    return true;
}

bool readAll(int fd, std::vector<char>& out, std::size_t count)
{
    out.assign(count, 0);
    std::size_t done = 0;
    while (done < count)
    {
        const ssize_t got = ::pread(fd, out.data() + done, count - done, static_cast<off_t>(done));
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) return false;
        done += static_cast<std::size_t>(got);
    }
    return true;
}

// Writes data as the whole content of an open file and syncs it.
bool writeContent(int fd, const char* data, std::size_t count)
{
    return writeAll(fd, data, count, 0) && ::ftruncate(fd, static_cast<off_t>(count)) == 0 &&
           ::fsync(fd) == 0;
}

// The new file beside the old one, with the old one's mode and owner, renamed over it when complete.
// Answers false, leaving everything as it was, where that cannot be done (the folder is not writable, or
// the owner could not be kept).
bool replaceBeside(const std::string& target, const struct stat* old, const char* data, std::size_t count,
                   unsigned newFileMode)
{
    const auto slash = target.rfind('/');
    const std::string temporary = target.substr(0, slash + 1) + "." + target.substr(slash + 1) + ".saving-" +
                                  std::to_string(::getpid());
    const int fd = ::open(temporary.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, newFileMode);
    if (fd < 0) return false;
    bool done = true;
    if (old)
        done = ::fchmod(fd, old->st_mode & 07777) == 0 &&
               (::fchown(fd, old->st_uid, old->st_gid) == 0 ||
                (old->st_uid == ::geteuid() && old->st_gid == ::getegid()));
    done = done && writeContent(fd, data, count);
    done = ::close(fd) == 0 && done;
    done = done && std::rename(temporary.c_str(), target.c_str()) == 0;
    if (!done) ::unlink(temporary.c_str());
    return done;
}

// The old file rewritten where it is, checked by reading it back; on failure its old content is put back.
bool rewriteInPlace(const std::string& target, const char* data, std::size_t count)
{
    const int fd = ::open(target.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (fd < 0) return false;
    struct stat status
    {
    };
    std::vector<char> previous;
    bool done = ::fstat(fd, &status) == 0 && S_ISREG(status.st_mode) &&
                readAll(fd, previous, static_cast<std::size_t>(status.st_size));
    if (done)
    {
        std::vector<char> check;
        done = writeContent(fd, data, count) && readAll(fd, check, count) &&
               (count == 0 || std::memcmp(check.data(), data, count) == 0);
        if (!done) writeContent(fd, previous.data(), previous.size());
    }
    ::close(fd);
    return done;
}
} // namespace

bool XPlatFileSave(const char* fileName, const char* directory, const void* data, long count,
                   unsigned newFileMode)
{
    if (count < 0) return false;
    const std::string target = saveTarget(std::string(directory) + fileName);
    const auto* bytes = static_cast<const char*>(data);
    const auto size = static_cast<std::size_t>(count);
    struct stat old
    {
    };
    if (::stat(target.c_str(), &old) != 0) return replaceBeside(target, nullptr, bytes, size, newFileMode);
    if (!S_ISREG(old.st_mode)) return false;
    // A file with other names must stay one file with them.
    if (old.st_nlink == 1 && replaceBeside(target, &old, bytes, size, newFileMode)) return true;
    return rewriteInPlace(target, bytes, size);
}

long XPlatFileOpen(const char* fileName, const char* directory, void** handle, bool write)
{
    *handle = nullptr;
    char path[kJoinedPathSize];
    const int length = std::snprintf(path, sizeof(path), "%s%s", directory, fileName);
    if (length < 0 || static_cast<std::size_t>(length) >= sizeof(path))
        return 0; // a path that does not fit is a file that does not open
    std::FILE* file = write ? std::fopen(path, "wb+") : openForLoading(path);
    if (!file) return 0;
    long size = 0;
    if (std::fseek(file, 0, SEEK_END) == 0) size = std::ftell(file);
    std::fseek(file, 0, SEEK_SET);
    *handle = file;
    return size > 0 ? size : 0;
}

void XPlatFileRead(void* handle, void* buffer, long count)
{
    if (handle && count > 0) std::fread(buffer, 1, static_cast<std::size_t>(count), fileOf(handle));
}

void XPlatFileWrite(void* handle, const void* buffer, long count)
{
    if (handle && count > 0) std::fwrite(buffer, 1, static_cast<std::size_t>(count), fileOf(handle));
}

void XPlatFileClose(void* handle)
{
    if (handle) std::fclose(fileOf(handle));
}

void XPlatGetFileNameAndDir(const char* fullPath, char* name, char* directory)
{
    const char* slash = std::strrchr(fullPath, '/');
    if (!slash) return;
    std::strcpy(name, slash + 1);
    const auto directoryLength = static_cast<std::size_t>(slash - fullPath) + 1;
    std::memcpy(directory, fullPath, directoryLength);
    directory[directoryLength] = 0;
}
