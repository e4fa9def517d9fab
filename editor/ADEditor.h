// The plug-in's editor: the stereo-balance meter, three sliders with their values, the process, phase
// and mode buttons and the about screen, laid out on one fixed background; the preset panel below them
// comes from the preset system's editor.
#pragma once

#include "CPresetSystemEditor.h"
#include "SharedPointer.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

class CAbout;
class CBitmap;
class CClickButton;
class CHorizontalSlider;
class COptionMenu;
class CScopeView;
class COnOffButton;
class CParamDisplay;
class CVuMeter1;

class ADEditor : public CPresetSystemEditor
{
  public:
    // What the editor reads from its effect besides the normalised parameters. The effect hands them in,
    // so the editor needs nothing of the effect's own class.
    using RealValueReader = std::function<float(VstInt32 index)>; // the mapped value of a parameter
    using MeterReader = std::function<float()>;                   // the balance, -0.5 .. +0.5
    // The scope's side of the effect: open or close it, take its points (pairs of left and right, oldest
    // first; how many), read the output's correlation.
    struct ScopeSource
    {
        std::function<void(bool open)> setOpen;
        std::function<uint32_t(float* pairs, uint32_t maxPoints)> read;
        MeterReader correlation;
    };

    ADEditor(AudioEffect* effect, RealValueReader realValue, MeterReader stereoMeter,
             ScopeSource scopeSource = ScopeSource());
    ~ADEditor() override;

    // ---- host requests (host's UI thread)
    // Builds the frame and every control from the bitmaps, then the preset panel on top.
    bool open(void* parent) override;
    // The preset panel first, then the frame with every control in it.
    void close() override;
    // Applies the parameter changes reported since the last idle, repaints, and moves the meter.
    void idle() override;
    bool hasWindow() const override { return true; }

    // ---- from the controls (UI thread)
    // Tags 0 to 5 go to the effect as automated changes; the zoom menu's choice resizes the editor;
    // everything else is the base class's.
    void valueChanged(CControl* control) override;
    // Gestures reach the host, except the zoom menu's, which is no parameter.
    void beginEdit(int32_t index) override;
    void endEdit(int32_t index) override;

    // ---- from a format edition's window, which the user dragged to some size: the editor takes the nearest
    // of its zooms as the user's choice. False when no zoom was taken.
    bool zoomTo(double scale);

    // ---- from the effect
    // Any thread, the audio thread included (host automation): only notes the index, lock-free; the
    // control moves on the next idle. The value is not used: the editor reads the effect back.
    void setParameter(VstInt32 index, float value) override;
    // The effect was switched off (UI thread): the meter goes back to the centre.
    void suspend() override;

  protected:
    // The zoom the user chose in the menu, from the preferences.
    std::optional<double> userScale() const override;

  private:
    // The update of the controls for one parameter index (UI thread, frame open).
    void applyParameter(VstInt32 index);
    // The width/emphasis value: the width turned into what the current mode makes of it.
    float widthDisplayValue() const;
    float normalised(VstInt32 index) const;
    // The scope opened or closed, remembered in the preferences for every instance.
    void showScope(bool shown);
    // The zoom menu with the scope's entry after the scales.
    void fillMenu();

    RealValueReader realValue;
    MeterReader stereoMeter;
    ScopeSource scopeSource;
    std::chrono::steady_clock::time_point lastScopeDraw{};
    SharedPointer<CBitmap> background;
    // Bit n: parameter n changed since the last idle; bit kOtherChange: some other index did.
    std::atomic<std::uint32_t> pendingChanges{0};

    CVuMeter1* meter = nullptr;
    CParamDisplay* captionS = nullptr;
    CParamDisplay* captionM = nullptr;
    CHorizontalSlider* depthSlider = nullptr;
    CParamDisplay* depthValue = nullptr;
    CParamDisplay* depthCaption = nullptr;
    CHorizontalSlider* frequencySlider = nullptr;
    CParamDisplay* frequencyValue = nullptr;
    CParamDisplay* frequencyCaption = nullptr;
    CHorizontalSlider* widthSlider = nullptr;
    CParamDisplay* widthValue = nullptr;
    CParamDisplay* widthCaption = nullptr;
    COnOffButton* processButton = nullptr;
    COnOffButton* phaseButton = nullptr;
    CClickButton* modeButton = nullptr;
    CAbout* about = nullptr;
    COptionMenu* zoomMenu = nullptr;
    CScopeView* scope = nullptr;
};
