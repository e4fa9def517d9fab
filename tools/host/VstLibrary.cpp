#include "VstLibrary.h"

#include <dlfcn.h>

std::unique_ptr<VstLibrary> VstLibrary::open(const std::string& path, std::string& error)
{
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle)
    {
        const char* why = dlerror();
        error = "cannot load " + path + ": " + (why ? why : "unknown error");
        return nullptr;
    }
    auto entry = reinterpret_cast<VstPluginMainProc>(dlsym(handle, "VSTPluginMain"));
    if (!entry) entry = reinterpret_cast<VstPluginMainProc>(dlsym(handle, "main"));
    if (!entry)
    {
        error = path + " is not a VST 2.4 plug-in (no VSTPluginMain)";
        dlclose(handle);
        return nullptr;
    }
    return std::unique_ptr<VstLibrary>(new VstLibrary(handle, entry, path));
}

VstLibrary::VstLibrary(void* handle, VstPluginMainProc entry, std::string path)
    : handle(handle), entry(entry), path(std::move(path))
{
}

VstLibrary::~VstLibrary()
{
    dlclose(handle);
}

AEffect* VstLibrary::createEffect(audioMasterCallback callback, std::string& error) const
{
    AEffect* effect = entry(callback);
    if (!effect || effect->magic != kEffectMagic)
    {
        error = path + " did not create an effect";
        return nullptr;
    }
    return effect;
}
