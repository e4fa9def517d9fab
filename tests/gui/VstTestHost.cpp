#include "VstTestHost.h"

#include <dlfcn.h>

VstTestHost::VstTestHost(AEffect* effect) : effect(effect) {}

VstTestHost::VstTestHost(AEffect* effect, void* library) : effect(effect), library(library) {}

VstTestHost::~VstTestHost()
{
    dispatch(effClose);
    if (library) dlclose(library);
}

std::unique_ptr<VstTestHost> VstTestHost::load(const std::string& path, audioMasterCallback callback,
                                               std::string& error)
{
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library)
    {
        error = dlerror();
        return nullptr;
    }
    void* entry = dlsym(library, "VSTPluginMain");
    if (!entry) entry = dlsym(library, "main");
    if (!entry)
    {
        error = "no VSTPluginMain or main in " + path;
        dlclose(library);
        return nullptr;
    }
    AEffect* effect = reinterpret_cast<VstPluginMainProc>(entry)(callback);
    if (!effect || effect->magic != kEffectMagic)
    {
        error = "the entry made no effect";
        dlclose(library);
        return nullptr;
    }
    std::unique_ptr<VstTestHost> host(new VstTestHost(effect, library));
    host->dispatch(effOpen);
    return host;
}

VstIntPtr VstTestHost::dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt)
{
    return effect->dispatcher(effect, opcode, index, value, ptr, opt);
}

const ERect* VstTestHost::getEditorRect()
{
    ERect* rect = nullptr;
    if (!dispatch(effEditGetRect, 0, 0, &rect)) return nullptr;
    return rect;
}

bool VstTestHost::openEditor(unsigned long parentWindow)
{
    return dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(parentWindow)) != 0;
}
