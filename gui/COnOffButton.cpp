#include "COnOffButton.h"

#include "CBitmap.h"

COnOffButton::COnOffButton(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background)
    : CControl(size, listener, tag, background)
{
}

void COnOffButton::draw(CDrawContext* context)
{
    if (background)
    {
        const double frameOffset = value == vmax ? static_cast<int>(background->getHeight() / 2) : 0.0;
        background->draw(context, size, CPoint(0, frameOffset));
    }
    setDirty(false);
}

CMouseEventResult COnOffButton::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    value = value == vmax ? vmin : vmax;
    // A toggle is one automated change, not an edit gesture: no beginEdit / endEdit around it.
    valueChanged();
    invalid();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}
