// The about screen: the about image with the product's lines of text; a click anywhere in the editor
// closes it.
#pragma once

#include "CColor.h"
#include "CControl.h"

class CSplashScreen;

// The about screen's text colours.
extern const CColor kDarkBlueCColor;
extern const CColor kDarkGreyCColor;

class CSplashScreenMyView : public CControl
{
  public:
    // size: where the screen lies (frame pixels); splash: the control that opened it (not owned), whose
    // image is drawn; textOffset: the first line's box, from the screen's top-left.
    CSplashScreenMyView(const CRect& size, CSplashScreen* splash, const CPoint& textOffset);

    // The image, then four centred lines: name and version, notice, web address, technology credit.
    void draw(CDrawContext* context) override;
    // Left button: the opener goes back to 0, the modal view is cleared and this screen frees itself.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    // As the frame's modal view it owns every click in the editor, beside it too: the controls beneath
    // get nothing while it is shown.
    bool hitTest(const CPoint& where, const CButtonState& buttons = CButtonState()) override;

    CLASS_METHODS(CSplashScreenMyView, CControl)

  protected:
    ~CSplashScreenMyView() override = default;

  private:
    CSplashScreen* splash;
    CPoint textOffset;
};
