#include "HostRecorder.h"

VstIntPtr HostRecorder::callback(AEffect*, VstInt32 opcode, VstInt32 index, VstIntPtr, void*, float opt)
{
    if (opcode == audioMasterVersion) return 2400;
    requests().push_back({opcode, index, opt});
    return opcode == audioMasterBeginEdit || opcode == audioMasterEndEdit ? 1 : 0;
}

std::vector<HostRequest>& HostRecorder::requests()
{
    static std::vector<HostRequest> recorded;
    return recorded;
}

std::vector<VstInt32> HostRecorder::opcodes()
{
    std::vector<VstInt32> result;
    for (const auto& request : requests())
        result.push_back(request.opcode);
    return result;
}
