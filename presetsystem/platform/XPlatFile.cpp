#include "XPlatFile.h"

#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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
} // namespace

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
