// A host callback for tests that build the effect in-process: answers like a 2.4 host and records every
// request the effect makes.
#pragma once

#include "VstInterface.h"

#include <vector>

struct HostRequest
{
    VstInt32 opcode;
    VstInt32 index;
    VstIntPtr value;
    float opt;
};

class RecordingHost
{
  public:
    RecordingHost();
    ~RecordingHost();
    RecordingHost(const RecordingHost&) = delete;
    RecordingHost& operator=(const RecordingHost&) = delete;

    audioMasterCallback callback() const;
    const std::vector<HostRequest>& requests() const { return recorded; }
    void clear() { recorded.clear(); }
    // The requests with this opcode, in order.
    std::vector<HostRequest> requestsOf(VstInt32 opcode) const;

    VstIntPtr version = kVstVersion;
    VstIntPtr pinAnswer = 0; // 0: connected

  private:
    static VstIntPtr answer(AEffect*, VstInt32 opcode, VstInt32 index, VstIntPtr value, void*, float opt);
    std::vector<HostRequest> recorded;
};
