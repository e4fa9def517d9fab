// A click area that shows its bitmap over the frame (as the frame's modal view) until clicked again.
#pragma once

#include "CControl.h"

class CSplashScreenView;

class CSplashScreen : public CControl
{
  public:
    // background: the image shown; toDisplay: where it is shown (frame pixels); offset: its point drawn
    // first.
    CSplashScreen(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
                  const CRect& toDisplay, const CPoint& offset = CPoint(0, 0));
    // A copy shows no splash of its own.
    CSplashScreen(const CSplashScreen& other);

    // The click area itself draws nothing.
    void draw(CDrawContext* context) override;
    // A left click shows the splash (value = maximum) in a modal view of the frame and tells the listener.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    // Back to the minimum; closes the splash view this control opened, if any.
    virtual void unSplash();

    const CRect& getDisplayArea() const { return toDisplay; }
    const CPoint& getDisplayOffset() const { return offset; }

    CLASS_METHODS(CSplashScreen, CControl)

  protected:
    CRect toDisplay;
    CPoint offset;

  private:
    CSplashScreenView* splashView = nullptr;
};
