#include "MyFrame.h"

#include "CDrawContext.h"
#include "COptionMenu.h"
#include "SharedPointer.h"

MyFrame::MyFrame(const CRect& size, void* systemWindow, VSTGUIEditorInterface* editor)
    : CFrame(size, systemWindow, editor)
{
}

void MyFrame::drawRect(CDrawContext* context, const CRect& updateRect)
{
    if (!context || updateRect.getWidth() <= 0 || updateRect.getHeight() <= 0) return;
    // The context stays alive while the views draw into it, whatever they do with their own references.
    const SharedPointer<CDrawContext> kept(context);
    CRect oldClip;
    context->getClipRect(oldClip);
    CRect newClip = updateRect;
    newClip.bound(oldClip);
    context->setClipRect(newClip);

    CFrame::drawRect(context, updateRect);
    // Drawn after the children, whether or not it is also one of them, so it always lies on top.
    if (modalView && modalView->getViewSize().touches(updateRect)) modalView->drawRect(context, updateRect);

    context->setClipRect(oldClip);
}

CMouseEventResult MyFrame::onMouseDown(CPoint& where, const CButtonState& buttons)
{
    if (modalView) return modalView->onMouseDown(where, buttons);
    const CMouseEventResult result = CFrame::onMouseDown(where, buttons);
    if (result != kMouseEventNotHandled || !buttons.isRightButton() || !backgroundMenu || getModalView())
        return result;
    // The menu has no area of its own, so no click finds it: its list opens below the pointer.
    backgroundMenu->setViewSize(CRect(where.x, where.y, where.x, where.y));
    backgroundMenu->popup();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

CMouseEventResult MyFrame::onMouseUp(CPoint& where, const CButtonState& buttons)
{
    if (modalView) return modalView->onMouseUp(where, buttons);
    return CFrame::onMouseUp(where, buttons);
}

CMouseEventResult MyFrame::onMouseMoved(CPoint& where, const CButtonState& buttons)
{
    if (modalView) return modalView->onMouseMoved(where, buttons);
    return CFrame::onMouseMoved(where, buttons);
}

bool MyFrame::onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                      const CButtonState& buttons)
{
    if (modalView) return modalView->onWheel(where, axis, distance, buttons);
    return CFrame::onWheel(where, axis, distance, buttons);
}

void MyFrame::idle()
{
    // A modal view may animate or change without marking itself: repaint it on every idle.
    if (modalView) setDirty(true);
    invalidateDirtyViews();
}

CMouseEventResult MyFrame::platformOnMouseDown(CPoint& where, const CButtonState& buttons)
{
    return CFrame::platformOnMouseDown(where, buttons);
}

void MyFrame::closeModal()
{
    modalView = nullptr;
    CFrame::invalid();
}
