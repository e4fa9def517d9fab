// A host callback that answers like a simple host and records every request of the plug-in.
#pragma once

#include "VstInterface.h"

#include <vector>

struct HostRequest
{
    VstInt32 opcode;
    VstInt32 index;
    float opt;
};

class HostRecorder
{
  public:
    static VstIntPtr callback(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                              float opt);
    // The requests since the last clear, without the version and idle chatter.
    static std::vector<HostRequest>& requests();
    static void clear() { requests().clear(); }
    // Just the opcodes, for compact checks.
    static std::vector<VstInt32> opcodes();
};
