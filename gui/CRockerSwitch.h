// A three-way rocker: -1 while its left half is pressed, +1 for the right half, 0 at rest.
#pragma once

#include "CControl.h"
#include "CControlStyle.h"

class CRockerSwitch : public CControl
{
  public:
    // The bitmap holds three images of heightOfOneImage from offset: at rest, left pressed, right pressed.
    CRockerSwitch(const CRect& size, CControlListener* listener, int32_t tag, double heightOfOneImage,
                  CBitmap* background, const CPoint& offset = CPoint(0, 0), int32_t style = kHorizontal);

    void draw(CDrawContext* context) override;
    // Left half (left of the centre line) -1, right half +1; tells the listener; starts a gesture.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    // Back to 0; tells the listener; ends the gesture.
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;

    double getHeightOfOneImage() const { return heightOfOneImage; }
    const CPoint& getOffset() const { return offset; }
    int32_t getStyle() const { return style; }

    CLASS_METHODS(CRockerSwitch, CControl)

  protected:
    double heightOfOneImage;
    CPoint offset;
    int32_t style;

  private:
    bool tracking = false;
};
