#include "CAbout.h"

#include "CFrame.h"
#include "CSplashScreenMyView.h"
#include "SharedPointer.h"

CAbout::CAbout(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
               const CRect& toDisplay, const CPoint& offset, const CPoint& textOffset)
    : CSplashScreen(size, listener, tag, background, toDisplay, offset), textOffset(textOffset)
{
}

CMouseEventResult CAbout::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    if (value != 0.0f)
    {
        value = 0.0f;
        return kMouseEventHandled;
    }
    CFrame* frame = getFrame();
    if (!frame) return kMouseEventHandled;
    auto screen = owned(new CSplashScreenMyView(toDisplay, this, textOffset));
    // Another modal view (a dialog of the preset panel) keeps the frame: no about screen then.
    if (!frame->setModalView(screen.get())) return kMouseEventHandled;
    screen.release(); // the screen lets itself go when it is clicked away
    value = 1.0f;
    invalid();
    return kMouseEventHandled;
}
