// The panel's previous/next rocker: -1 on a press of its left half, +1 of its right half, with a hover
// image for the half under the pointer.
#pragma once

#include "CRockerSwitch.h"

class CPSRockerSwitch : public CRockerSwitch
{
  public:
    // The bitmap holds five images of heightOfOneImage: at rest, left hovered, right hovered, left
    // pressed, right pressed.
    CPSRockerSwitch(const CRect& size, CControlListener* listener, int32_t tag, double heightOfOneImage,
                    CBitmap* background, const CPoint& offset, int32_t style = kHorizontal);

    void draw(CDrawContext* context) override;
    // Tells the listener on the press only; the release just brings the rocker back to rest.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseEntered(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons) override;

    // -1 left half, +1 right half, 0 when the pointer is elsewhere.
    int getHoverSide() const { return hoverSide; }
    int currentFrame() const;

    CLASS_METHODS(CPSRockerSwitch, CRockerSwitch)

  private:
    // The centre line itself belongs to the right half.
    int sideOf(const CPoint& where) const;

    int hoverSide = 0;
};
