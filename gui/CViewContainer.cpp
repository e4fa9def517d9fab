#include "CViewContainer.h"

#include "CBitmap.h"
#include "CDrawContext.h"

#include <algorithm>

CViewContainer::CViewContainer(const CRect& size) : CView(size) {}

CViewContainer::~CViewContainer()
{
    removeAll(true);
}

bool CViewContainer::addView(CView* view)
{
    if (!view || isChild(view)) return false;
    children.push_back(view);
    if (isInTree())
    {
        view->attached(this);
        view->invalid();
    }
    return true;
}

bool CViewContainer::removeView(CView* view, bool withForget)
{
    const auto it = std::find(children.begin(), children.end(), view);
    if (it == children.end()) return false;
    view->invalid();
    children.erase(it);
    releaseMouseDownView(view);
    view->removed(this);
    if (withForget) view->forget();
    return true;
}

bool CViewContainer::removeAll(bool withForget)
{
    while (!children.empty())
        removeView(children.back(), withForget);
    return true;
}

bool CViewContainer::isChild(CView* view) const
{
    return std::find(children.begin(), children.end(), view) != children.end();
}

CView* CViewContainer::getView(int index) const
{
    return index >= 0 && index < getNbViews() ? children[static_cast<size_t>(index)] : nullptr;
}

CView* CViewContainer::getViewAt(const CPoint& where, bool deep) const
{
    for (auto it = children.rbegin(); it != children.rend(); ++it)
    {
        CView* view = *it;
        if (!view->isVisible() || !view->getViewSize().pointInside(where)) continue;
        if (deep)
            if (auto* container = dynamic_cast<CViewContainer*>(view))
                if (CView* inner = container->getViewAt(where, true)) return inner;
        return view;
    }
    return nullptr;
}

void CViewContainer::setBackgroundColor(const CColor& color)
{
    backgroundColor = color;
    setDirty();
}

void CViewContainer::draw(CDrawContext* context)
{
    drawRect(context, size);
}

void CViewContainer::drawRect(CDrawContext* context, const CRect& updateRect)
{
    CRect oldClip;
    context->getClipRect(oldClip);
    CRect clip = updateRect;
    clip.bound(oldClip).bound(size);
    context->setClipRect(clip);
    drawBackgroundRect(context, clip);
    for (CView* view : children)
    {
        if (!view->isVisible() || !view->getViewSize().rectOverlap(clip)) continue;
        CRect viewClip = view->getViewSize();
        viewClip.bound(clip);
        context->setClipRect(viewClip);
        view->drawRect(context, viewClip);
        view->setDirty(false);
    }
    context->setClipRect(oldClip);
    CView::setDirty(false);
}

void CViewContainer::drawBackgroundRect(CDrawContext* context, const CRect& rect)
{
    if (backgroundColor.alpha > 0)
    {
        context->setFillColor(backgroundColor);
        context->fillRect(rect);
    }
    if (background) background->draw(context, rect, CPoint(rect.left - size.left, rect.top - size.top));
}

bool CViewContainer::isDirty() const
{
    return CView::isDirty() || std::any_of(children.begin(), children.end(),
                                           [](CView* v) { return v->isVisible() && v->isDirty(); });
}

bool CViewContainer::invalidateDirtyViews()
{
    if (CView::isDirty())
    {
        invalid();
        return true;
    }
    for (CView* view : children)
    {
        if (auto* container = dynamic_cast<CViewContainer*>(view))
            container->invalidateDirtyViews();
        else if (view->isDirty() && view->isVisible())
            view->invalid();
    }
    return true;
}

CMouseEventResult CViewContainer::onMouseDown(CPoint& where, const CButtonState& buttons)
{
    // Copy: a child may add or remove views while it handles the press.
    const std::vector<CView*> snapshot(children.rbegin(), children.rend());
    for (CView* view : snapshot)
    {
        if (!isChild(view) || !view->isVisible() || !view->getMouseEnabled() ||
            !view->hitTest(where, buttons))
            continue;
        // The child may free itself while it handles the press (a splash view that closes itself),
        // so it is only remembered when it still belongs to us afterwards.
        const CMouseEventResult result = view->onMouseDown(where, buttons);
        if (result == kMouseEventNotHandled || result == kMouseEventNotImplemented) continue;
        if (result == kMouseEventHandled && isChild(view)) mouseDownView = view;
        return result;
    }
    return kMouseEventNotHandled;
}

CMouseEventResult CViewContainer::onMouseUp(CPoint& where, const CButtonState& buttons)
{
    CView* view = mouseDownView;
    mouseDownView = nullptr;
    return view ? view->onMouseUp(where, buttons) : kMouseEventNotHandled;
}

CMouseEventResult CViewContainer::onMouseMoved(CPoint& where, const CButtonState& buttons)
{
    if (mouseDownView)
    {
        const CMouseEventResult result = mouseDownView->onMouseMoved(where, buttons);
        if (result == kMouseEventNotHandled || result == kMouseEventNotImplemented) mouseDownView = nullptr;
        return result;
    }
    // Without a press the move goes to the view under the pointer, for hover states within a view.
    for (auto it = children.rbegin(); it != children.rend(); ++it)
    {
        CView* view = *it;
        if (view->isVisible() && view->getMouseEnabled() && view->hitTest(where, buttons))
            return view->onMouseMoved(where, buttons);
    }
    return kMouseEventNotHandled;
}

bool CViewContainer::onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                             const CButtonState& buttons)
{
    for (auto it = children.rbegin(); it != children.rend(); ++it)
    {
        CView* view = *it;
        if (view->isVisible() && view->getMouseEnabled() && view->hitTest(where, buttons))
            return view->onWheel(where, axis, distance, buttons);
    }
    return false;
}

bool CViewContainer::attached(CView* parent)
{
    CView::attached(parent);
    for (CView* view : children)
        view->attached(this);
    return true;
}

bool CViewContainer::removed(CView* parent)
{
    for (CView* view : children)
        view->removed(this);
    return CView::removed(parent);
}

void CViewContainer::releaseMouseDownView(CView* view)
{
    if (mouseDownView == view) mouseDownView = nullptr;
}
