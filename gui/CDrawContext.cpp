#include "CDrawContext.h"

#include "CBitmap.h"
#include "Utf8Text.h"

#include <cairo.h>

CDrawContext::CDrawContext(cairo_t* cr, double scale) : cr(cairo_reference(cr)), scale(scale)
{
    if (scale != 1.0) cairo_scale(cr, scale, scale);
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    cairo_clip_extents(cr, &x1, &y1, &x2, &y2);
    initialClip = CRect(x1, y1, x2, y2);
    clipRect = initialClip;
    setFont(kSystemFont);
}

CDrawContext::~CDrawContext()
{
    cairo_destroy(cr);
}

void CDrawContext::setFont(CFontRef newFont, double size, int style)
{
    if (!newFont) return;
    font = newFont;
    fontSize = size > 0.0 ? size : newFont->getSize();
    fontStyle = style >= 0 ? style : newFont->getStyle();
}

void CDrawContext::setClipRect(const CRect& clip)
{
    clipRect = clip;
    cairo_reset_clip(cr);
    cairo_rectangle(cr, clip.left, clip.top, clip.getWidth(), clip.getHeight());
    cairo_clip(cr);
}

CRect& CDrawContext::getClipRect(CRect& clip) const
{
    clip = clipRect;
    return clip;
}

void CDrawContext::resetClipRect()
{
    setClipRect(initialClip);
}

void CDrawContext::applyColor(const CColor& color)
{
    cairo_set_source_rgba(cr, color.red / 255.0, color.green / 255.0, color.blue / 255.0,
                          color.alpha / 255.0 * globalAlpha);
}

void CDrawContext::applyFont()
{
    cairo_select_font_face(cr, font->getName().c_str(),
                           (fontStyle & kItalicFace) ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                           (fontStyle & kBoldFace) ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, fontSize);
}

void CDrawContext::lineTo(const CPoint& point)
{
    drawLine(penPosition, point);
    penPosition = point;
}

void CDrawContext::drawLine(const CPoint& from, const CPoint& to)
{
    // Half-pixel centres keep one-pixel lines crisp instead of smeared over two rows.
    const double half = static_cast<int>(lineWidth) % 2 ? 0.5 : 0.0;
    cairo_move_to(cr, from.x + half, from.y + half);
    cairo_line_to(cr, to.x + half, to.y + half);
    cairo_set_line_width(cr, lineWidth);
    applyColor(frameColor);
    cairo_stroke(cr);
}

void CDrawContext::drawRect(const CRect& rect, CDrawStyle style)
{
    if (style != kDrawStroked)
    {
        cairo_rectangle(cr, rect.left, rect.top, rect.getWidth(), rect.getHeight());
        applyColor(fillColor);
        cairo_fill(cr);
    }
    if (style != kDrawFilled)
    {
        // The stroke lies inside the rectangle, as the classic library draws frames.
        const double inset = lineWidth / 2.0;
        cairo_rectangle(cr, rect.left + inset, rect.top + inset, rect.getWidth() - lineWidth,
                        rect.getHeight() - lineWidth);
        cairo_set_line_width(cr, lineWidth);
        applyColor(frameColor);
        cairo_stroke(cr);
    }
}

double CDrawContext::getStringWidth(const char* text)
{
    if (!text) return 0.0;
    applyFont();
    cairo_text_extents_t extents;
    cairo_text_extents(cr, spatara::validUtf8(text).c_str(), &extents);
    return extents.x_advance;
}

void CDrawContext::drawString(const char* text, const CRect& rect, CHoriTxtAlign align, bool antialias)
{
    if (!text || !*text) return;
    // Cairo stops drawing anything on this context after one invalid string: names from old files or
    // other machines are drawn with replacement characters instead.
    const std::string shown = spatara::validUtf8(text);
    cairo_save(cr);
    applyFont();
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, antialias ? CAIRO_ANTIALIAS_GRAY : CAIRO_ANTIALIAS_NONE);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_ON);
    cairo_set_font_options(cr, options);
    cairo_font_options_destroy(options);

    cairo_text_extents_t extents;
    cairo_text_extents(cr, shown.c_str(), &extents);
    cairo_font_extents_t fontExtents;
    cairo_font_extents(cr, &fontExtents);

    double x = rect.left;
    if (align == kCenterText)
        x = rect.left + (rect.getWidth() - extents.x_advance) / 2.0;
    else if (align == kRightText)
        x = rect.right - extents.x_advance;
    // Baseline so that the font's ascent and descent sit centred in the rectangle, on a whole pixel.
    const double baseline = static_cast<int>(
        rect.top + (rect.getHeight() + fontExtents.ascent - fontExtents.descent) / 2.0 + 0.5);

    cairo_rectangle(cr, rect.left, rect.top, rect.getWidth(), rect.getHeight());
    cairo_clip(cr);
    applyColor(fontColor);
    cairo_move_to(cr, static_cast<int>(x + 0.5), baseline);
    cairo_show_text(cr, shown.c_str());
    if (fontStyle & kUnderlineFace)
    {
        cairo_move_to(cr, static_cast<int>(x + 0.5), baseline + 1.5);
        cairo_rel_line_to(cr, extents.x_advance, 0);
        cairo_set_line_width(cr, 1.0);
        cairo_stroke(cr);
    }
    cairo_restore(cr);
}

void CDrawContext::drawBitmap(CBitmap* bitmap, const CRect& rect, const CPoint& offset, float alpha)
{
    cairo_surface_t* surface = bitmap ? bitmap->getSurface(scale) : nullptr;
    if (!surface || rect.isEmpty()) return;
    cairo_save(cr);
    cairo_rectangle(cr, rect.left, rect.top, rect.getWidth(), rect.getHeight());
    cairo_clip(cr);
    cairo_set_source_surface(cr, surface, rect.left - offset.x, rect.top - offset.y);
    // Whole-pixel placement: nearest keeps bitmap edges sharp.
    cairo_pattern_set_filter(cairo_get_source(cr), CAIRO_FILTER_NEAREST);
    cairo_paint_with_alpha(cr, alpha * globalAlpha);
    cairo_restore(cr);
}
