#include "VstPluginHost.h"

#include <cstring>

namespace
{
// The plug-in asks for the host's version before its AEffect exists; that question goes to the host being
// loaded right now.
thread_local VstPluginHost* loadingHost = nullptr;
} // namespace

std::unique_ptr<VstPluginHost> VstPluginHost::load(const std::string& path, std::string& error,
                                                   const VstHostAnswers& answers)
{
    std::unique_ptr<VstPluginHost> host(new VstPluginHost());
    host->hostAnswers = answers;
    host->library = VstLibrary::open(path, error);
    if (!host->library) return nullptr;
    loadingHost = host.get();
    AEffect* effect = host->library->createEffect(&VstPluginHost::callback, error);
    loadingHost = nullptr;
    if (!effect) return nullptr;
    effect->user = host.get();
    host->aeffect = effect;
    return host;
}

VstPluginHost::~VstPluginHost()
{
    // The effect goes before its library is unloaded (the member's destructor, after this body).
    if (aeffect) aeffect->dispatcher(aeffect, effClose, 0, 0, nullptr, 0.0f);
}

VstIntPtr VstPluginHost::dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt)
{
    return aeffect->dispatcher(aeffect, opcode, index, value, ptr, opt);
}

std::string VstPluginHost::text(VstInt32 opcode, VstInt32 index, VstIntPtr value)
{
    char buffer[256] = {};
    dispatch(opcode, index, value, buffer);
    buffer[sizeof(buffer) - 1] = 0;
    return buffer;
}

void VstPluginHost::open()
{
    dispatch(effOpen);
}

void VstPluginHost::start(float sampleRate, VstInt32 blockSize)
{
    hostAnswers.sampleRate = sampleRate;
    hostAnswers.blockSize = blockSize;
    dispatch(effSetSampleRate, 0, 0, nullptr, sampleRate);
    dispatch(effSetBlockSize, 0, blockSize);
    dispatch(effMainsChanged, 0, 1);
}

void VstPluginHost::stop()
{
    dispatch(effMainsChanged, 0, 0);
}

std::vector<VstPluginHost::Call> VstPluginHost::calls() const
{
    std::lock_guard<std::mutex> lock(callsMutex);
    return recorded;
}

void VstPluginHost::clearCalls()
{
    std::lock_guard<std::mutex> lock(callsMutex);
    recorded.clear();
}

VstIntPtr VstPluginHost::callback(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                                  void* ptr, float opt)
{
    VstPluginHost* host = effect && effect->user ? static_cast<VstPluginHost*>(effect->user) : loadingHost;
    if (!host) return opcode == audioMasterVersion ? kVstVersion : 0;
    return host->answer(opcode, index, value, ptr, opt);
}

VstIntPtr VstPluginHost::answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt)
{
    {
        std::lock_guard<std::mutex> lock(callsMutex);
        recorded.push_back({opcode, index, value, opt});
    }
    switch (opcode)
    {
    case audioMasterVersion:
        return hostAnswers.version;
    case audioMasterGetSampleRate:
        return static_cast<VstIntPtr>(hostAnswers.sampleRate);
    case audioMasterGetBlockSize:
        return hostAnswers.blockSize;
    case audioMasterPinConnected: // 0 means connected
        return (value == 0 ? hostAnswers.inputsConnected : hostAnswers.outputsConnected) ? 0 : 1;
    case audioMasterGetVendorString:
        if (ptr) std::strcpy(static_cast<char*>(ptr), "ZEV Sound Design");
        return ptr ? 1 : 0;
    case audioMasterGetProductString:
        if (ptr) std::strcpy(static_cast<char*>(ptr), "spatara-render");
        return ptr ? 1 : 0;
    case audioMasterUpdateDisplay:
    case audioMasterBeginEdit:
    case audioMasterEndEdit:
        return 1;
    default:
        return 0;
    }
}
