// Drawing on a Cairo context: colours, font, lines, rectangles, strings, bitmaps and a clip rectangle.
#pragma once

#include "CBaseObject.h"
#include "CColor.h"
#include "CFontDesc.h"
#include "CRect.h"

typedef struct _cairo cairo_t;
class CBitmap;

enum CHoriTxtAlign
{
    kLeftText = 0,
    kCenterText,
    kRightText,
};

enum CDrawStyle
{
    kDrawStroked = 0,
    kDrawFilled,
    kDrawFilledAndStroked,
};

class CDrawContext : public CBaseObject
{
  public:
    // Draws on cr (the context keeps its own reference); the initial clip is cr's clip extents. At a scale
    // other than 1 the context draws in units of scale pixels: cr is scaled once, here, and bitmaps are
    // taken as drawn for that scale.
    explicit CDrawContext(cairo_t* cr, double scale = 1.0);

    cairo_t* getCairo() const { return cr; }
    double getScale() const { return scale; }

    // ---- state
    void setFrameColor(const CColor& color) { frameColor = color; }
    const CColor& getFrameColor() const { return frameColor; }
    void setFillColor(const CColor& color) { fillColor = color; }
    const CColor& getFillColor() const { return fillColor; }
    void setFontColor(const CColor& color) { fontColor = color; }
    const CColor& getFontColor() const { return fontColor; }
    // size 0 keeps the font's own size; style -1 keeps the font's own style.
    void setFont(CFontRef font, double size = 0.0, int style = -1);
    CFontRef getFont() const { return font; }
    double getFontSize() const { return fontSize; }
    void setLineWidth(double width) { lineWidth = width; }
    double getLineWidth() const { return lineWidth; }
    // Multiplies every later drawing's opacity.
    void setGlobalAlpha(float alpha) { globalAlpha = alpha; }
    float getGlobalAlpha() const { return globalAlpha; }

    // ---- clipping
    void setClipRect(const CRect& clip);
    CRect& getClipRect(CRect& clip) const;
    void resetClipRect();

    // ---- drawing
    void moveTo(const CPoint& point) { penPosition = point; }
    void lineTo(const CPoint& point);
    void drawLine(const CPoint& from, const CPoint& to);
    void drawRect(const CRect& rect, CDrawStyle style = kDrawStroked);
    void fillRect(const CRect& rect) { drawRect(rect, kDrawFilled); }
    void drawString(const char* text, const CRect& rect, CHoriTxtAlign align = kCenterText,
                    bool antialias = true);
    double getStringWidth(const char* text);
    // Draws the bitmap part starting at offset into rect (clipped to rect).
    void drawBitmap(CBitmap* bitmap, const CRect& rect, const CPoint& offset, float alpha);

  protected:
    ~CDrawContext() override;

  private:
    void applyColor(const CColor& color);
    void applyFont();

    cairo_t* cr;
    double scale = 1.0;
    CRect clipRect;
    CRect initialClip;
    CColor frameColor = kBlackCColor;
    CColor fillColor = kWhiteCColor;
    CColor fontColor = kBlackCColor;
    CFontRef font = kSystemFont;
    double fontSize = 12.0;
    int fontStyle = kNormalFace;
    double lineWidth = 1.0;
    float globalAlpha = 1.0f;
    CPoint penPosition;
};
