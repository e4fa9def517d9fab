// A file type for the file selector: a description and an extension without the dot.
#pragma once

#include <string>

class CFileExtension
{
  public:
    CFileExtension(const char* description, const char* extension)
        : description(description ? description : ""), extension(extension ? extension : "")
    {
    }

    const char* getDescription() const { return description.c_str(); }
    const char* getExtension() const { return extension.c_str(); }

  private:
    std::string description;
    std::string extension;
};
