#include "CClickButton.h"

#include "CBitmap.h"
#include "CControlListener.h"

CClickButton::CClickButton(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* bitmap,
                           int32_t states)
    : CControl(size, listener, tag), bitmap(bitmap), states(states)
{
}

CClickButton::CClickButton(const CClickButton& other)
    : CControl(other), bitmap(other.bitmap), states(other.states)
{
}

CClickButton::~CClickButton() = default;

void CClickButton::draw(CDrawContext* context)
{
    if (bitmap && states > 0)
    {
        CPoint offset(0, 0);
        if (value != 0.0f)
        {
            const double frameHeight = bitmap->getHeight() / states;
            const int index = static_cast<int>((states - 1) * value);
            offset.y = static_cast<int>(index * frameHeight);
        }
        bitmap->draw(context, size, offset, 1.0f);
    }
    setDirty(false);
}

CMouseEventResult CClickButton::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton) || states < 2) return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    // Minimum and maximum play no part: the value is always step / (states − 1).
    const int step = static_cast<int>(value * (states - 1));
    const int next = (step + 1) % states;
    value = static_cast<float>(next) / static_cast<float>(states - 1);
    setDirty();
    // A click is a single change for the host: no edit gesture around it.
    if (listener) listener->valueChanged(this);
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}
