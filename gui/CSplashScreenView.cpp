#include "CSplashScreenView.h"

#include "CBitmap.h"
#include "CFrame.h"
#include "CSplashScreen.h"

CSplashScreenView::CSplashScreenView(const CRect& size, CSplashScreen* splash) : CView(size), splash(splash)
{
    setBackground(splash->getBackground());
}

void CSplashScreenView::draw(CDrawContext* context)
{
    if (background) background->draw(context, size, splash->getDisplayOffset());
    setDirty(false);
}

CMouseEventResult CSplashScreenView::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    CSplashScreen* owner = splash;
    CFrame* frame = getFrame();
    // After unSplash this view is gone: touch nothing of it.
    owner->unSplash();
    owner->valueChanged();
    if (frame) frame->invalid();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}
