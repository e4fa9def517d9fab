#include "CTextLabel.h"

CTextLabel::CTextLabel(const CRect& size, const char* text, CBitmap* background, int32_t style)
    : CParamDisplay(size, background, style), text(text ? text : "")
{
}

void CTextLabel::setText(const char* newText)
{
    const std::string replacement = newText ? newText : "";
    if (replacement == text) return;
    text = replacement;
    setDirty();
}

void CTextLabel::draw(CDrawContext* context)
{
    drawText(context, text.c_str());
}
