// The exported entry points: the only symbols the plug-in shows to the world.
#include "NoThrowCall.h"
#include "Spatara.h"

// Creates one effect per insert; nothing for a host that does not tell its VST version.
AudioEffect* createEffectInstance(audioMasterCallback audioMaster)
{
    if (!audioMaster || audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0f) == 0) return nullptr;
    return new Spatara(audioMaster);
}

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(audioMasterCallback audioMaster)
{
    if (!audioMaster || audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0f) == 0) return nullptr;
    // The host's first call into us: an instance that cannot be built (no memory) is no instance.
    return callWithoutThrowing(static_cast<AEffect*>(nullptr),
                               [&]() -> AEffect*
                               {
                                   AudioEffect* effect = createEffectInstance(audioMaster);
                                   return effect ? effect->getAeffect() : nullptr;
                               });
}

// Older Linux hosts look the entry up as "main".
extern "C" __attribute__((visibility("default"))) AEffect*
main_plugin(audioMasterCallback audioMaster) __asm__("main");
extern "C" AEffect* main_plugin(audioMasterCallback audioMaster)
{
    return VSTPluginMain(audioMaster);
}
