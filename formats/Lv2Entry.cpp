// The LV2 edition's entry point: the framework's own, except that a host offering no worker may load it.
//
// The framework refuses to start without the host's worker, which it needs for one thing only: to pass
// state messages from a UI without direct access to the plug-in over to the audio side. Our editor holds
// the effect itself, and the bank travels through the state interface, so a host without a worker gets a
// stand-in that takes no work. The bundle's description lists the worker as optional for the same reason
// (formats/OptionalWorker.cmake).
#include "src/lv2/lv2.h"
#include "src/lv2/worker.h"

#include <cstring>
#include <vector>

extern "C" const LV2_Descriptor* spatara_framework_lv2_descriptor(uint32_t index);

namespace
{
LV2_Worker_Status refuseWork(LV2_Worker_Schedule_Handle, uint32_t, const void*)
{
    return LV2_WORKER_ERR_UNKNOWN;
}

LV2_Worker_Schedule noWorker{nullptr, refuseWork};
const LV2_Feature noWorkerFeature{LV2_WORKER__schedule, &noWorker};

LV2_Handle instantiate(const LV2_Descriptor* descriptor, double sampleRate, const char* bundlePath,
                       const LV2_Feature* const* features)
{
    const LV2_Descriptor* framework = spatara_framework_lv2_descriptor(0);
    std::vector<const LV2_Feature*> offered;
    for (int i = 0; features && features[i]; ++i)
    {
        if (std::strcmp(features[i]->URI, LV2_WORKER__schedule) == 0)
            return framework->instantiate(descriptor, sampleRate, bundlePath, features);
        offered.push_back(features[i]);
    }
    offered.push_back(&noWorkerFeature);
    offered.push_back(nullptr);
    return framework->instantiate(descriptor, sampleRate, bundlePath, offered.data());
}
} // namespace

extern "C" LV2_SYMBOL_EXPORT const LV2_Descriptor* lv2_descriptor(uint32_t index)
{
    const LV2_Descriptor* framework = spatara_framework_lv2_descriptor(index);
    if (!framework) return nullptr;
    static const LV2_Descriptor ours = [framework]
    {
        LV2_Descriptor descriptor = *framework;
        descriptor.instantiate = instantiate;
        return descriptor;
    }();
    return &ours;
}
