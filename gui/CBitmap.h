// A bitmap loaded from the embedded PNG of a resource number; a missing one has zero size.
#pragma once

#include "CBaseObject.h"
#include "CPoint.h"
#include "CRect.h"

#include <cstdint>

typedef struct _cairo_surface cairo_surface_t;
class CDrawContext;

class CBitmap : public CBaseObject
{
  public:
    explicit CBitmap(int32_t resourceNumber);

    int32_t getResourceNumber() const { return resourceNumber; }
    double getWidth() const { return width; }
    double getHeight() const { return height; }
    bool isLoaded() const { return surface != nullptr; }
    // The decoded image (ARGB32), null when the resource was missing or undecodable.
    cairo_surface_t* getSurface() const { return surface; }
    // The image for a window of this scale: the decoded one at 1, else the bitmap drawn anew from its shapes
    // at that scale (its device scale set, so it draws at the bitmap's size). The last scale's drawing is
    // kept, one at a time; a bitmap without a drawing is enlarged from the decoded image.
    cairo_surface_t* getSurface(double scale);

    // Draws the part of the bitmap that starts at offset into rect, with the given opacity.
    void draw(CDrawContext* context, const CRect& rect, const CPoint& offset = CPoint(0, 0),
              float alpha = 1.0f);

  protected:
    ~CBitmap() override;

  private:
    int32_t resourceNumber;
    cairo_surface_t* surface = nullptr;
    cairo_surface_t* scaledSurface = nullptr;
    double scaledSurfaceScale = 1.0;
    double width = 0.0;
    double height = 0.0;
};
