#include "XPlatFile.h"
#include "TempDir.h"

#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace
{
std::string directoryOf(const TempDir& dir)
{
    return dir.path() + "/";
}
} // namespace

TEST(XPlatFile, OpenMeasuresTheLengthAndReadsFromTheStart)
{
    TempDir dir;
    std::ofstream(dir.file("a.zev"), std::ios::binary) << "0123456789";
    void* handle = nullptr;
    EXPECT_EQ(XPlatFileOpen("a.zev", directoryOf(dir).c_str(), &handle, false), 10);
    ASSERT_NE(handle, nullptr);
    char buffer[4] = {};
    XPlatFileRead(handle, buffer, 3);
    EXPECT_STREQ(buffer, "012");
    XPlatFileClose(handle);
}

TEST(XPlatFile, FailedOpenGivesNullHandleAndLengthZero)
{
    TempDir dir;
    void* handle = reinterpret_cast<void*>(0x1);
    EXPECT_EQ(XPlatFileOpen("missing.zev", directoryOf(dir).c_str(), &handle, false), 0);
    EXPECT_EQ(handle, nullptr);
}

TEST(XPlatFile, EveryFunctionAcceptsANullHandle)
{
    char buffer[8] = "abcdefg";
    XPlatFileRead(nullptr, buffer, 8);
    XPlatFileWrite(nullptr, buffer, 8);
    XPlatFileClose(nullptr);
    EXPECT_STREQ(buffer, "abcdefg");
}

TEST(XPlatFile, WritingCreatesOrTruncates)
{
    TempDir dir;
    std::ofstream(dir.file("b.zvb"), std::ios::binary) << "old contents that are long";
    void* handle = nullptr;
    EXPECT_EQ(XPlatFileOpen("b.zvb", directoryOf(dir).c_str(), &handle, true), 0);
    XPlatFileWrite(handle, "new", 3);
    XPlatFileClose(handle);
    std::ifstream in(dir.file("b.zvb"), std::ios::binary);
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(text, "new");
}

TEST(XPlatFile, AReadOnlyFileDoesNotOpenForLoading)
{
    TempDir dir;
    std::string directory = directoryOf(dir), name = "ro.zev";
    std::ofstream(dir.file(name), std::ios::binary) << "abcdef";
    ASSERT_EQ(chmod(dir.file(name).c_str(), 0444), 0);
    if (geteuid() == 0)
    {
        // Root writes any ordinary file; the kernel's notes are readable and writable by nobody.
        directory = "/sys/kernel/";
        name = "notes";
    }
    std::FILE* readable = std::fopen((directory + name).c_str(), "rb");
    ASSERT_NE(readable, nullptr) << "the file can be read";
    std::fclose(readable);
    void* handle = nullptr;
    EXPECT_EQ(XPlatFileOpen(name.c_str(), directory.c_str(), &handle, false), 0);
    EXPECT_EQ(handle, nullptr);
}

TEST(XPlatFile, AJoinedPathMustStayBelow520Characters)
{
    TempDir dir;
    // Deep enough that the joined path reaches 520 characters with names the file system accepts.
    const std::string directory =
        directoryOf(dir) + std::string(200, 'a') + "/" + std::string(200, 'b') + "/";
    std::filesystem::create_directories(directory);
    const std::string fits(519 - directory.size(), 'n');
    const std::string tooLong = fits + "x";
    void* handle = nullptr;
    XPlatFileOpen(fits.c_str(), directory.c_str(), &handle, true);
    EXPECT_NE(handle, nullptr) << "519 characters and the terminator fit the 520-byte join";
    XPlatFileClose(handle);
    XPlatFileOpen(tooLong.c_str(), directory.c_str(), &handle, true);
    EXPECT_EQ(handle, nullptr);
    EXPECT_FALSE(std::filesystem::exists(directory + tooLong));
}

TEST(XPlatFile, NameAndDirectorySplitAtTheLastSlash)
{
    char name[64] = "unchanged", directory[64] = "unchanged";
    XPlatGetFileNameAndDir("/home/user/presets/warm.zev", name, directory);
    EXPECT_STREQ(name, "warm.zev");
    EXPECT_STREQ(directory, "/home/user/presets/");
    XPlatGetFileNameAndDir("/top.zev", name, directory);
    EXPECT_STREQ(name, "top.zev");
    EXPECT_STREQ(directory, "/");
}

TEST(XPlatFile, APathWithoutSlashLeavesBothAsTheyWere)
{
    char name[64] = "name before", directory[64] = "dir before";
    XPlatGetFileNameAndDir("plain.zev", name, directory);
    EXPECT_STREQ(name, "name before");
    EXPECT_STREQ(directory, "dir before");
}
