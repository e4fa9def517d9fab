#include "CAlertView.h"

#include "CDrawContext.h"
#include "CFrame.h"
#include "SharedPointer.h"
#include "platform/PlatformWindow.h"

#include <cstdio>
#include <sstream>
#include <unistd.h>

namespace
{
const CColor kShade = MakeCColor(0, 0, 0, 170);
const CColor kBox = MakeCColor(189, 207, 218);
const CColor kBoxFrame = MakeCColor(36, 36, 32);
const CColor kText = MakeCColor(36, 36, 32);
const CColor kButton = MakeCColor(36, 36, 32);
const CColor kButtonText = MakeCColor(189, 207, 218);
constexpr double kLineHeight = 14.0;
constexpr double kButtonWidth = 48.0;
constexpr double kButtonHeight = 18.0;
} // namespace

CAlertView::CAlertView(const CRect& size, const char* message) : CView(size)
{
    std::istringstream text(message ? message : "");
    for (std::string line; std::getline(text, line);)
        lines.push_back(line);
}

CRect CAlertView::boxRect() const
{
    const double height = 16.0 + lines.size() * kLineHeight + 8.0 + kButtonHeight + 10.0;
    const double middle = (size.top + size.bottom) / 2.0;
    CRect box(size.left + 12, middle - height / 2.0, size.right - 12, middle + height / 2.0);
    return box;
}

CRect CAlertView::okButtonRect() const
{
    const CRect box = boxRect();
    const double centre = (box.left + box.right) / 2.0;
    return CRect(centre - kButtonWidth / 2.0, box.bottom - 10.0 - kButtonHeight, centre + kButtonWidth / 2.0,
                 box.bottom - 10.0);
}

void CAlertView::wrapLines(CDrawContext* context, double width)
{
    // Long lines (a path, usually) are broken after a "/" or a blank that still fits, else anywhere.
    std::vector<std::string> wrapped;
    for (std::string rest : lines)
    {
        while (context->getStringWidth(rest.c_str()) > width && rest.size() > 1)
        {
            size_t cut = rest.size() - 1;
            while (cut > 1 && context->getStringWidth(rest.substr(0, cut).c_str()) > width)
                --cut;
            const size_t separator = rest.find_last_of("/ ", cut - 1);
            if (separator != std::string::npos && separator > 0) cut = separator + 1;
            wrapped.push_back(rest.substr(0, cut));
            rest.erase(0, cut);
        }
        wrapped.push_back(rest);
    }
    lines = std::move(wrapped);
}

void CAlertView::draw(CDrawContext* context)
{
    context->setFont(kNormalFontSmall);
    if (!wrapped)
    {
        wrapLines(context, boxRect().getWidth() - 16.0);
        wrapped = true;
    }
    context->setFillColor(kShade);
    context->fillRect(size);
    const CRect box = boxRect();
    context->setFillColor(kBox);
    context->setFrameColor(kBoxFrame);
    context->setLineWidth(1.0);
    context->drawRect(box, kDrawFilledAndStroked);

    context->setFontColor(kText);
    double top = box.top + 10.0;
    for (const std::string& line : lines)
    {
        context->drawString(line.c_str(), CRect(box.left + 8, top, box.right - 8, top + kLineHeight));
        top += kLineHeight;
    }
    const CRect button = okButtonRect();
    context->setFillColor(kButton);
    context->fillRect(button);
    context->setFontColor(kButtonText);
    context->drawString("OK", button);
    setDirty(false);
}

bool CAlertView::hitTest(const CPoint&, const CButtonState&)
{
    return true;
}

CMouseEventResult CAlertView::onMouseDown(CPoint& where, const CButtonState& buttons)
{
    if ((buttons & kLButton) && okButtonRect().pointInside(where)) dismissed = true;
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

int32_t CAlertView::onKeyDown(VstKeyCode& keyCode)
{
    if (keyCode.virt == VKEY_RETURN || keyCode.virt == VKEY_ENTER || keyCode.virt == VKEY_ESCAPE)
        dismissed = true;
    // While the alert is up no key reaches the host.
    return 1;
}

void CAlertView::showModal(CFrame* frame, const char* message)
{
    PlatformWindow* window = frame ? frame->getPlatformWindow() : nullptr;
    if (!window)
    {
        std::fprintf(stderr, "ZEV Spatara: %s\n", message);
        return;
    }
    // Ours for the whole wait, even if the frame closes meanwhile.
    const auto alert = owned(new CAlertView(frame->getViewSize(), message));
    if (!frame->setModalView(alert.get()))
    {
        std::fprintf(stderr, "ZEV Spatara: %s\n", message);
        return;
    }
    alert->remember(); // the frame's, as its modal view: closing the frame lets it go
    frame->setFocusView(alert.get());
    alert->invalid();
    // The host's UI thread waits here, as it would for any message box; the window keeps running.
    while (!alert->isDismissed() && frame->getPlatformWindow())
    {
        frame->idle();
        window->idle();
        usleep(10000);
    }
    if (frame->getModalView() == alert.get())
    {
        frame->setFocusView(nullptr);
        frame->setModalView(nullptr);
        alert->forget(); // the frame's, which taking the view out leaves to us
        frame->invalid();
    }
}
