// The preset name on the panel: a label that turns into a single-line editor in place when clicked.
// Return, Enter, a key held with Command (Super), a click elsewhere or the window losing the keyboard
// confirms; Escape cancels. While it
// is open it takes every key, so the host never sees a shortcut typed into a name.
#pragma once

#include "CColor.h"
#include "CLineEditor.h"
#include "CTextLabel.h"

class CZEVTextEdit : public CTextLabel
{
  public:
    // flag: part of the classic constructor; nothing in the label depends on it.
    CZEVTextEdit(const CRect& size, CControlListener* listener, int32_t tag, const char* text,
                 CBitmap* background, int32_t style, bool flag);

    // The background, then the text; while editing, the field with its caret in place of the text.
    void draw(CDrawContext* context) override;
    // Opens the editor with the keyboard; a click while it is open changes nothing. Always handled.
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    // While editing every key is ours: editing keys edit, Return / Enter confirm, Escape cancels.
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    int32_t onKeyUp(VstKeyCode& keyCode) override;
    // Losing the keyboard (a click elsewhere, another window) keeps what was typed.
    void looseFocus() override;

    // Leaves editing; on commit takes the typed text as it is and tells the listener, bracketed by
    // beginEdit / endEdit of the label's tag.
    void endEditMode(bool commit);
    bool isBeingEdited() const { return beingEdited; }
    // The text being typed (the label's own text until the edit is confirmed).
    const std::string& getEditedText() const { return lineEditor.getText(); }
    using CTextLabel::getText;
    // Copies the text to out (at least as large as the text and its terminator); nothing when out is null.
    void getText(char* out) const;

    // The colour of the typed text and its caret; until set, the label's font colour.
    void setCustomFontEditionColor(const CColor& color);

    bool isTypeOf(const char* s) const override
    {
        return std::strcmp(s, "CZEVTextEdit") == 0 || CTextLabel::isTypeOf(s);
    }
    // A label holding the keyboard is not something to duplicate.
    CView* newCopy() const override { return nullptr; }

  private:
    void drawEditor(CDrawContext* context);

    bool hasFontEditionColor = false;
    CColor fontEditionColor = kWhiteCColor;
    bool beingEdited = false;
    CLineEditor lineEditor;
};
