#include "CKickButton.h"

#include "CBitmap.h"

CKickButton::CKickButton(const CRect& size, CControlListener* listener, int32_t tag, double heightOfOneImage,
                         CBitmap* background, const CPoint& offset)
    : CControl(size, listener, tag, background), heightOfOneImage(heightOfOneImage), offset(offset)
{
}

void CKickButton::draw(CDrawContext* context)
{
    if (background)
        background->draw(context, size,
                         CPoint(offset.x, offset.y + (value == vmax ? heightOfOneImage : 0.0)));
    setDirty(false);
}

CMouseEventResult CKickButton::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    tracking = true;
    beginEdit();
    value = vmax;
    valueChanged();
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CKickButton::onMouseMoved(CPoint& where, const CButtonState& buttons)
{
    if (!tracking || !(buttons & kLButton)) return kMouseEventHandled;
    const float wanted = size.pointInside(where) ? vmax : vmin;
    if (wanted != value)
    {
        value = wanted;
        valueChanged();
        invalid();
    }
    return kMouseEventHandled;
}

CMouseEventResult CKickButton::onMouseUp(CPoint&, const CButtonState&)
{
    if (!tracking) return kMouseEventHandled;
    tracking = false;
    if (value != vmin)
    {
        value = vmin;
        valueChanged();
    }
    endEdit();
    invalid();
    return kMouseEventHandled;
}
