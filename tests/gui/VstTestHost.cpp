#include "VstTestHost.h"

#include <thread>

VstTestHost::VstTestHost(AEffect* effect) : effect(effect) {}

VstTestHost::VstTestHost(AEffect* effect, std::unique_ptr<VstLibrary> library)
    : effect(effect), library(std::move(library))
{
}

// The effect is closed before its library is unloaded (the member's destructor, after this body).
VstTestHost::~VstTestHost()
{
    dispatch(effClose);
}

std::unique_ptr<VstTestHost> VstTestHost::load(const std::string& path, audioMasterCallback callback,
                                               std::string& error)
{
    auto library = VstLibrary::open(path, error);
    AEffect* effect = library ? library->createEffect(callback, error) : nullptr;
    if (!effect) return nullptr;
    std::unique_ptr<VstTestHost> host(new VstTestHost(effect, std::move(library)));
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

bool VstTestHost::idleEditorUntil(const std::function<bool()>& done, std::chrono::milliseconds limit)
{
    const auto end = std::chrono::steady_clock::now() + limit;
    while (std::chrono::steady_clock::now() < end)
    {
        idleEditor();
        if (done()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    return false;
}

void VstTestHost::idleEditorFor(std::chrono::milliseconds time)
{
    idleEditorUntil([] { return false; }, time);
}
