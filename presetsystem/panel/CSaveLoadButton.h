// A file button of the preset panel: a left click sends 1.0, a plain right click 0.5 (the endian-reversed
// load); the pressed image shows only while the listener runs, for instance while its file dialog is up.
#pragma once

#include "CKickButton.h"

class CSaveLoadButton : public CKickButton
{
  public:
    // The bitmap holds three images of heightOfOneImage from offset: at rest, hovered, pressed.
    CSaveLoadButton(const CRect& size, CControlListener* listener, int32_t tag, double heightOfOneImage,
                    CBitmap* background, const CPoint& offset);

    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseEntered(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons) override;
    // Keys are not for file buttons.
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    int32_t onKeyUp(VstKeyCode& keyCode) override;

    bool isHovered() const { return hover; }
    int currentFrame() const;

    CLASS_METHODS(CSaveLoadButton, CKickButton)

  private:
    bool hover = false;
};
