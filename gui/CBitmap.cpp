#include "CBitmap.h"

#include "CDrawContext.h"
#include "EmbeddedResource.h"
#include "ResourceArt.h"

#include <cairo.h>
#include <cstring>

namespace
{
struct ReadCursor
{
    const unsigned char* data;
    size_t remaining;
};

cairo_status_t readFromMemory(void* closure, unsigned char* out, unsigned int length)
{
    auto* cursor = static_cast<ReadCursor*>(closure);
    if (length > cursor->remaining) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(out, cursor->data, length);
    cursor->data += length;
    cursor->remaining -= length;
    return CAIRO_STATUS_SUCCESS;
}
} // namespace

CBitmap::CBitmap(int32_t resourceNumber) : resourceNumber(resourceNumber)
{
    const EmbeddedResource* resource = spatara::findEmbeddedResource(resourceNumber);
    if (!resource) return;
    ReadCursor cursor{resource->data, resource->size};
    cairo_surface_t* decoded = cairo_image_surface_create_from_png_stream(readFromMemory, &cursor);
    if (cairo_surface_status(decoded) != CAIRO_STATUS_SUCCESS)
    {
        // A damaged resource behaves like a missing one: zero size, nothing drawn.
        cairo_surface_destroy(decoded);
        return;
    }
    surface = decoded;
    width = cairo_image_surface_get_width(surface);
    height = cairo_image_surface_get_height(surface);
}

CBitmap::~CBitmap()
{
    if (scaledSurface) cairo_surface_destroy(scaledSurface);
    if (surface) cairo_surface_destroy(surface);
}

cairo_surface_t* CBitmap::getSurface(double scale)
{
    if (scale == 1.0 || !surface) return surface;
    if (!scaledSurface || scaledSurfaceScale != scale)
    {
        if (scaledSurface) cairo_surface_destroy(scaledSurface);
        scaledSurface = spatara::drawResourceBitmap(resourceNumber, scale);
        scaledSurfaceScale = scale;
    }
    return scaledSurface ? scaledSurface : surface;
}

void CBitmap::draw(CDrawContext* context, const CRect& rect, const CPoint& offset, float alpha)
{
    if (context) context->drawBitmap(this, rect, offset, alpha);
}
