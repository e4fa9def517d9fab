// A host-like parent window on the X server of the tests, with the few X queries the editor tests need.
#pragma once

#include <string>
#include <vector>

typedef struct _XDisplay Display;

class X11TestWindow
{
  public:
    // Opens $DISPLAY and maps a parent window of width × height at (x, y) of the screen, by default its
    // top-left corner.
    X11TestWindow(int width, int height, int x = 0, int y = 0);
    ~X11TestWindow();
    X11TestWindow(const X11TestWindow&) = delete;
    X11TestWindow& operator=(const X11TestWindow&) = delete;

    bool isOpen() const { return display != nullptr; }
    unsigned long getWindow() const { return window; }

    struct Geometry
    {
        int x, y, width, height;
        bool mapped;
    };
    // The child windows of the parent (the embedded editor) with their geometry.
    std::vector<Geometry> children();

    // Runs xdotool with these arguments (e.g. "mousemove 80 160 click 1"); answers whether it succeeded.
    static bool xdotool(const std::string& arguments);
    // Screenshot of the whole screen with ImageMagick's import, cropped to the parent's area with convert.
    bool screenshot(const std::string& path);

  private:
    Display* display = nullptr;
    unsigned long window = 0;
    int width;
    int height;
    int x;
    int y;
};
