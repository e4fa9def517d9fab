// A path typed into the frame: the save dialog of last resort when the desktop has no dialog program.
#pragma once

#include "CLineEditor.h"
#include "CView.h"

#include <string>

class CPathEntryView : public CView
{
  public:
    // size: the area it dims (the frame); title: the question; text: the path to start from.
    CPathEntryView(const CRect& size, const char* title, const char* text);

    void draw(CDrawContext* context) override;
    // Takes every click; a click brings the keyboard back to it.
    bool hitTest(const CPoint& where, const CButtonState& buttons = CButtonState()) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    // Typing edits the path; Return confirms, Escape cancels.
    int32_t onKeyDown(VstKeyCode& keyCode) override;

    const char* getText() const { return editor.getText().c_str(); }
    size_t getCaret() const { return editor.getCaret(); }
    bool isFinished() const { return finished; }
    bool isConfirmed() const { return confirmed; }
    // The panel holding title and field (frame pixels).
    CRect panelRect() const;

    bool isTypeOf(const char* s) const override
    {
        return std::strcmp(s, "CPathEntryView") == 0 || CView::isTypeOf(s);
    }
    CView* newCopy() const override { return nullptr; }

  private:
    std::string title;
    CLineEditor editor;
    bool finished = false;
    bool confirmed = false;
};
