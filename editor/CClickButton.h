// A multi-state button: each left click steps to the next of its states and wraps round to the first.
#pragma once

#include "CControl.h"

class CClickButton : public CControl
{
  public:
    // bitmap: the states stacked vertically, the first on top (may be null: nothing is drawn); states: how
    // many (2 or more).
    CClickButton(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* bitmap, int32_t states);
    // The copy holds its own reference on the image.
    CClickButton(const CClickButton& other);

    // The frame of the current state, (states − 1) × value truncated.
    void draw(CDrawContext* context) override;
    // Left button: value → (step + 1) mod states, told to the listener as one plain change.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;

    CBitmap* getBitmap() const { return bitmap.get(); }
    int32_t getStates() const { return states; }

    CLASS_METHODS(CClickButton, CControl)

  protected:
    ~CClickButton() override;

  private:
    SharedPointer<CBitmap> bitmap;
    int32_t states;
};
