// Base of the controls: a value between a minimum and a maximum, a tag, a listener, and edit gestures.
#pragma once

#include "CView.h"

class CControlListener;

class CControl : public CView
{
  public:
    CControl(const CRect& size, CControlListener* listener = nullptr, int32_t tag = 0,
             CBitmap* background = nullptr);

    // ---- value
    virtual void setValue(float newValue) { value = newValue; }
    float getValue() const { return value; }
    virtual void setMin(float newMin) { vmin = newMin; }
    float getMin() const { return vmin; }
    virtual void setMax(float newMax) { vmax = newMax; }
    float getMax() const { return vmax; }
    void setDefaultValue(float newValue) { defaultValue = newValue; }
    float getDefaultValue() const { return defaultValue; }
    // Brings the value back into minimum..maximum.
    virtual void bounceValue();
    void setWheelInc(float increment) { wheelInc = increment; }
    float getWheelInc() const { return wheelInc; }

    // ---- identity and listener
    void setTag(int32_t newTag) { tag = newTag; }
    int32_t getTag() const { return tag; }
    void setListener(CControlListener* newListener) { listener = newListener; }
    CControlListener* getListener() const { return listener; }

    // ---- changes: tells the listener
    virtual void valueChanged();
    // A gesture starts or ends: the frame's editor (which tells the host) and then the listener hear it.
    virtual void beginEdit();
    virtual void endEdit();
    bool isEditing() const { return editing > 0; }
    // Control + left click puts the default value back (one whole gesture); answers whether it did.
    virtual bool checkDefaultValue(const CButtonState& buttons);

    // A control is dirty also when its value differs from the one last drawn.
    bool isDirty() const override;
    void setDirty(bool state = true) override;

    CLASS_METHODS(CControl, CView)

  protected:
    CControlListener* listener;
    int32_t tag;
    float value = 0.0f;
    float vmin = 0.0f;
    float vmax = 1.0f;
    float defaultValue = 0.5f;
    float wheelInc = 0.1f;

  private:
    float drawnValue = -1.0f;
    int editing = 0;
};
