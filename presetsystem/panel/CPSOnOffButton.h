// A preset-panel toggle with a hover image: off, hovered and on, stacked in thirds of its bitmap.
#pragma once

#include "COnOffButton.h"

class CPSOnOffButton : public COnOffButton
{
  public:
    CPSOnOffButton(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background);

    void draw(CDrawContext* context) override;
    // A left click toggles and tells the listener; the release is of no interest.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseEntered(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons) override;

    bool isHovered() const { return hover; }
    // Whole pixels: a bitmap whose height is not a multiple of three leaves its last rows unused.
    int frameHeight() const;
    // 2 on, 1 hovered while off, 0 otherwise.
    int currentFrame() const;

    CLASS_METHODS(CPSOnOffButton, COnOffButton)

  private:
    bool hover = false;
};
