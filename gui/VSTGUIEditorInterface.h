// What the frame and its controls need from the editor that hosts them.
#pragma once

#include <cstdint>

class CFrame;

class VSTGUIEditorInterface
{
  public:
    virtual ~VSTGUIEditorInterface() = default;

    // A control starts and ends a gesture on the parameter with this index (the control's tag).
    virtual void beginEdit(int32_t index) = 0;
    virtual void endEdit(int32_t index) = 0;
    // 0 circular, 1 relative circular, 2 linear: how knobs follow the mouse.
    virtual int32_t getKnobMode() const = 0;
    // Lets the host breathe during long modal loops (file dialogs).
    virtual void doIdleStuff() {}
    virtual CFrame* getFrame() const = 0;
    // How many window pixels one unit of the editor is: 1, 1.5, 2 …
    virtual double getScale() const { return 1.0; }
};
