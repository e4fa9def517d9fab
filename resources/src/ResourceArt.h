// The editor's bitmaps, drawn from their shapes with Cairo at any scale: at 1 they are the committed
// resources/bmpNNNNN.png, at 2 the same pictures drawn with twice the pixels, never enlarged.
#pragma once

#include <cstdint>
#include <vector>

typedef struct _cairo_surface cairo_surface_t;

namespace spatara
{
// The resource numbers that have a drawing.
const std::vector<int32_t>& drawnResourceNumbers();
// The bitmap of that number drawn at scale: an image of its size times the scale (rounded up) whose device
// scale is the scale, so it draws at its size in units. The caller destroys it; null for a number without a
// drawing.
cairo_surface_t* drawResourceBitmap(int32_t number, double scale);
} // namespace spatara
