#include "CVuMeter1.h"

#include "CBitmap.h"

#include <algorithm>

CVuMeter1::CVuMeter1(const CRect& size, CBitmap* onBitmap, CBitmap* offBitmap, int32_t nbLed, int32_t style)
    : CVuMeter(size, onBitmap, offBitmap, nbLed, style)
{
}

void CVuMeter1::draw(CDrawContext* context)
{
    if (!background) return;
    bounceValue();
    // Ballistics: up at once, down by at most the decrease step per redraw.
    const float shown = std::max(oldValue - decreaseValue, value);
    oldValue = shown;
    const double segments = nbLed;
    if (style & kHorizontal)
    {
        const double q = static_cast<int>(segments * shown + 0.5) / segments;
        const double split = q * background->getWidth();
        background->draw(context, CRect(size.left, size.top, size.left + split, size.bottom), CPoint(0, 0));
        if (offBitmap)
            offBitmap->draw(context, CRect(size.left + split, size.top, size.right, size.bottom),
                            CPoint(split, 0));
    }
    else
    {
        const double q = static_cast<int>(segments * (vmax - shown) + 0.5) / segments;
        const double split = q * background->getHeight();
        if (offBitmap) offBitmap->draw(context, CRect(size.left, size.top, size.right, size.top + split));
        background->draw(context, CRect(size.left, size.top + split, size.right, size.bottom),
                         CPoint(0, split));
    }
    setDirty(false);
}

CMouseEventResult CVuMeter1::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton) || !clickAction) return kMouseEventNotHandled;
    clickAction();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}
