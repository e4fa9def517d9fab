#include "CRockerSwitch.h"

#include "CBitmap.h"

CRockerSwitch::CRockerSwitch(const CRect& size, CControlListener* listener, int32_t tag,
                             double heightOfOneImage, CBitmap* background, const CPoint& offset,
                             int32_t style)
    : CControl(size, listener, tag, background), heightOfOneImage(heightOfOneImage), offset(offset),
      style(style)
{
    vmin = -1.0f;
    vmax = 1.0f;
    value = 0.0f;
    defaultValue = 0.0f;
    setDirty(false);
}

void CRockerSwitch::draw(CDrawContext* context)
{
    if (background)
    {
        const int frame = value == vmin ? 1 : (value == vmax ? 2 : 0);
        background->draw(context, size, CPoint(offset.x, offset.y + frame * heightOfOneImage));
    }
    setDirty(false);
}

CMouseEventResult CRockerSwitch::onMouseDown(CPoint& where, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    const bool first = (style & kVertical) ? where.y < (size.top + size.bottom) / 2.0
                                           : where.x < (size.left + size.right) / 2.0;
    tracking = true;
    beginEdit();
    value = first ? vmin : vmax;
    valueChanged();
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CRockerSwitch::onMouseUp(CPoint&, const CButtonState&)
{
    if (!tracking) return kMouseEventHandled;
    tracking = false;
    value = 0.0f;
    valueChanged();
    endEdit();
    invalid();
    return kMouseEventHandled;
}
