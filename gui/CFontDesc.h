// A font by family name, pixel size and style; the named fonts map the classic sizes onto DejaVu Sans.
#pragma once

#include <string>

enum CTxtFace
{
    kNormalFace = 0,
    kBoldFace = 1 << 0,
    kItalicFace = 1 << 1,
    kUnderlineFace = 1 << 2,
};

class CFontDesc
{
  public:
    CFontDesc(std::string name, double size, int style = kNormalFace)
        : name(std::move(name)), size(size), style(style)
    {
    }

    const std::string& getName() const { return name; }
    double getSize() const { return size; }
    int getStyle() const { return style; }
    void setSize(double newSize) { size = newSize; }
    void setStyle(int newStyle) { style = newStyle; }

  private:
    std::string name;
    double size;
    int style;
};

using CFontRef = const CFontDesc*;

// fontconfig resolves "sans-serif" to DejaVu Sans on the systems we ship for; sizes are in pixels.
extern const CFontRef kSystemFont;          // 12 px
extern const CFontRef kNormalFontVeryBig;   // 18 px
extern const CFontRef kNormalFontBig;       // 14 px
extern const CFontRef kNormalFont;          // 12 px
extern const CFontRef kNormalFontSmall;     // 11 px
extern const CFontRef kNormalFontSmaller;   // 10 px
extern const CFontRef kNormalFontVerySmall; // 9 px
extern const CFontRef kSymbolFont;          // 12 px
