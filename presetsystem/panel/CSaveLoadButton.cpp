#include "CSaveLoadButton.h"

#include "CBitmap.h"

CSaveLoadButton::CSaveLoadButton(const CRect& size, CControlListener* listener, int32_t tag,
                                 double heightOfOneImage, CBitmap* background, const CPoint& offset)
    : CKickButton(size, listener, tag, heightOfOneImage, background, offset)
{
}

int CSaveLoadButton::currentFrame() const
{
    if (value != 0.0f) return 2;
    return hover ? 1 : 0;
}

void CSaveLoadButton::draw(CDrawContext* context)
{
    if (background)
        background->draw(context, size, CPoint(offset.x, offset.y + currentFrame() * heightOfOneImage));
    setDirty(false);
}

CMouseEventResult CSaveLoadButton::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & (kLButton | kRButton)) || !listener) return kMouseEventNotHandled;
    // Only a plain right click asks for the reversed byte order; with a modifier it is an ordinary click.
    value = static_cast<long>(buttons) == kRButton ? 0.5f : 1.0f;
    valueChanged();
    value = 0.0f;
    invalid();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

CMouseEventResult CSaveLoadButton::onMouseEntered(CPoint&, const CButtonState&)
{
    hover = true;
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult CSaveLoadButton::onMouseExited(CPoint&, const CButtonState&)
{
    hover = false;
    invalid();
    return kMouseEventHandled;
}

int32_t CSaveLoadButton::onKeyDown(VstKeyCode&)
{
    return -1;
}

int32_t CSaveLoadButton::onKeyUp(VstKeyCode&)
{
    return -1;
}
