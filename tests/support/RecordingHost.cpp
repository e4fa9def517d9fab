#include "RecordingHost.h"

namespace
{
// Tests run one effect at a time on one thread; the callback has no room for a context pointer before the
// effect exists, so the current host is global.
RecordingHost* current = nullptr;
} // namespace

RecordingHost::RecordingHost()
{
    current = this;
}

RecordingHost::~RecordingHost()
{
    if (current == this) current = nullptr;
}

audioMasterCallback RecordingHost::callback() const
{
    return &RecordingHost::answer;
}

std::vector<HostRequest> RecordingHost::requestsOf(VstInt32 opcode) const
{
    std::vector<HostRequest> matching;
    for (const HostRequest& request : recorded)
        if (request.opcode == opcode) matching.push_back(request);
    return matching;
}

VstIntPtr RecordingHost::answer(AEffect*, VstInt32 opcode, VstInt32 index, VstIntPtr value, void*, float opt)
{
    if (!current) return 0;
    current->recorded.push_back({opcode, index, value, opt});
    switch (opcode)
    {
    case audioMasterVersion:
        return current->version;
    case audioMasterPinConnected:
        return current->pinAnswer;
    default:
        return 0;
    }
}
