#include "CVuMeter.h"

#include "CBitmap.h"

#include <algorithm>

CVuMeter::CVuMeter(const CRect& size, CBitmap* onBitmap, CBitmap* offBitmap, int32_t nbLed, int32_t style)
    : CControl(size, nullptr, 0, onBitmap), offBitmap(offBitmap), nbLed(nbLed), style(style)
{
}

CVuMeter::CVuMeter(const CVuMeter& other)
    : CControl(other), offBitmap(other.offBitmap), nbLed(other.nbLed), style(other.style),
      decreaseValue(other.decreaseValue), oldValue(other.oldValue)
{
}

CVuMeter::~CVuMeter() = default;

void CVuMeter::draw(CDrawContext* context)
{
    if (!background)
    {
        setDirty(false);
        return;
    }
    bounceValue();
    const float shown = std::max(oldValue - decreaseValue, value);
    oldValue = shown;
    const float range = vmax - vmin;
    const float fraction = range != 0.0f ? (shown - vmin) / range : 0.0f;
    const float leds =
        nbLed > 0 ? static_cast<float>(static_cast<int>(nbLed * fraction + 0.5f)) / nbLed : fraction;
    if (style & kHorizontal)
    {
        const double split = static_cast<int>(leds * size.getWidth());
        background->draw(context, CRect(size.left, size.top, size.left + split, size.bottom));
        if (offBitmap)
            offBitmap->draw(context, CRect(size.left + split, size.top, size.right, size.bottom),
                            CPoint(split, 0));
    }
    else
    {
        const double split = static_cast<int>((1.0f - leds) * size.getHeight());
        if (offBitmap) offBitmap->draw(context, CRect(size.left, size.top, size.right, size.top + split));
        background->draw(context, CRect(size.left, size.top + split, size.right, size.bottom),
                         CPoint(0, split));
    }
    setDirty(false);
}
