#include "CHorizontalSlider.h"

#include "CBitmap.h"

#include <algorithm>

CHorizontalSlider::CHorizontalSlider(const CRect& size, CControlListener* listener, int32_t tag,
                                     int32_t minPos, int32_t maxPos, CBitmap* handle, CBitmap* background,
                                     const CPoint& offset, int32_t style)
    : CControl(size, listener, tag, background), handle(handle), offset(offset), minPos(minPos),
      maxPos(maxPos), style(style | kSliderHorizontal)
{
}

CHorizontalSlider::CHorizontalSlider(const CHorizontalSlider& other)
    : CControl(other), handle(other.handle), offset(other.offset), offsetHandle(other.offsetHandle),
      minPos(other.minPos), maxPos(other.maxPos), style(other.style), freeClick(other.freeClick),
      zoomFactor(other.zoomFactor)
{
}

CHorizontalSlider::~CHorizontalSlider() = default;

float CHorizontalSlider::normalizedPosition() const
{
    const float range = vmax - vmin;
    float position = range != 0.0f ? (value - vmin) / range : 0.0f;
    position = std::clamp(position, 0.0f, 1.0f);
    return minimumAtLeft() ? position : 1.0f - position;
}

void CHorizontalSlider::setFromPosition(float position)
{
    position = std::clamp(position, 0.0f, 1.0f);
    if (!minimumAtLeft()) position = 1.0f - position;
    value = vmin + position * (vmax - vmin);
}

CRect CHorizontalSlider::getHandleRect() const
{
    const double handleWidth = handle ? handle->getWidth() : 0.0;
    const double handleHeight = handle ? handle->getHeight() : size.getHeight();
    // Whole pixels: a handle between pixels would blur.
    const double left =
        static_cast<int>(minPos + offsetHandle.x + normalizedPosition() * (maxPos - minPos) + 0.5);
    const double top = size.top + offsetHandle.y;
    return CRect(left, top, left + handleWidth, top + handleHeight);
}

void CHorizontalSlider::draw(CDrawContext* context)
{
    if (background) background->draw(context, size, offset);
    if (handle) handle->draw(context, getHandleRect());
    setDirty(false);
}

CMouseEventResult CHorizontalSlider::onMouseDown(CPoint& where, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    if (checkDefaultValue(buttons)) return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    const CRect handleRect = getHandleRect();
    if (handleRect.pointInside(where))
        grabDelta = where.x - handleRect.left;
    else if (freeClick)
        grabDelta = (handleRect.getWidth()) / 2.0;
    else
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    dragging = true;
    fine = false;
    beginEdit();
    return onMouseMoved(where, buttons);
}

CMouseEventResult CHorizontalSlider::onMouseMoved(CPoint& where, const CButtonState& buttons)
{
    if (!dragging || !(buttons & kLButton)) return kMouseEventHandled;
    const double range = maxPos - minPos;
    if (range <= 0.0) return kMouseEventHandled;
    const float coarse = static_cast<float>((where.x - grabDelta - minPos - offsetHandle.x) / range);
    float position = coarse;
    if (buttons & kShift)
    {
        // Fine mode starts from where the handle is when Shift goes down.
        if (!fine)
        {
            fine = true;
            fineStartX = where.x;
            fineStartPosition = normalizedPosition();
        }
        position = fineStartPosition + static_cast<float>((where.x - fineStartX) / range / zoomFactor);
    }
    else if (fine)
    {
        // Back to coarse: re-grab so the handle does not jump.
        fine = false;
        grabDelta = where.x - getHandleRect().left;
        return kMouseEventHandled;
    }
    const float oldValue = value;
    setFromPosition(position);
    if (value != oldValue)
    {
        valueChanged();
        setDirty();
    }
    return kMouseEventHandled;
}

CMouseEventResult CHorizontalSlider::onMouseUp(CPoint&, const CButtonState&)
{
    if (dragging)
    {
        dragging = false;
        endEdit();
    }
    return kMouseEventHandled;
}

bool CHorizontalSlider::onWheel(const CPoint&, const float& distance, const CButtonState& buttons)
{
    if (!getMouseEnabled()) return false;
    float step = distance * wheelInc * (vmax - vmin);
    if (buttons & kShift) step /= zoomFactor;
    // The wheel moves towards the right end on "up", whichever end holds the minimum.
    if (!minimumAtLeft()) step = -step;
    const float oldValue = value;
    value += step;
    bounceValue();
    if (value != oldValue)
    {
        beginEdit();
        valueChanged();
        endEdit();
        setDirty();
    }
    return true;
}
