// A preset-panel push button with a hover image; either fires on a single press or, for the buttons that
// overwrite stored defaults, only on a double-click.
#pragma once

#include "CKickButton.h"

class CPSKickButton : public CKickButton
{
  public:
    // The bitmap holds three images of heightOfOneImage from offset: at rest, hovered, pressed.
    // doubleClickOnly: a single click does nothing; a double-click sends 1.0, with Control held 0.5.
    CPSKickButton(const CRect& size, CControlListener* listener, int32_t tag, double heightOfOneImage,
                  CBitmap* background, const CPoint& offset, bool doubleClickOnly);

    void draw(CDrawContext* context) override;
    // Tells the listener at once; the release only shows the button at rest again.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseEntered(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseExited(CPoint& where, const CButtonState& buttons) override;

    bool isHovered() const { return hover; }
    // The manual button drops its highlight by itself: the document it opened took the pointer away.
    void setHover(bool state);
    bool isPressed() const { return pressed; }
    bool isDoubleClickOnly() const { return doubleClickOnly; }
    // The image of the strip drawn now: 2 pressed, 1 hovered, 0 at rest.
    int currentFrame() const;

    CLASS_METHODS(CPSKickButton, CKickButton)

  private:
    bool hover = false;
    bool doubleClickOnly;
    bool pressed = false;
};
