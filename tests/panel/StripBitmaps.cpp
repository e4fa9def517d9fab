#include "StripBitmaps.h"

#include "EmbeddedResource.h"

#include <cairo.h>
#include <map>
#include <vector>

namespace
{
using Bytes = std::vector<unsigned char>;

cairo_status_t appendTo(void* closure, const unsigned char* data, unsigned int length)
{
    static_cast<Bytes*>(closure)->insert(static_cast<Bytes*>(closure)->end(), data, data + length);
    return CAIRO_STATUS_SUCCESS;
}

void fill(cairo_t* cr, int x, int y, int width, int height, const CColor& colour)
{
    cairo_set_source_rgb(cr, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0);
    cairo_rectangle(cr, x, y, width, height);
    cairo_fill(cr);
}

// A strip of images of imageHeight rows from (left, top); everything else in the leftover colour.
Bytes stripPng(int width, int height, int images, int imageHeight, int left = 0, int top = 0)
{
    cairo_surface_t* surface = cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height);
    cairo_t* cr = cairo_create(surface);
    fill(cr, 0, 0, width, height, StripBitmaps::imageColour(left || top ? 6 : 5));
    for (int k = 0; k < images; ++k)
        fill(cr, left, top + k * imageHeight, width - left, imageHeight, StripBitmaps::imageColour(k));
    cairo_destroy(cr);
    Bytes png;
    cairo_surface_write_to_png_stream(surface, appendTo, &png);
    cairo_surface_destroy(surface);
    return png;
}

const std::map<int32_t, EmbeddedResource>& table()
{
    static const Bytes button = stripPng(12, 42, 3, 14);
    static const Bytes rocker = stripPng(31, 70, 5, 14);
    static const Bytes hundred = stripPng(10, 100, 3, 33);
    static const Bytes offset = stripPng(24, 50, 3, 14, 12, 8);
    static const std::map<int32_t, EmbeddedResource> resources = {
        {StripBitmaps::kButtonStrip, {StripBitmaps::kButtonStrip, button.data(), button.size()}},
        {StripBitmaps::kRockerStrip, {StripBitmaps::kRockerStrip, rocker.data(), rocker.size()}},
        {StripBitmaps::kHundredPixelStrip,
         {StripBitmaps::kHundredPixelStrip, hundred.data(), hundred.size()}},
        {StripBitmaps::kOffsetStrip, {StripBitmaps::kOffsetStrip, offset.data(), offset.size()}},
    };
    return resources;
}
} // namespace

CColor StripBitmaps::imageColour(int k)
{
    static const CColor colours[] = {
        MakeCColor(200, 0, 0),   MakeCColor(0, 200, 0),  MakeCColor(0, 0, 200),    MakeCColor(200, 200, 0),
        MakeCColor(0, 200, 200), MakeCColor(90, 90, 90), MakeCColor(255, 255, 255)};
    return colours[k];
}

// This test program's resource table: it takes the place of the product's, which is not linked in.
const EmbeddedResource* spatara::findEmbeddedResource(int32_t number)
{
    const auto found = table().find(number);
    return found == table().end() ? nullptr : &found->second;
}
