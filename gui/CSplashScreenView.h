// The splash image shown by a CSplashScreen; any click on it closes it.
#pragma once

#include "CView.h"

class CSplashScreen;

class CSplashScreenView : public CView
{
  public:
    CSplashScreenView(const CRect& size, CSplashScreen* splash);

    void draw(CDrawContext* context) override;
    // Closes the splash (the splash control frees this view).
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;

    bool isTypeOf(const char* s) const override
    {
        return std::strcmp(s, "CSplashScreenView") == 0 || CView::isTypeOf(s);
    }
    // Belongs to the splash control that opened it.
    CView* newCopy() const override { return nullptr; }

  private:
    CSplashScreen* splash;
};
