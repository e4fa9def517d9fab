#include "CFontDesc.h"

namespace
{
const CFontDesc systemFont{"sans-serif", 12};
const CFontDesc normalFontVeryBig{"sans-serif", 18};
const CFontDesc normalFontBig{"sans-serif", 14};
const CFontDesc normalFont{"sans-serif", 12};
const CFontDesc normalFontSmall{"sans-serif", 11};
const CFontDesc normalFontSmaller{"sans-serif", 10};
const CFontDesc normalFontVerySmall{"sans-serif", 9};
const CFontDesc symbolFont{"DejaVu Sans", 12};
} // namespace

const CFontRef kSystemFont = &systemFont;
const CFontRef kNormalFontVeryBig = &normalFontVeryBig;
const CFontRef kNormalFontBig = &normalFontBig;
const CFontRef kNormalFont = &normalFont;
const CFontRef kNormalFontSmall = &normalFontSmall;
const CFontRef kNormalFontSmaller = &normalFontSmaller;
const CFontRef kNormalFontVerySmall = &normalFontVerySmall;
const CFontRef kSymbolFont = &symbolFont;
