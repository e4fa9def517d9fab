// A fresh directory for one test, removed with everything in it afterwards.
#pragma once

#include <string>

class TempDir
{
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return dir; }
    std::string file(const std::string& name) const { return dir + "/" + name; }

  private:
    std::string dir;
};
