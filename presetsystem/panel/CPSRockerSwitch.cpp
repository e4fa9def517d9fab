#include "CPSRockerSwitch.h"

#include "CBitmap.h"

CPSRockerSwitch::CPSRockerSwitch(const CRect& size, CControlListener* listener, int32_t tag,
                                 double heightOfOneImage, CBitmap* background, const CPoint& offset,
                                 int32_t style)
    : CRockerSwitch(size, listener, tag, heightOfOneImage, background, offset, style)
{
}

int CPSRockerSwitch::sideOf(const CPoint& where) const
{
    return where.x < (size.left + size.right) / 2.0 ? -1 : 1;
}

int CPSRockerSwitch::currentFrame() const
{
    if (value == -1.0f) return 3;
    if (value == 1.0f) return 4;
    if (hoverSide < 0) return 1;
    return hoverSide > 0 ? 2 : 0;
}

void CPSRockerSwitch::draw(CDrawContext* context)
{
    // The strip always starts at the top of the bitmap.
    if (background) background->draw(context, size, CPoint(0, currentFrame() * heightOfOneImage));
    setDirty(false);
}

CMouseEventResult CPSRockerSwitch::onMouseDown(CPoint& where, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    value = static_cast<float>(sideOf(where));
    invalid();
    valueChanged();
    return kMouseEventHandled;
}

CMouseEventResult CPSRockerSwitch::onMouseUp(CPoint&, const CButtonState&)
{
    value = 0.0f;
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CPSRockerSwitch::onMouseMoved(CPoint& where, const CButtonState& buttons)
{
    if (buttons & kLButton) return kMouseEventHandled;
    return onMouseEntered(where, buttons);
}

CMouseEventResult CPSRockerSwitch::onMouseEntered(CPoint& where, const CButtonState&)
{
    hoverSide = sideOf(where);
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CPSRockerSwitch::onMouseExited(CPoint&, const CButtonState&)
{
    hoverSide = 0;
    invalid();
    return kMouseEventHandled;
}
