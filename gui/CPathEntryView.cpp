#include "CPathEntryView.h"

#include "CDrawContext.h"
#include "CFrame.h"

#include <algorithm>

namespace
{
const CColor kShade = MakeCColor(0, 0, 0, 170);
const CColor kPanel = MakeCColor(34, 37, 43);
const CColor kPanelFrame = MakeCColor(96, 104, 116);
const CColor kFieldBack = MakeCColor(16, 18, 21);
const CColor kText = MakeCColor(222, 226, 232);
const CColor kHint = MakeCColor(140, 148, 158);
constexpr double kFieldLeftPadding = 4.0;

bool isContinuationByte(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}
} // namespace

CPathEntryView::CPathEntryView(const CRect& size, const char* title, const char* text)
    : CView(size), title(title && *title ? title : "Save as"), text(text ? text : ""),
      caret(this->text.size())
{
}

CRect CPathEntryView::panelRect() const
{
    CRect panel = size;
    panel.inset(8, 0);
    const double middle = (size.top + size.bottom) / 2.0;
    panel.top = static_cast<int>(middle - 30);
    panel.bottom = panel.top + 60;
    return panel;
}

void CPathEntryView::draw(CDrawContext* context)
{
    context->setFillColor(kShade);
    context->fillRect(size);
    const CRect panel = panelRect();
    context->setFillColor(kPanel);
    context->setFrameColor(kPanelFrame);
    context->setLineWidth(1.0);
    context->drawRect(panel, kDrawFilledAndStroked);

    context->setFont(kNormalFontSmall);
    context->setFontColor(kText);
    context->drawString(title.c_str(), CRect(panel.left + 8, panel.top + 4, panel.right - 8, panel.top + 18),
                        kLeftText);

    const CRect field(panel.left + 8, panel.top + 21, panel.right - 8, panel.top + 39);
    context->setFillColor(kFieldBack);
    context->drawRect(field, kDrawFilledAndStroked);
    // Long paths scroll so that the caret stays in view.
    const double caretX = context->getStringWidth(text.substr(0, caret).c_str());
    const double visible = field.getWidth() - 2 * kFieldLeftPadding;
    const double scroll = std::max(0.0, caretX - visible);
    CRect textRect(field.left + kFieldLeftPadding - scroll, field.top, field.right + 2000, field.bottom);
    CRect oldClip;
    context->getClipRect(oldClip);
    CRect fieldClip = field;
    fieldClip.inset(1, 1);
    context->setClipRect(fieldClip.bound(oldClip));
    context->drawString(text.c_str(), textRect, kLeftText);
    context->setFrameColor(kText);
    const double x = static_cast<int>(textRect.left + caretX);
    context->drawLine(CPoint(x, field.top + 3), CPoint(x, field.bottom - 4));
    context->setClipRect(oldClip);

    context->setFont(kNormalFontVerySmall);
    context->setFontColor(kHint);
    context->drawString("Return saves, Escape cancels",
                        CRect(panel.left + 8, panel.top + 42, panel.right - 8, panel.top + 56), kRightText);
    setDirty(false);
}

bool CPathEntryView::hitTest(const CPoint&, const CButtonState&)
{
    return true;
}

CMouseEventResult CPathEntryView::onMouseDown(CPoint&, const CButtonState&)
{
    if (CFrame* frame = getFrame()) frame->setFocusView(this);
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

int32_t CPathEntryView::onKeyDown(VstKeyCode& keyCode)
{
    if (finished) return -1;
    switch (keyCode.virt)
    {
    case VKEY_RETURN:
    case VKEY_ENTER:
        finished = confirmed = true;
        break;
    case VKEY_ESCAPE:
        finished = true;
        break;
    case VKEY_BACK:
        eraseBefore();
        break;
    case VKEY_DELETE:
        eraseAfter();
        break;
    case VKEY_LEFT:
        if (caret > 0)
            while (--caret > 0 && isContinuationByte(text[caret]))
            {
            }
        break;
    case VKEY_RIGHT:
        if (caret < text.size())
            while (++caret < text.size() && isContinuationByte(text[caret]))
            {
            }
        break;
    case VKEY_HOME:
        caret = 0;
        break;
    case VKEY_END:
        caret = text.size();
        break;
    case 0:
        if (keyCode.character < 0x20) return -1;
        insertCharacter(static_cast<uint32_t>(keyCode.character));
        break;
    default:
        return -1;
    }
    invalid();
    return 1;
}

void CPathEntryView::insertCharacter(uint32_t c)
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

void CPathEntryView::eraseBefore()
{
    if (caret == 0) return;
    size_t start = caret - 1;
    while (start > 0 && isContinuationByte(text[start]))
        --start;
    text.erase(start, caret - start);
    caret = start;
}

void CPathEntryView::eraseAfter()
{
    if (caret >= text.size()) return;
    size_t end = caret + 1;
    while (end < text.size() && isContinuationByte(text[end]))
        ++end;
    text.erase(caret, end - caret);
}
