#include "CFrame.h"

#include "CDrawContext.h"
#include "CFramePlatformBridge.h"
#include "CKnobMode.h"
#include "VSTGUIEditorInterface.h"
#include "platform/PlatformWindow.h"

#include <cmath>
#include <cstdint>

namespace
{
constexpr auto kDoubleClickTime = std::chrono::milliseconds(300);
constexpr double kDoubleClickDistance = 4.0;
} // namespace

CFrame::CFrame(const CRect& size, void* systemWindow, VSTGUIEditorInterface* editor)
    : CViewContainer(size), editor(editor), bridge(std::make_unique<CFramePlatformBridge>(this)),
      scale(editor ? editor->getScale() : 1.0)
{
    if (systemWindow)
    {
        platformWindow = std::make_unique<PlatformWindow>(reinterpret_cast<uintptr_t>(systemWindow),
                                                          toWindowPixels(size.getWidth()),
                                                          toWindowPixels(size.getHeight()), bridge.get());
        // Without a display the frame still works, only unseen.
        if (!platformWindow->isValid()) platformWindow.reset();
    }
}

CFrame::~CFrame()
{
    modalView = nullptr;
    setFocusView(nullptr);
    removeAll(true);
    platformWindow.reset();
}

void CFrame::close()
{
    // The modal view is a child: it goes with the others.
    setFocusView(nullptr);
    removeAll(true);
    platformWindow.reset();
    forget();
}

void CFrame::idle()
{
    invalidateDirtyViews();
}

int CFrame::toWindowPixels(double units) const
{
    return static_cast<int>(std::lround(units * scale));
}

void CFrame::setScale(double newScale)
{
    if (newScale == scale) return;
    scale = newScale;
    if (platformWindow)
        platformWindow->setSize(toWindowPixels(size.getWidth()), toWindowPixels(size.getHeight()));
    invalid();
}

void CFrame::invalidRect(const CRect& rect)
{
    CRect area = rect;
    area.bound(size);
    if (area.isEmpty()) return;
    invalidArea.unite(area);
    if (platformWindow)
    {
        // Whole window pixels that cover the area.
        const int left = static_cast<int>(std::floor(area.left * scale));
        const int top = static_cast<int>(std::floor(area.top * scale));
        platformWindow->invalidRect(left, top, static_cast<int>(std::ceil(area.right * scale)) - left,
                                    static_cast<int>(std::ceil(area.bottom * scale)) - top);
    }
}

void CFrame::paint(CDrawContext* context)
{
    paint(context, size);
}

void CFrame::paint(CDrawContext* context, const CRect& updateRect)
{
    invalidArea = CRect();
    drawRect(context, updateRect);
}

bool CFrame::setModalView(CView* view)
{
    if (view && modalView) return false;
    if (modalView)
    {
        CView* old = modalView;
        const bool hadKeyboard = old->wantsKeyboard();
        modalView = nullptr;
        removeView(old, false);
        if (hadKeyboard && !focusView && platformWindow) platformWindow->restoreKeyboardFocus();
    }
    modalView = view;
    if (view)
    {
        mouseDownView = nullptr;
        addView(view);
        if (view->wantsKeyboard() && platformWindow) platformWindow->takeKeyboardFocus();
    }
    return true;
}

void CFrame::setFocusView(CView* view)
{
    if (view == focusView) return;
    CView* old = focusView;
    focusView = view;
    if (old) old->looseFocus();
    if (view) view->takeFocus();
    if (platformWindow)
    {
        if (focusView)
            platformWindow->takeKeyboardFocus();
        else
            platformWindow->restoreKeyboardFocus();
    }
}

void CFrame::beginEdit(int32_t index)
{
    if (editor) editor->beginEdit(index);
}

void CFrame::endEdit(int32_t index)
{
    if (editor) editor->endEdit(index);
}

int32_t CFrame::getKnobMode() const
{
    return editor ? editor->getKnobMode() : kCircularMode;
}

