// The whole load of a chosen file, as the preset panel runs it, on files of every kind: the bytes as a
// regular file, the same file grown sparse to a huge size, a FIFO, a folder, a device and a link. The first
// byte picks the kind, a preset or bank load and the reversed load; the rest is the file's content.
#include "FuzzEffect.h"

#include <fcntl.h>
#include <filesystem>
#include <optional>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
// A folder of this process's own, removed when the fuzzer ends.
struct ScratchFolder
{
    ScratchFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "spatara-fuzz-load-XXXXXX").string();
        if (mkdtemp(pattern.data())) path = pattern;
    }
    ~ScratchFolder()
    {
        std::error_code ignored;
        if (!path.empty()) std::filesystem::remove_all(path, ignored);
    }
    std::string path;
};

const std::string& scratchFolder()
{
    static const ScratchFolder folder;
    return folder.path;
}

// Puts a file of the asked kind at path with content, and answers the path to choose.
std::string makeFile(int kind, const std::uint8_t* content, std::size_t size)
{
    const std::string path = scratchFolder() + "/chosen";
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
    std::filesystem::remove(path + ".target", ignored);
    switch (kind)
    {
    case 1: // a FIFO nobody writes to
        ::mkfifo(path.c_str(), 0600);
        return path;
    case 2: // a folder
        std::filesystem::create_directory(path, ignored);
        return path;
    case 3: // a device that never ends
        return "/dev/zero";
    default:
        break;
    }
    const std::string file = kind == 4 ? path + ".target" : path;
    const int fd = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (fd < 0) return path;
    if (size > 0 && ::write(fd, content, size) < 0) size = 0;
    if (kind == 5) ::ftruncate(fd, off_t{1} << 40);  // the bytes, then a huge hole
    if (kind == 6) ::ftruncate(fd, 1024 * 1024 + 1); // just over what a load takes
    ::close(fd);
    if (kind == 4) std::filesystem::create_symlink(file, path, ignored);
    return path;
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size < 1) return 0;
    Spatara& effect = fuzzEffect();
    CPresetSystemEditor& editor = *effect.presetEditor();
    const std::string path = makeFile(data[0] & 7, data + 1, size - 1);
    editor.setFileChooser([&path](const FileChoice&) -> std::optional<std::string> { return path; });
    const bool reversed = data[0] & 16;
    if (data[0] & 8)
        editor.loadBank(reversed);
    else
        editor.loadPreset(reversed);
    checkTableInvariants(effect);
    return 0;
}
