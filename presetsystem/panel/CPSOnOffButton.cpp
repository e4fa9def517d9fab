#include "CPSOnOffButton.h"

#include "CBitmap.h"

CPSOnOffButton::CPSOnOffButton(const CRect& size, CControlListener* listener, int32_t tag,
                               CBitmap* background)
    : COnOffButton(size, listener, tag, background)
{
}

int CPSOnOffButton::frameHeight() const
{
    return background ? static_cast<int>(background->getHeight()) / 3 : 0;
}

int CPSOnOffButton::currentFrame() const
{
    if (value == 1.0f) return 2;
    return hover ? 1 : 0;
}

void CPSOnOffButton::draw(CDrawContext* context)
{
    if (background) background->draw(context, size, CPoint(0, currentFrame() * frameHeight()));
    setDirty(false);
}

CMouseEventResult CPSOnOffButton::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    value = 1.0f - value;
    valueChanged();
    invalid();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

CMouseEventResult CPSOnOffButton::onMouseEntered(CPoint&, const CButtonState&)
{
    hover = true;
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CPSOnOffButton::onMouseExited(CPoint&, const CButtonState&)
{
    hover = false;
    invalid();
    return kMouseEventHandled;
}
