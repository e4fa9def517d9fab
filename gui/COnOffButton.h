// A two-state button: its bitmap holds the off image above the on image; each click toggles.
#pragma once

#include "CControl.h"

class COnOffButton : public CControl
{
  public:
    COnOffButton(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background);

    // The lower half of the bitmap when the value is the maximum, else the upper half.
    void draw(CDrawContext* context) override;
    // A left click toggles between minimum and maximum and tells the listener once, with no edit gesture.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;

    CLASS_METHODS(COnOffButton, CControl)
};
