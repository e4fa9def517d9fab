// A small VST3 host for the tests, on the framework's own VST3 interface headers: loads one module, takes
// its factory, creates the effect's component and asks it for its edit controller, as a host does with an
// effect that is its own controller, reads parameters through that controller and changes them with the
// audio, as a host's automation does.
#pragma once

#include "travesty/audio_processor.h"
#include "travesty/base.h"
#include "travesty/component.h"
#include "travesty/edit_controller.h"
#include "travesty/factory.h"
#include "travesty/host.h"
#include "travesty/view.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

class Vst3TestHost
{
  public:
    // Loads the module (the .so inside the bundle), creates and initialises the component and its edit
    // controller; null and a reason on failure.
    static std::unique_ptr<Vst3TestHost> load(const std::string& path, std::string& error);
    ~Vst3TestHost();
    Vst3TestHost(const Vst3TestHost&) = delete;
    Vst3TestHost& operator=(const Vst3TestHost&) = delete;

    // The id of the parameter with this title; fails the test when there is none.
    v3_param_id parameterId(const std::string& title) const;
    // The normalised value of a value in the parameter's own unit, as the controller converts it.
    double normalised(v3_param_id id, double plain) const;
    // Processes one block of silence that changes this parameter at its start, as automation does.
    void automate(v3_param_id id, double value);
    // Processes audio at 44.1 kHz in blocks of at most 64 frames; the changes (normalised values) come with
    // the first block, as a host sends what it set while the plug-in was not processing.
    void process(const float* inL, const float* inR, float* outL, float* outR, uint32_t frames,
                 const std::vector<std::pair<v3_param_id, double>>& changesAtStart = {});
    // The size the effect's editor view gives before it is attached, after the host set its content scale
    // (0 sets none), as a host asks before it makes room; false when there is no view or no size.
    bool editorSize(float contentScale, int& width, int& height) const;
    // The controller's text for this normalised value, or "<refused>".
    std::string text(v3_param_id id, double value) const;

  private:
    Vst3TestHost() = default;
    bool create(const std::string& path, std::string& error);
    v3_edit_controller* controller() const { return v3_cpp_obj(editController); }

    void* library = nullptr;
    v3_plugin_factory** factory = nullptr;
    v3_component** component = nullptr;
    v3_edit_controller** editController = nullptr;
    v3_audio_processor** processor = nullptr;
};
