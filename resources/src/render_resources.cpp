// Draws the editor's bitmaps at scale 1 and writes them as resources/bmpNNNNN.png, which are committed and
// embedded into the plug-in. Regenerate with: cmake --build build --target spatara-resources
#include "ResourceArt.h"

#include <cairo.h>

#include <cstdio>
#include <string>

int main(int argc, char** argv)
{
    const std::string directory = argc > 1 ? argv[1] : ".";
    bool ok = true;
    for (const int32_t number : spatara::drawnResourceNumbers())
    {
        cairo_surface_t* surface = spatara::drawResourceBitmap(number, 1.0);
        char name[32];
        std::snprintf(name, sizeof(name), "/bmp%05d.png", number);
        const std::string path = directory + name;
        const bool written = cairo_surface_write_to_png(surface, path.c_str()) == CAIRO_STATUS_SUCCESS;
        std::printf("%s %s\n", written ? "wrote" : "FAILED", path.c_str());
        ok = ok && written;
        cairo_surface_destroy(surface);
    }
    return ok ? 0 : 1;
}
