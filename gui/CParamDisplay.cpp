#include "CParamDisplay.h"

#include "CBitmap.h"

#include <cstdio>

CParamDisplay::CParamDisplay(const CRect& size, CBitmap* background, int32_t style)
    : CControl(size, nullptr, 0, background), style(style)
{
}

void CParamDisplay::draw(CDrawContext* context)
{
    // Converters write at most a short line; the buffer leaves room for any of them.
    char text[256] = {};
    if (stringConvert)
        stringConvert(value, text);
    else
        std::snprintf(text, sizeof(text), "%2.2f", static_cast<double>(value));
    drawText(context, text);
}

void CParamDisplay::drawBack(CDrawContext* context)
{
    if (background)
    {
        background->draw(context, size, backOffset);
        return;
    }
    if (transparent) return;
    context->setFillColor(backColor);
    context->fillRect(size);
    if (!(style & (k3DIn | k3DOut | kNoFrame)))
    {
        context->setLineWidth(1.0);
        context->setFrameColor(frameColor);
        context->drawRect(size);
    }
}

void CParamDisplay::drawText(CDrawContext* context, const char* text)
{
    if (!(style & kNoDrawStyle)) drawBack(context);
    if (!(style & kNoTextStyle) && !(style & kNoDrawStyle) && text && *text)
    {
        CRect textRect = size;
        textRect.inset(textInset.x, textInset.y);
        context->setFont(font);
        if (style & kShadowText)
        {
            CRect shadowRect = textRect;
            shadowRect.offset(1, 1);
            context->setFontColor(shadowColor);
            context->drawString(text, shadowRect, horiAlign, antialias);
        }
        context->setFontColor(fontColor);
        context->drawString(text, textRect, horiAlign, antialias);
    }
    setDirty(false);
}
