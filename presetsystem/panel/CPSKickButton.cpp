#include "CPSKickButton.h"

#include "CBitmap.h"

CPSKickButton::CPSKickButton(const CRect& size, CControlListener* listener, int32_t tag,
                             double heightOfOneImage, CBitmap* background, const CPoint& offset,
                             bool doubleClickOnly)
    : CKickButton(size, listener, tag, heightOfOneImage, background, offset), doubleClickOnly(doubleClickOnly)
{
}

int CPSKickButton::currentFrame() const
{
    return pressed ? 2 : (hover ? 1 : 0);
}

void CPSKickButton::draw(CDrawContext* context)
{
    if (background)
        background->draw(context, size, CPoint(offset.x, offset.y + currentFrame() * heightOfOneImage));
    setDirty(false);
}

CMouseEventResult CPSKickButton::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    // Defaults are overwritten only on purpose: a stray single click must not replace them.
    if (doubleClickOnly && !(buttons & kDoubleClick)) return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    pressed = true;
    value = doubleClickOnly && (buttons & kControl) ? 0.5f : 1.0f;
    valueChanged();
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CPSKickButton::onMouseMoved(CPoint&, const CButtonState&)
{
    return kMouseEventHandled;
}

CMouseEventResult CPSKickButton::onMouseUp(CPoint&, const CButtonState&)
{
    value = 0.0f;
    pressed = false;
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CPSKickButton::onMouseEntered(CPoint&, const CButtonState&)
{
    setHover(true);
    return kMouseEventHandled;
}

CMouseEventResult CPSKickButton::onMouseExited(CPoint&, const CButtonState&)
{
    setHover(false);
    return kMouseEventHandled;
}

void CPSKickButton::setHover(bool state)
{
    hover = state;
    invalid();
}
