#include "CLineEditor.h"

#include <algorithm>

namespace
{
bool isContinuationByte(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}
} // namespace

CLineEditor::CLineEditor(const char* text) : text(text ? text : ""), caret(this->text.size()) {}

void CLineEditor::setText(const char* newText)
{
    text = newText ? newText : "";
    caret = text.size();
}

CLineEditor::Result CLineEditor::onKey(const VstKeyCode& key)
{
    // A key pressed with Command (the Super key here) confirms, as Return does; it types nothing.
    if ((key.modifier & MODIFIER_COMMAND) && (key.virt || key.character)) return kConfirmed;
    switch (key.virt)
    {
    case VKEY_RETURN:
    case VKEY_ENTER:
        return kConfirmed;
    case VKEY_ESCAPE:
        return kCancelled;
    case VKEY_BACK:
        eraseBefore();
        return kEdited;
    case VKEY_DELETE:
        eraseAfter();
        return kEdited;
    case VKEY_LEFT:
        if (caret > 0)
            while (--caret > 0 && isContinuationByte(text[caret]))
            {
            }
        return kEdited;
    case VKEY_RIGHT:
        if (caret < text.size())
            while (++caret < text.size() && isContinuationByte(text[caret]))
            {
            }
        return kEdited;
    case VKEY_HOME:
        caret = 0;
        return kEdited;
    case VKEY_END:
        caret = text.size();
        return kEdited;
    case VKEY_SPACE: // hosts send the space bar as a virtual key; in a line of text it is a space
        insertCharacter(' ');
        return kEdited;
    case 0:
        if (key.character < 0x20 || key.character == 0x7F || key.character > 0x10FFFF) return kNotHandled;
        insertCharacter(static_cast<uint32_t>(key.character));
        return kEdited;
    default:
        return kNotHandled;
    }
}

void CLineEditor::insertCharacter(uint32_t c)
{
    std::string encoded;
    if (c < 0x80)
        encoded = static_cast<char>(c);
    else if (c < 0x800)
        encoded = {static_cast<char>(0xC0 | (c >> 6)), static_cast<char>(0x80 | (c & 0x3F))};
    else if (c < 0x10000)
        encoded = {static_cast<char>(0xE0 | (c >> 12)), static_cast<char>(0x80 | ((c >> 6) & 0x3F)),
                   static_cast<char>(0x80 | (c & 0x3F))};
    else
        encoded = {static_cast<char>(0xF0 | (c >> 18)), static_cast<char>(0x80 | ((c >> 12) & 0x3F)),
                   static_cast<char>(0x80 | ((c >> 6) & 0x3F)), static_cast<char>(0x80 | (c & 0x3F))};
    text.insert(caret, encoded);
    caret += encoded.size();
}

void CLineEditor::eraseBefore()
{
    if (caret == 0) return;
    size_t start = caret - 1;
    while (start > 0 && isContinuationByte(text[start]))
        --start;
    text.erase(start, caret - start);
    caret = start;
}

void CLineEditor::eraseAfter()
{
    if (caret >= text.size()) return;
    size_t end = caret + 1;
    while (end < text.size() && isContinuationByte(text[end]))
        ++end;
    text.erase(caret, end - caret);
}

void CLineEditor::draw(CDrawContext* context, const CRect& rect, CHoriTxtAlign align, bool showCaret) const
{
    const double width = context->getStringWidth(text.c_str());
    const double caretOffset = context->getStringWidth(text.substr(0, caret).c_str());
    double left = rect.left;
    if (width <= rect.getWidth())
    {
        if (align == kCenterText)
            left = rect.left + (rect.getWidth() - width) / 2.0;
        else if (align == kRightText)
            left = rect.right - width;
    }
    else
    {
        left = rect.left - std::max(0.0, caretOffset - rect.getWidth() + 1.0);
    }
    CRect oldClip;
    context->getClipRect(oldClip);
    CRect clip = rect;
    context->setClipRect(clip.bound(oldClip));
    context->drawString(text.c_str(), CRect(left, rect.top, left + width + 1.0, rect.bottom), kLeftText);
    if (showCaret)
    {
        context->setFrameColor(context->getFontColor());
        context->setLineWidth(1.0);
        const double x = static_cast<int>(left + caretOffset);
        context->drawLine(CPoint(x, rect.top + 2), CPoint(x, rect.bottom - 3));
    }
    context->setClipRect(oldClip);
}
