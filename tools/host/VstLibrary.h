// A plug-in library opened the way a host opens one: dlopen, then its entry point (VSTPluginMain, or the
// "main" of older Linux plug-ins) called with a host callback. Closing it unloads the library.
#pragma once

#include "VstInterface.h"

#include <memory>
#include <string>

class VstLibrary
{
  public:
    // Null, with the reason in error, when the file cannot be loaded or has no entry point.
    static std::unique_ptr<VstLibrary> open(const std::string& path, std::string& error);
    ~VstLibrary();
    VstLibrary(const VstLibrary&) = delete;
    VstLibrary& operator=(const VstLibrary&) = delete;

    // One new effect; null, with the reason in error, when the entry made none.
    AEffect* createEffect(audioMasterCallback callback, std::string& error) const;

  private:
    VstLibrary(void* handle, VstPluginMainProc entry, std::string path);

    void* handle;
    VstPluginMainProc entry;
    std::string path;
};
