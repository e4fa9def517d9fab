// A momentary button: the maximum (1.0) while pressed, the minimum (0.0) once released.
#pragma once

#include "CControl.h"

class CKickButton : public CControl
{
  public:
    // heightOfOneImage: the bitmap holds the released image at offset and the pressed one below it.
    CKickButton(const CRect& size, CControlListener* listener, int32_t tag, double heightOfOneImage,
                CBitmap* background, const CPoint& offset = CPoint(0, 0));

    void draw(CDrawContext* context) override;
    // Press: maximum, tells the listener, starts a gesture.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    // Dragging out of the button releases it, back in presses it again.
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    // Release: minimum, tells the listener, ends the gesture.
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;

    double getHeightOfOneImage() const { return heightOfOneImage; }
    const CPoint& getOffset() const { return offset; }

    CLASS_METHODS(CKickButton, CControl)

  protected:
    double heightOfOneImage;
    CPoint offset;

  private:
    bool tracking = false;
};
