// A read-only display of a value as text, through an installed value-to-string converter.
#pragma once

#include "CColor.h"
#include "CControl.h"
#include "CControlStyle.h"
#include "CDrawContext.h"

class CParamDisplay : public CControl
{
  public:
    using StringConvert = void (*)(float value, char* text);

    // background: drawn behind the text from the back offset; style: kNoFrame, kNoDrawStyle, kNoTextStyle,
    // kShadowText.
    explicit CParamDisplay(const CRect& size, CBitmap* background = nullptr, int32_t style = 0);

    void draw(CDrawContext* context) override;

    // ---- text
    // Without a converter the value is shown with two decimals.
    void setStringConvert(StringConvert convert) { stringConvert = convert; }
    StringConvert getStringConvert() const { return stringConvert; }
    void setHoriAlign(CHoriTxtAlign align) { horiAlign = align; }
    CHoriTxtAlign getHoriAlign() const { return horiAlign; }
    void setFont(CFontRef newFont) { font = newFont; }
    CFontRef getFont() const { return font; }
    void setTextInset(const CPoint& inset) { textInset = inset; }

    // ---- look
    void setFontColor(const CColor& color) { fontColor = color; }
    const CColor& getFontColor() const { return fontColor; }
    void setBackColor(const CColor& color) { backColor = color; }
    const CColor& getBackColor() const { return backColor; }
    void setFrameColor(const CColor& color) { frameColor = color; }
    const CColor& getFrameColor() const { return frameColor; }
    void setShadowColor(const CColor& color) { shadowColor = color; }
    // The point of the background bitmap drawn at the display's top-left.
    void setBackOffset(const CPoint& offset) { backOffset = offset; }
    const CPoint& getBackOffset() const { return backOffset; }
    // Transparent: without a background bitmap nothing is drawn behind the text.
    void setTransparency(bool state) { transparent = state; }
    bool getTransparency() const { return transparent; }
    void setAntialias(bool state) { antialias = state; }
    void setStyle(int32_t newStyle) { style = newStyle; }
    int32_t getStyle() const { return style; }

    CLASS_METHODS(CParamDisplay, CControl)

  protected:
    // Draws background, frame and text as the style says.
    void drawText(CDrawContext* context, const char* text);
    void drawBack(CDrawContext* context);

    StringConvert stringConvert = nullptr;
    CHoriTxtAlign horiAlign = kCenterText;
    CFontRef font = kNormalFontSmall;
    CColor fontColor = kWhiteCColor;
    CColor backColor = kBlackCColor;
    CColor frameColor = kBlackCColor;
    CColor shadowColor = kBlackCColor;
    CPoint backOffset;
    CPoint textInset;
    int32_t style;
    bool transparent = false;
    bool antialias = true;
};
