// The effect as a plug-in of the DISTRHO Plugin Framework: a VST 2.4 host in miniature around one Spatara,
// translating ports into normalised parameters, the bank into text state and the meter into an output.
#pragma once

#include "DistrhoPlugin.hpp"
#include "EditListener.h"
#include "ParameterMapping.h"
#include "VstInterface.h"

class Spatara;

namespace spatara
{
class SpataraDpfPlugin : public DISTRHO::Plugin
{
  public:
    SpataraDpfPlugin();
    ~SpataraDpfPlugin() override;
    SpataraDpfPlugin(const SpataraDpfPlugin&) = delete;
    SpataraDpfPlugin& operator=(const SpataraDpfPlugin&) = delete;

    // The parameter index of the balance meter, after the six parameters.
    static constexpr uint32_t kMeterIndex = kNumParameters;
    // The host's bypass switch, after the meter, in the formats that have one (SPATARA_HOST_BYPASS).
    static constexpr uint32_t kBypassIndex = kMeterIndex + 1;
    // The correlation meter, last, so that the parameters before it keep the numbers projects saved them
    // under.
    static constexpr uint32_t kCorrelationIndex = kMeterIndex + 1 + SPATARA_HOST_BYPASS;

    // ---- for the framework UI (host's UI thread)
    // The effect, for its editor requests.
    AEffect* vstEffect() const { return vst; }
    // Who hears of edits made in the effect's editor; null for nobody.
    void setEditListener(EditListener* listener) { editListener = listener; }

  protected:
    // ---- information (host's main thread)
    const char* getLabel() const override { return "Spatara"; }
    const char* getDescription() const override;
    const char* getMaker() const override { return "ZEV Sound Design"; }
    const char* getHomePage() const override { return SPATARA_HOME_PAGE; }
    const char* getLicense() const override { return "https://zev-sound.example/spatara/LICENSE"; }
    uint32_t getVersion() const override;
    int64_t getUniqueId() const override;

    // ---- ports and parameters (host's main thread)
    void initAudioPort(bool input, uint32_t index, DISTRHO::AudioPort& port) override;
    void initParameter(uint32_t index, DISTRHO::Parameter& parameter) override;
    // Real units in and out; may be called from the audio thread.
    float getParameterValue(uint32_t index) const override;
    void setParameterValue(uint32_t index, float value) override;

    // ---- state: the whole bank as base64 of the VST 2.4 chunk (host's main thread)
    void initState(uint32_t index, DISTRHO::State& state) override;
    DISTRHO::String getState(const char* key) const override;
    void setState(const char* key, const char* value) override;

    // ---- processing
    void activate() override;
    void deactivate() override;
    void sampleRateChanged(double newSampleRate) override;
    void bufferSizeChanged(uint32_t newBufferSize) override;
    // Audio thread.
    void run(const float** inputs, float** outputs, uint32_t frames) override;

  private:
    // The host side of the VST 2.4 conversation: the effect asks for the version, the sample rate, its pins.
    static VstIntPtr answer(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr,
                            float opt);
    VstIntPtr dispatch(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt) const;

    Spatara* effect = nullptr; // owned through its AEffect: effClose deletes it
    AEffect* vst = nullptr;
    bool active = false; // between activate and deactivate (host's main thread)
    EditListener* editListener = nullptr;
};
} // namespace spatara
