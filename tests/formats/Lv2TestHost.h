// A small LV2 host on lilv for the tests: loads one bundle, offers the features a real host offers (URID
// map and unmap, options with the block length, a worker, bounded block length), connects every port and
// saves and restores state and presets the way hosts do.
#pragma once

#include <lilv/lilv.h>
#include <lv2/data-access/data-access.h>
#include <lv2/options/options.h>
#include <lv2/ui/ui.h>
#include <lv2/urid/urid.h>
#include <lv2/worker/worker.h>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class Lv2TestHost
{
  public:
    // Loads the plug-in with this URI from the bundle folder and instantiates it; null and a reason on
    // failure. offerWorker false leaves the worker out, as some hosts do.
    static std::unique_ptr<Lv2TestHost> load(const std::string& bundle, const std::string& uri,
                                             double sampleRate, uint32_t blockSize, std::string& error,
                                             bool offerWorker = true);
    ~Lv2TestHost();
    Lv2TestHost(const Lv2TestHost&) = delete;
    Lv2TestHost& operator=(const Lv2TestHost&) = delete;

    // ---- ports
    bool hasPort(const std::string& symbol) const;
    void setControl(const std::string& symbol, float value);
    float control(const std::string& symbol) const;
    // The URI of the port's unit, or empty.
    std::string portUnit(const std::string& symbol) const;
    // The port's scale points, by value.
    std::vector<std::pair<float, std::string>> scalePoints(const std::string& symbol) const;

    // ---- processing: activates on first use, runs in blocks of at most the block size
    void process(const float* inL, const float* inR, float* outL, float* outR, uint32_t frames);
    // One buffer on both inputs, as a host feeds a mono track to a stereo plug-in.
    void processMono(const float* in, float* outL, float* outR, uint32_t frames);

    // ---- presets: their labels, and loading one as a host does (its port values and state)
    std::vector<std::string> presetLabels() const;
    bool loadPreset(const std::string& label);

    // ---- a user preset as a host saves it: a bundle of its own in folder, with this label; and loading it
    // back from that folder by its label
    bool saveUserPreset(const std::string& folder, const std::string& label);
    bool loadUserPreset(const std::string& folder, const std::string& label);

    // ---- the plug-in's editor, as a host with instance access shows it: embedded in the X11 window parent,
    // with the ui:scaleFactor option when scaleFactor is above 0; false and a reason on failure
    bool openEditor(unsigned long parent, float scaleFactor, std::string& error);
    // The editor's idle, as the host's run loop calls it.
    void idleEditor();
    void closeEditor();

    // ---- state as a host keeps it in a project (Turtle text), and back
    std::string saveState();
    bool restoreState(const std::string& text);
    // The plug-in's own state values by key URI, as its state interface stores them.
    std::map<std::string, std::string> stateValues();

  private:
    Lv2TestHost() = default;
    bool instantiate(const std::string& bundle, const std::string& uri, std::string& error);
    LV2_URID map(const char* uri);
    static LV2_URID mapUri(LV2_URID_Map_Handle handle, const char* uri);
    static const char* unmapUri(LV2_URID_Unmap_Handle handle, LV2_URID urid);
    static const void* portValue(const char* symbol, void* self, uint32_t* size, uint32_t* type);
    static void setPortValue(const char* symbol, void* self, const void* value, uint32_t size, uint32_t type);
    void resetAtomPorts();
    void run(const float* inL, const float* inR, float* outL, float* outR, uint32_t frames, bool mono);
    // Calls visit with every preset of the plug-in that has a label.
    void forEachPreset(const std::function<void(const LilvNode*, const std::string&)>& visit) const;

    double rate = 44100.0;
    uint32_t block = 512;
    std::int32_t blockOption = 512;
    float rateOption = 44100.0f;
    std::vector<std::string> uris;

    LilvWorld* world = nullptr;
    const LilvPlugin* plugin = nullptr;
    LilvInstance* instance = nullptr;
    bool active = false;
    bool workerOffered = true;

    LV2_URID_Map mapFeature{};
    LV2_URID_Unmap unmapFeature{};
    LV2_Worker_Schedule workerFeature{};
    std::vector<LV2_Options_Option> options;
    std::vector<LV2_Feature> featureRecords;
    std::vector<const LV2_Feature*> features;

    std::vector<float> controls;
    std::map<std::string, uint32_t> portBySymbol;
    std::vector<uint32_t> controlPorts;
    std::vector<uint32_t> audioIn, audioOut, atomIn, atomOut;
    std::vector<std::vector<float>> audioBuffers;
    std::vector<std::vector<uint64_t>> atomBuffers; // 8-byte aligned, as atoms need

    // The editor: its library (the bundle's binary, loaded again), descriptor and handle.
    void* uiLibrary = nullptr;
    const LV2UI_Descriptor* uiDescriptor = nullptr;
    LV2UI_Handle ui = nullptr;
    float uiScaleFactor = 0.0f;
    LV2_Extension_Data_Feature dataAccess{};
    std::vector<LV2_Options_Option> uiOptions;
};
