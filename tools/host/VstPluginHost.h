// A small VST 2.4 host: loads a plug-in .so as a DAW does (dlopen, VSTPluginMain, dispatcher) and answers
// its host callbacks. Used by spatara-render and by the tests that talk to the real plug-in.
#pragma once

#include "VstInterface.h"
#include "VstLibrary.h"

#include <memory>
#include <mutex>
#include <string>
#include <vector>

// What the host answers; set before loading where the plug-in asks at construction.
struct VstHostAnswers
{
    VstIntPtr version = kVstVersion;
    float sampleRate = 44100.0f;
    VstInt32 blockSize = 512;
    bool inputsConnected = true;
    bool outputsConnected = true;
};

class VstPluginHost
{
  public:
    // One host callback as the plug-in made it.
    struct Call
    {
        VstInt32 opcode;
        VstInt32 index;
        VstIntPtr value;
        float opt;
    };

    // Loads the plug-in; on failure answers null and says why in one line.
    static std::unique_ptr<VstPluginHost> load(const std::string& path, std::string& error,
                                               const VstHostAnswers& answers = VstHostAnswers());
    ~VstPluginHost();
    VstPluginHost(const VstPluginHost&) = delete;
    VstPluginHost& operator=(const VstPluginHost&) = delete;

    AEffect* effect() const { return aeffect; }
    VstIntPtr dispatch(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                       float opt = 0.0f);
    // A text request (names, labels, displays): the answer, or empty.
    std::string text(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0);

    // The host's first request after creating an effect.
    void open();
    // Sample rate, block size, then switch on (resume).
    void start(float sampleRate, VstInt32 blockSize);
    // Switches off (suspend).
    void stop();

    VstHostAnswers& answers() { return hostAnswers; }
    std::vector<Call> calls() const;
    void clearCalls();

  private:
    VstPluginHost() = default;
    static VstIntPtr callback(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                              float opt);
    VstIntPtr answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt);

    std::unique_ptr<VstLibrary> library;
    AEffect* aeffect = nullptr;
    VstHostAnswers hostAnswers;
    mutable std::mutex callsMutex;
    std::vector<Call> recorded;
};
