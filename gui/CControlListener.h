// Who hears a control's changes: the editor (or a panel) implements valueChanged.
#pragma once

class CControl;

class CControlListener
{
  public:
    virtual ~CControlListener() = default;
    virtual void valueChanged(CControl* control) = 0;
    // A gesture on the control starts or ends (after the frame told the editor).
    virtual void controlBeginEdit(CControl*) {}
    virtual void controlEndEdit(CControl*) {}
};
