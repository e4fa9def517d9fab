// The text and caret of a single-line entry, edited by key codes and drawn with its caret; for in-place
// editors in the frame (Return confirms, Escape cancels).
#pragma once

#include "CDrawContext.h"
#include "VstKeyCode.h"

#include <string>

class CLineEditor
{
  public:
    enum Result
    {
        kNotHandled,
        kEdited,
        kConfirmed,
        kCancelled,
    };

    explicit CLineEditor(const char* text = "");

    // Characters insert at the caret; Backspace, Delete, arrows, Home, End edit; Return / Enter and any key
    // held with the Command modifier confirm, Escape cancels. Control characters and other keys are not
    // handled.
    Result onKey(const VstKeyCode& key);
    // Replaces the text and puts the caret at its end.
    void setText(const char* text);
    const std::string& getText() const { return text; }
    // The caret in bytes of the UTF-8 text, always at a character boundary.
    size_t getCaret() const { return caret; }

    // Draws the text in rect with the context's font and font colour, aligned, and a caret line when asked;
    // a text wider than rect scrolls so that the caret stays in view.
    void draw(CDrawContext* context, const CRect& rect, CHoriTxtAlign align, bool showCaret) const;

  private:
    void insertCharacter(uint32_t character);
    void eraseBefore();
    void eraseAfter();

    std::string text;
    size_t caret;
};
