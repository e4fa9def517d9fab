// The editor glue between the host's editor requests and the toolkit: rectangle, frame in the host's
// window, idle, edit gestures and automation to the effect.
#pragma once

#include "AEffEditor.h"
#include "CKnobMode.h"
#include "VSTGUIEditorInterface.h"

#include <optional>

class CBitmap;
class CFrame;

class AEffGUIEditor : public AEffEditor, public VSTGUIEditorInterface
{
  public:
    explicit AEffGUIEditor(AudioEffect* effect);
    ~AEffGUIEditor() override;

    // ---- host requests (host's UI thread)
    // effEditGetRect: the rectangle set by the subclass (usually from its background bitmap), in window
    // pixels: times the scale.
    bool getRect(ERect** rect) override;
    // effEditOpen: remembers the host's window; a subclass then builds its frame in it and returns true.
    bool open(void* ptr) override;
    // effEditClose: closes the frame (with every view in it), if the subclass has not done so already.
    void close() override;
    // effEditIdle: the frame's repaints, then the window's events and timers. Never re-entered.
    void idle() override;
    bool hasWindow() const override { return true; }
    bool setKnobMode(VstInt32 mode) override;
    // effEditKeyDown / effEditKeyUp: to the frame's focus view (or modal view).
    bool onKeyDown(VstInt32 character, VstInt32 virtualKey, VstInt32 modifiers) override;
    bool onKeyUp(VstInt32 character, VstInt32 virtualKey, VstInt32 modifiers) override;

    // ---- from the controls (UI thread)
    // A gesture on the parameter index starts / ends: told to the host through the effect.
    void beginEdit(int32_t index) override;
    void endEdit(int32_t index) override;
    int32_t getKnobMode() const override { return knobMode; }
    void doIdleStuff() override { idle(); }
    CFrame* getFrame() const override { return frame; }

    // ---- scale (UI thread)
    // The scale of the open window; while closed, the scale it will open at: the user's own choice when
    // made, else the host's when it gave one, else the desktop's (read again at each open).
    double getScale() const override;
    // The scale a host asks for (1 to 4; others are refused with false). While the window is open, the frame
    // redraws at it and the host is asked to resize its window; a host that refuses keeps the old size.
    bool setHostScale(double scale);
    // Sets the effect's parameter and tells the host, so that it records automation.
    void setParameterAutomated(VstInt32 index, float value);

    // ---- from the effect: a parameter changed (any of host, preset, editor); subclasses update controls
    virtual void setParameter(VstInt32 index, float value);

  protected:
    // The user's own scale, made in the editor; nothing when the user made no choice.
    virtual std::optional<double> userScale() const { return std::nullopt; }
    // The wanted scale may have changed (the user chose): an open window follows, as for a host's request.
    void applyScale();

    // The editor rectangle: at the origin, as large as bitmap (zero when there is none).
    void setRectFromBitmap(const CBitmap* bitmap);

    ERect rect{};
    CFrame* frame = nullptr;

  private:
    double wantedScale() const;

    VstInt32 knobMode = kCircularMode;
    ERect scaledRect{};
    double hostScale = 0.0;                // 0 until a host gives one
    mutable double desktopScaleRead = 0.0; // 0 until read; read again at each open
    bool inIdle = false;
};
