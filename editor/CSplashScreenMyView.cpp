#include "CSplashScreenMyView.h"

#include "CBitmap.h"
#include "CDrawContext.h"
#include "CFrame.h"
#include "CSplashScreen.h"
#include "SpataraVersion.h"

const CColor kDarkBlueCColor = MakeCColor(45, 45, 120, 255);
const CColor kDarkGreyCColor = MakeCColor(60, 60, 60, 255);

namespace
{
constexpr double kLineHeight = 15.0;
constexpr double kLineStep = 17.0;
// The credit line sits apart from the three product lines.
constexpr double kCreditStep = 37.0;
} // namespace

CSplashScreenMyView::CSplashScreenMyView(const CRect& size, CSplashScreen* splash, const CPoint& textOffset)
    : CControl(size, nullptr, 0, splash ? splash->getBackground() : nullptr), splash(splash),
      textOffset(textOffset)
{
}

void CSplashScreenMyView::draw(CDrawContext* context)
{
    if (background) background->draw(context, size, CPoint(0, 0), 1.0f);
    CRect box(size.left + textOffset.x, size.top + textOffset.y, size.left + textOffset.x + size.getWidth(),
              size.top + textOffset.y + kLineHeight);
    context->setFont(kNormalFontSmaller);
    context->setFontColor(kDarkBlueCColor);
    context->drawString("ZEV Spatara   v." SPATARA_VERSION_STRING, box, kCenterText, true);
    box.offset(0, kLineStep);
    context->drawString("\xC2\xA9 2026 ZEV Sound Design, all rights reserved", box, kCenterText, true);
    box.offset(0, kLineStep);
    context->drawString("www.zev-sound.example", box, kCenterText, true);
    box.offset(0, kCreditStep);
    context->setFont(kNormalFontVerySmall);
    context->setFontColor(kDarkGreyCColor);
    context->drawString("VST PlugIn Technology by Steinberg", box, kCenterText, true);
    setDirty(false);
}

bool CSplashScreenMyView::hitTest(const CPoint&, const CButtonState&)
{
    return true;
}

CMouseEventResult CSplashScreenMyView::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    CFrame* frame = getFrame();
    if (splash) splash->unSplash();
    if (frame)
    {
        frame->setDirty(true);
        // Takes this screen out of the frame without freeing it; it frees itself below.
        frame->setModalView(nullptr);
    }
    forget();
    return kMouseEventHandled;
}
