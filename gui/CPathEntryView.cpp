#include "CPathEntryView.h"

#include "CDrawContext.h"
#include "CFrame.h"

namespace
{
const CColor kShade = MakeCColor(0, 0, 0, 170);
const CColor kPanel = MakeCColor(34, 37, 43);
const CColor kPanelFrame = MakeCColor(96, 104, 116);
const CColor kFieldBack = MakeCColor(16, 18, 21);
const CColor kText = MakeCColor(222, 226, 232);
const CColor kHint = MakeCColor(140, 148, 158);
constexpr double kFieldLeftPadding = 4.0;
} // namespace

CPathEntryView::CPathEntryView(const CRect& size, const char* title, const char* text)
    : CView(size), title(title && *title ? title : "Save as"), editor(text)
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
    CRect textRect = field;
    textRect.inset(kFieldLeftPadding, 1);
    editor.draw(context, textRect, kLeftText, true);

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
    switch (editor.onKey(keyCode))
    {
    case CLineEditor::kNotHandled:
        return -1;
    case CLineEditor::kConfirmed:
        finished = confirmed = true;
        break;
    case CLineEditor::kCancelled:
        finished = true;
        break;
    case CLineEditor::kEdited:
        break;
    }
    invalid();
    return 1;
}
