#include "CZEVTextEdit.h"

#include "CBitmap.h"
#include "CFrame.h"

#include <cstring>

CZEVTextEdit::CZEVTextEdit(const CRect& size, CControlListener* listener, int32_t tag, const char* text,
                           CBitmap* background, int32_t style, bool)
    : CTextLabel(size, text, background, style)
{
    setListener(listener);
    setTag(tag);
}

void CZEVTextEdit::draw(CDrawContext* context)
{
    if (!beingEdited)
    {
        CTextLabel::draw(context);
        return;
    }
    drawEditor(context);
    setDirty(false);
}

void CZEVTextEdit::drawEditor(CDrawContext* context)
{
    // The label's own text is hidden: the field shows what is being typed, framed so the user sees that
    // the name is open for editing.
    drawBack(context);
    context->setFrameColor(frameColor);
    context->setLineWidth(1.0);
    context->drawRect(size);
    CRect field = size;
    field.inset(textInset.x + 2, textInset.y);
    context->setFont(font);
    context->setFontColor(hasFontEditionColor ? fontEditionColor : fontColor);
    lineEditor.draw(context, field, horiAlign, true);
}

CMouseEventResult CZEVTextEdit::onMouseDown(CPoint&, const CButtonState&)
{
    if (beingEdited) return kMouseEventHandled;
    beingEdited = true;
    lineEditor.setText(getText());
    setDirty();
    // The keyboard comes to the frame's window and to this label; losing it confirms.
    if (CFrame* frame = getFrame()) frame->setFocusView(this);
    return kMouseEventHandled;
}

int32_t CZEVTextEdit::onKeyDown(VstKeyCode& keyCode)
{
    if (!beingEdited) return -1;
    switch (lineEditor.onKey(keyCode))
    {
    case CLineEditor::kConfirmed:
        endEditMode(true);
        break;
    case CLineEditor::kCancelled:
        endEditMode(false);
        break;
    case CLineEditor::kEdited:
        setDirty();
        break;
    case CLineEditor::kNotHandled:
        break;
    }
    // Even keys the field has no use for are kept from the host while a name is being typed.
    return 1;
}

int32_t CZEVTextEdit::onKeyUp(VstKeyCode&)
{
    return beingEdited ? 1 : -1;
}

void CZEVTextEdit::looseFocus()
{
    endEditMode(true);
}

void CZEVTextEdit::endEditMode(bool commit)
{
    if (!beingEdited) return;
    beingEdited = false;
    setDirty();
    if (CFrame* frame = getFrame())
        if (frame->getFocusView() == this) frame->setFocusView(nullptr);
    if (commit)
    {
        setText(lineEditor.getText().c_str());
        // One edit of the name's tag, as the classic entry sends it: the host sees the begin and end of an
        // edit of tag 1000 around the rename.
        beginEdit();
        valueChanged();
        endEdit();
    }
    invalid();
}

void CZEVTextEdit::getText(char* out) const
{
    if (out) std::strcpy(out, getText());
}

void CZEVTextEdit::setCustomFontEditionColor(const CColor& color)
{
    fontEditionColor = color;
    hasFontEditionColor = true;
}
