#include "CView.h"

#include "CBitmap.h"
#include "CFrame.h"

CView::CView(const CRect& size) : size(size), mouseableArea(size) {}

CView::CView(const CView& other)
    : CBaseObject(other), size(other.size), mouseableArea(other.mouseableArea), background(other.background),
      dirty(other.dirty), visible(other.visible), mouseEnabled(other.mouseEnabled)
{
}

CView::~CView() = default;

void CView::draw(CDrawContext* context)
{
    if (background) background->draw(context, size);
    setDirty(false);
}

void CView::drawRect(CDrawContext* context, const CRect&)
{
    draw(context);
}

void CView::setBackground(CBitmap* bitmap)
{
    background = SharedPointer<CBitmap>(bitmap);
    setDirty();
}

void CView::invalid()
{
    setDirty(false);
    invalidRect(size);
}

void CView::invalidRect(const CRect& rect)
{
    if (parentView && visible) parentView->invalidRect(rect);
}

CMouseEventResult CView::onMouseDown(CPoint&, const CButtonState&)
{
    return kMouseEventNotImplemented;
}
CMouseEventResult CView::onMouseUp(CPoint&, const CButtonState&)
{
    return kMouseEventNotImplemented;
}
CMouseEventResult CView::onMouseMoved(CPoint&, const CButtonState&)
{
    return kMouseEventNotImplemented;
}
CMouseEventResult CView::onMouseEntered(CPoint&, const CButtonState&)
{
    return kMouseEventNotImplemented;
}
CMouseEventResult CView::onMouseExited(CPoint&, const CButtonState&)
{
    return kMouseEventNotImplemented;
}

bool CView::onWheel(const CPoint&, const float&, const CButtonState&)
{
    return false;
}

bool CView::onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                    const CButtonState& buttons)
{
    return axis == kMouseWheelAxisY ? onWheel(where, distance, buttons) : false;
}

int32_t CView::onKeyDown(VstKeyCode&)
{
    return -1;
}
int32_t CView::onKeyUp(VstKeyCode&)
{
    return -1;
}

bool CView::hitTest(const CPoint& where, const CButtonState&)
{
    return mouseableArea.pointInside(where);
}

void CView::setViewSize(const CRect& rect, bool invalidate)
{
    if (invalidate) invalidRect(size);
    size = rect;
    if (invalidate) invalid();
}

void CView::setVisible(bool state)
{
    if (visible == state) return;
    if (!state) invalidRect(size);
    visible = state;
    if (state) invalid();
}

bool CView::attached(CView* parent)
{
    parentView = parent;
    frame = parent ? parent->getFrame() : nullptr;
    return true;
}

bool CView::removed(CView*)
{
    if (frame) frame->onViewRemoved(this);
    parentView = nullptr;
    frame = nullptr;
    return true;
}