CMouseEventResult CFrame::onMouseDown(CPoint& where, const CButtonState& buttons)
{
    // A click outside the view that has the keyboard ends its editing.
    if (focusView && !focusView->getViewSize().pointInside(where)) setFocusView(nullptr);
    if (modalView)
    {
        if (modalView->isVisible() && modalView->getMouseEnabled() && modalView->hitTest(where, buttons))
            return modalView->onMouseDown(where, buttons);
        return kMouseEventNotHandled;
    }
    return CViewContainer::onMouseDown(where, buttons);
}

CMouseEventResult CFrame::onMouseUp(CPoint& where, const CButtonState& buttons)
{
    if (modalView) return modalView->onMouseUp(where, buttons);
    return CViewContainer::onMouseUp(where, buttons);
}

CMouseEventResult CFrame::onMouseMoved(CPoint& where, const CButtonState& buttons)
{
    if (modalView) return modalView->onMouseMoved(where, buttons);
    return CViewContainer::onMouseMoved(where, buttons);
}

bool CFrame::onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                     const CButtonState& buttons)
{
    if (modalView) return modalView->onWheel(where, axis, distance, buttons);
    return CViewContainer::onWheel(where, axis, distance, buttons);
}

int32_t CFrame::onKeyDown(VstKeyCode& keyCode)
{
    if (focusView) return focusView->onKeyDown(keyCode);
    if (modalView) return modalView->onKeyDown(keyCode);
    return -1;
}

int32_t CFrame::onKeyUp(VstKeyCode& keyCode)
{
    if (focusView) return focusView->onKeyUp(keyCode);
    if (modalView) return modalView->onKeyUp(keyCode);
    return -1;
}

CMouseEventResult CFrame::platformOnMouseDown(CPoint& where, const CButtonState& buttons)
{
    const auto now = std::chrono::steady_clock::now();
    long state = buttons;
    const long button = buttons.getButtonState();
    if (button == lastPressButton && now - lastPressTime <= kDoubleClickTime &&
        std::abs(where.x - lastPressPoint.x) <= kDoubleClickDistance &&
        std::abs(where.y - lastPressPoint.y) <= kDoubleClickDistance)
    {
        state |= kDoubleClick;
        lastPressButton = 0; // a third press starts a new pair
    }
    else
    {
        lastPressButton = button;
    }
    lastPressTime = now;
    lastPressPoint = where;
    return onMouseDown(where, CButtonState(state));
}

CMouseEventResult CFrame::platformOnMouseUp(CPoint& where, const CButtonState& buttons)
{
    return onMouseUp(where, buttons);
}

CMouseEventResult CFrame::platformOnMouseMoved(CPoint& where, const CButtonState& buttons)
{
    if (!buttons.getButtonState()) updateMouseOverView(where, buttons);
    return onMouseMoved(where, buttons);
}

CMouseEventResult CFrame::platformOnMouseExited(CPoint& where, const CButtonState& buttons)
{
    if (CView* old = mouseOverView)
    {
        mouseOverView = nullptr;
        old->onMouseExited(where, buttons);
    }
    return kMouseEventHandled;
}

bool CFrame::platformOnMouseWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                                  const CButtonState& buttons)
{
    return onWheel(where, axis, distance, buttons);
}

int32_t CFrame::platformOnKeyDown(VstKeyCode& keyCode)
{
    return onKeyDown(keyCode);
}

int32_t CFrame::platformOnKeyUp(VstKeyCode& keyCode)
{
    return onKeyUp(keyCode);
}

void CFrame::platformOnFocusLost()
{
    setFocusView(nullptr);
}

void CFrame::updateMouseOverView(CPoint& where, const CButtonState& buttons)
{
    CView* over = nullptr;
    if (modalView)
        over = modalView->getViewSize().pointInside(where) ? modalView : nullptr;
    else
        over = getViewAt(where, true);
    if (over && !over->getMouseEnabled()) over = nullptr;
    if (over == mouseOverView) return;
    CView* old = mouseOverView;
    mouseOverView = over;
    if (old) old->onMouseExited(where, buttons);
    if (over) over->onMouseEntered(where, buttons);
}

void CFrame::onViewRemoved(CView* view)
{
    if (modalView == view) modalView = nullptr;
    if (mouseOverView == view) mouseOverView = nullptr;
    if (focusView == view)
    {
        focusView = nullptr;
        if (platformWindow) platformWindow->restoreKeyboardFocus();
    }
    releaseMouseDownView(view);
}
