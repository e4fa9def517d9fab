#include "CControl.h"

#include "CControlListener.h"
#include "CFrame.h"

CControl::CControl(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background)
    : CView(size), listener(listener), tag(tag)
{
    if (background) setBackground(background);
    setDirty(false);
}

void CControl::bounceValue()
{
    if (value > vmax)
        value = vmax;
    else if (value < vmin)
        value = vmin;
}

void CControl::valueChanged()
{
    if (listener) listener->valueChanged(this);
}

void CControl::beginEdit()
{
    ++editing;
    if (CFrame* frame = getFrame()) frame->beginEdit(tag);
    if (listener) listener->controlBeginEdit(this);
}

void CControl::endEdit()
{
    if (editing > 0) --editing;
    if (CFrame* frame = getFrame()) frame->endEdit(tag);
    if (listener) listener->controlEndEdit(this);
}

bool CControl::checkDefaultValue(const CButtonState& buttons)
{
    if (static_cast<long>(buttons) != (kControl | kLButton)) return false;
    beginEdit();
    value = defaultValue;
    valueChanged();
    endEdit();
    setDirty();
    return true;
}

bool CControl::isDirty() const
{
    return value != drawnValue || CView::isDirty();
}

void CControl::setDirty(bool state)
{
    CView::setDirty(state);
    drawnValue = state ? value - 1.0f : value;
}
