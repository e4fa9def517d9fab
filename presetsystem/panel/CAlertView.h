// The preset system's alert inside the editor: the frame dimmed, the message, and one "OK" button. Held
// as the frame's modal view until OK is clicked or Return, Enter or Escape is pressed.
#pragma once

#include "CView.h"

#include <string>
#include <vector>

class CAlertView : public CView
{
  public:
    // size: the area it dims (the frame); message: lines separated by "\n".
    CAlertView(const CRect& size, const char* message);

    void draw(CDrawContext* context) override;
    // Takes every click, so nothing behind it can be used while it is up.
    bool hitTest(const CPoint& where, const CButtonState& buttons = CButtonState()) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    bool wantsKeyboard() const override { return true; }

    bool isDismissed() const { return dismissed; }
    // The message's lines; once drawn, with the long ones broken to fit the box.
    const std::vector<std::string>& getLines() const { return lines; }
    // The box holding the message and the button, and the button (frame pixels).
    CRect boxRect() const;
    CRect okButtonRect() const;

    // Shows the message in frame and waits, running the frame's window, until it is dismissed. Without a
    // window there is nobody to dismiss it: the message goes to standard error instead.
    static void showModal(CFrame* frame, const char* message);

    bool isTypeOf(const char* s) const override
    {
        return std::strcmp(s, "CAlertView") == 0 || CView::isTypeOf(s);
    }
    CView* newCopy() const override { return nullptr; }

  private:
    // Breaks the lines that are wider than width in the context's font.
    void wrapLines(CDrawContext* context, double width);

    std::vector<std::string> lines;
    bool wrapped = false;
    bool dismissed = false;
};
