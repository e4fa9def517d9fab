#include "CSplashScreen.h"

#include "CFrame.h"
#include "CSplashScreenView.h"
#include "SharedPointer.h"

CSplashScreen::CSplashScreen(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
                             const CRect& toDisplay, const CPoint& offset)
    : CControl(size, listener, tag, background), toDisplay(toDisplay), offset(offset)
{
}

CSplashScreen::CSplashScreen(const CSplashScreen& other)
    : CControl(other), toDisplay(other.toDisplay), offset(other.offset)
{
    value = vmin;
}

void CSplashScreen::draw(CDrawContext*)
{
    setDirty(false);
}

CMouseEventResult CSplashScreen::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    CFrame* frame = getFrame();
    if (!frame) return kMouseEventNotHandled;
    if (value == vmax)
    {
        unSplash();
    }
    else
    {
        auto view = owned(new CSplashScreenView(toDisplay, this));
        if (!frame->setModalView(view.get())) return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
        splashView = view.release(); // given back when the screen goes
        value = vmax;
    }
    valueChanged();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

void CSplashScreen::unSplash()
{
    value = vmin;
    setDirty();
    if (!splashView) return;
    CSplashScreenView* view = splashView;
    splashView = nullptr;
    if (CFrame* frame = view->getFrame())
    {
        if (frame->getModalView() == view)
            frame->setModalView(nullptr);
        else
            frame->removeView(view, false);
    }
    view->forget();
}
