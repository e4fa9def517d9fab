// The effect's own editor, preset panel included, as the framework's UI: an external UI in the framework's
// terms, so that the one copy of the window layer is the editor's. The editor opens in the host's window
// through the effect's VST 2.4 editor requests, and is driven by the host's idle.
#pragma once

#include "DistrhoUI.hpp"
#include "EditListener.h"
#include "ParameterMapping.h"
#include "VstInterface.h"

namespace spatara
{
class SpataraDpfPlugin;

class SpataraDpfUI : public DISTRHO::UI, private EditListener
{
  public:
    SpataraDpfUI();
    ~SpataraDpfUI() override;
    SpataraDpfUI(const SpataraDpfUI&) = delete;
    SpataraDpfUI& operator=(const SpataraDpfUI&) = delete;

    // The editor's window, which the host shows inside its own (host's UI thread).
    uintptr_t getNativeWindowHandle() const noexcept override;

  protected:
    // ---- from the host (host's UI thread)
    // The effect already tells its editor about every parameter change; the UI only notes the port.
    void parameterChanged(uint32_t index, float value) override;
    void stateChanged(const char*, const char*) override {}
    void uiIdle() override;
    // The host's scale changed while the UI exists: the editor draws at it, the window follows.
    void uiScaleFactorChanged(double scaleFactor) override;
    // The host gave the window a size (the user dragged it): the editor settles on the nearest of its zooms
    // and the window on that zoom's size.
    void sizeChanged(uint width, uint height) override;

  private:
    // ---- from the editor (host's UI thread): to the host, in real units
    void parameterEdited(uint32_t index, float normalised) override;
    void editGesture(uint32_t index, bool started) override;
    // Brings the host's ports to what the effect now has, after a preset was chosen in the editor's panel.
    void parametersChanged() override;
    bool editorResized(int width, int height) override;

    VstIntPtr dispatch(VstInt32 opcode, void* ptr = nullptr) const;
    // Tells the effect's editor the host's scale, as VST 2.4 hosts do.
    void passScale(double scaleFactor) const;

    SpataraDpfPlugin* plugin = nullptr;
    AEffect* vst = nullptr;
    bool open = false;
    bool settling = false;            // the window is being given the editor's own size
    float ports[kNumParameters] = {}; // the host's port values as last heard or told, in real units
};
} // namespace spatara
