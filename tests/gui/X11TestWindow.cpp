#include "X11TestWindow.h"

#include <X11/Xlib.h>
#include <cstdio>
#include <cstdlib>

X11TestWindow::X11TestWindow(int width, int height, int x, int y) : width(width), height(height), x(x), y(y)
{
    display = XOpenDisplay(nullptr);
    if (!display) return;
    const int screen = DefaultScreen(display);
    window = XCreateSimpleWindow(display, RootWindow(display, screen), x, y, static_cast<unsigned>(width),
                                 static_cast<unsigned>(height), 0, BlackPixel(display, screen),
                                 BlackPixel(display, screen));
    XMapWindow(display, window);
    XSync(display, False);
}

X11TestWindow::~X11TestWindow()
{
    if (!display) return;
    XDestroyWindow(display, window);
    XCloseDisplay(display);
}

std::vector<X11TestWindow::Geometry> X11TestWindow::children()
{
    std::vector<Geometry> result;
    XSync(display, False);
    ::Window root = 0, parent = 0;
    ::Window* list = nullptr;
    unsigned count = 0;
    if (!XQueryTree(display, window, &root, &parent, &list, &count)) return result;
    for (unsigned i = 0; i < count; ++i)
    {
        XWindowAttributes attributes;
        if (XGetWindowAttributes(display, list[i], &attributes))
            result.push_back({attributes.x, attributes.y, attributes.width, attributes.height,
                              attributes.map_state == IsViewable});
    }
    if (list) XFree(list);
    return result;
}

bool X11TestWindow::xdotool(const std::string& arguments)
{
    return std::system(("xdotool " + arguments).c_str()) == 0;
}

bool X11TestWindow::screenshot(const std::string& path)
{
    const std::string full = path + ".full.png";
    if (std::system(("/usr/bin/import -window root '" + full + "'").c_str()) != 0) return false;
    const std::string crop = std::to_string(width) + "x" + std::to_string(height) + "+" + std::to_string(x) +
                             "+" + std::to_string(y);
    const bool ok =
        std::system(("/usr/bin/convert '" + full + "' -crop " + crop + " +repage '" + path + "'").c_str()) ==
        0;
    std::remove(full.c_str());
    return ok;
}
