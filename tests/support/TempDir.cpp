#include "TempDir.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

TempDir::TempDir()
{
    std::string pattern = (std::filesystem::temp_directory_path() / "spatara-test-XXXXXX").string();
    if (!mkdtemp(pattern.data())) throw std::runtime_error("cannot create a temporary directory");
    dir = pattern;
}

TempDir::~TempDir()
{
    std::error_code ignored;
    std::filesystem::remove_all(dir, ignored);
}
