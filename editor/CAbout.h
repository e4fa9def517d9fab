// The about area: a click opens the about screen over the editor; its value says whether it is shown.
#pragma once

#include "CSplashScreen.h"

class CAbout : public CSplashScreen
{
  public:
    // size: the clickable area; background: the about image; toDisplay: where the screen is shown; offset:
    // the image's first point; textOffset: where the screen's lines of text start, from its top-left.
    CAbout(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
           const CRect& toDisplay, const CPoint& offset, const CPoint& textOffset);

    // Left button: shows the about screen as the frame's modal view (value 1). The listener hears nothing.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;

    const CPoint& getTextOffset() const { return textOffset; }

    // The copy shows no screen of its own.
    CView* newCopy() const override { return new CAbout(*this); }

  protected:
    ~CAbout() override = default;

  private:
    CPoint textOffset;
};
