// A Cairo image surface with a draw context on it, and pixel reading for the drawing tests.
#pragma once

#include "CColor.h"
#include "CDrawContext.h"

#include <cairo.h>

class TestSurface
{
  public:
    TestSurface(int width, int height)
        : surface(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height)), cr(cairo_create(surface)),
          context(new CDrawContext(cr))
    {
    }
    ~TestSurface()
    {
        context->forget();
        cairo_destroy(cr);
        cairo_surface_destroy(surface);
    }
    TestSurface(const TestSurface&) = delete;
    TestSurface& operator=(const TestSurface&) = delete;

    CDrawContext* getContext() const { return context; }
    cairo_surface_t* getSurface() const { return surface; }

    // Fills everything with one colour (the clip is ignored).
    void clear(const CColor& color)
    {
        cairo_save(cr);
        cairo_reset_clip(cr);
        cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
        cairo_set_source_rgba(cr, color.red / 255.0, color.green / 255.0, color.blue / 255.0,
                              color.alpha / 255.0);
        cairo_paint(cr);
        cairo_restore(cr);
    }

    // The pixel at (x, y), un-premultiplied.
    CColor pixel(int x, int y) const { return pixelOf(surface, x, y); }

    static CColor pixelOf(cairo_surface_t* image, int x, int y)
    {
        cairo_surface_flush(image);
        const unsigned char* data = cairo_image_surface_get_data(image);
        const int stride = cairo_image_surface_get_stride(image);
        const uint32_t argb = *reinterpret_cast<const uint32_t*>(data + y * stride + x * 4);
        const uint8_t a = argb >> 24;
        auto channel = [a](uint32_t premultiplied)
        { return static_cast<uint8_t>(a ? (premultiplied * 255 + a / 2) / a : 0); };
        return CColor{channel((argb >> 16) & 0xFF), channel((argb >> 8) & 0xFF), channel(argb & 0xFF), a};
    }

  private:
    cairo_surface_t* surface;
    cairo_t* cr;
    CDrawContext* context;
};
