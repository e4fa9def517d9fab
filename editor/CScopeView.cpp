#include "CScopeView.h"

#include "CDrawContext.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace
{
const CColor kScreen = MakeCColor(20, 22, 26);
const CColor kGuide = MakeCColor(62, 68, 78);
const CColor kLabel = MakeCColor(160, 168, 178);
const CColor kTrace = MakeCColor(86, 170, 232);
const CColor kPositive = MakeCColor(96, 200, 120);
const CColor kNegative = MakeCColor(232, 96, 80);
constexpr double kSquare = 120.0;
constexpr double kMargin = 8.0;
} // namespace

CScopeView::CScopeView(const CRect& size, std::function<void()> closed)
    : CView(size), closed(std::move(closed))
{
}

CRect CScopeView::goniometerRect() const
{
    const double top = size.top + (size.getHeight() - kSquare) / 2.0;
    return CRect(size.left + kMargin, top, size.left + kMargin + kSquare, top + kSquare);
}

void CScopeView::addPoints(const float* pairs, uint32_t points)
{
    for (uint32_t i = 0; i < points; ++i)
    {
        trail[2 * newest] = pairs[2 * i];
        trail[2 * newest + 1] = pairs[2 * i + 1];
        newest = (newest + 1) % kTrail;
        count = std::min(count + 1, kTrail);
    }
    setDirty();
}

void CScopeView::setCorrelation(float value)
{
    if (value == correlation) return;
    correlation = value;
    setDirty();
}

void CScopeView::draw(CDrawContext* context)
{
    context->setFillColor(kScreen);
    context->fillRect(size);
    context->setFrameColor(kGuide);
    context->setLineWidth(1.0);
    context->drawRect(size);

    // The goniometer: the mid axis upright, the side across, the two channels on the diagonals.
    const CRect square = goniometerRect();
    const double cx = (square.left + square.right) / 2.0, cy = (square.top + square.bottom) / 2.0;
    const double radius = kSquare / 2.0 - 2.0;
    context->drawLine(CPoint(cx, square.top), CPoint(cx, square.bottom));
    context->drawLine(CPoint(square.left, cy), CPoint(square.right, cy));
    context->drawLine(CPoint(square.left + 12, square.top + 12),
                      CPoint(square.right - 12, square.bottom - 12));
    context->drawLine(CPoint(square.right - 12, square.top + 12),
                      CPoint(square.left + 12, square.bottom - 12));
    context->setFont(kNormalFontSmaller);
    context->setFontColor(kLabel);
    context->drawString("M", CRect(cx - 10, square.top - 2, cx - 2, square.top + 8), kRightText);
    context->drawString("L", CRect(square.left, square.top, square.left + 10, square.top + 10), kLeftText);
    context->drawString("R", CRect(square.right - 10, square.top, square.right, square.top + 10), kRightText);
    context->drawString("S", CRect(square.right - 10, cy + 1, square.right, cy + 11), kRightText);

    // Oldest first, the newest brightest on top. Left alone leans to the upper left, right alone to the
    // upper right; a full-scale mono signal reaches the top and bottom.
    constexpr double kHalfRoot = 0.70710678118654752;
    for (uint32_t age = count; age-- > 0;)
    {
        const uint32_t at = (newest + kTrail - 1 - age) % kTrail;
        const double left = trail[2 * at], right = trail[2 * at + 1];
        const double mid = (left + right) * kHalfRoot, side = (right - left) * kHalfRoot;
        const double x = std::clamp(cx + side * radius, square.left, square.right - 1.0);
        const double y = std::clamp(cy - mid * radius, square.top, square.bottom - 1.0);
        CColor dot = kTrace;
        dot.alpha = static_cast<uint8_t>(255.0 * (1.0 - 0.85 * age / kTrail));
        context->setFillColor(dot);
        context->fillRect(CRect(std::floor(x), std::floor(y), std::floor(x) + 1.0, std::floor(y) + 1.0));
    }

    // The correlation: a bar from the middle of a track that runs from -1 to +1, and its value.
    const double left = square.right + 16.0, right = size.right - 10.0;
    const double middle = (left + right) / 2.0, barTop = cy - 4.0;
    context->setFontColor(kLabel);
    context->drawString("correlation", CRect(left, barTop - 26, right, barTop - 14), kCenterText);
    context->setFillColor(kGuide);
    context->fillRect(CRect(left, barTop, right, barTop + 8.0));
    const double end =
        middle + std::clamp(static_cast<double>(correlation), -1.0, 1.0) * (right - left) / 2.0;
    context->setFillColor(correlation >= 0.0f ? kPositive : kNegative);
    context->fillRect(CRect(std::min(middle, end), barTop, std::max(middle, end), barTop + 8.0));
    context->setFrameColor(kLabel);
    context->drawLine(CPoint(middle, barTop - 2.0), CPoint(middle, barTop + 10.0));
    context->drawString("-1", CRect(left, barTop + 10, left + 20, barTop + 20), kLeftText);
    context->drawString("+1", CRect(right - 20, barTop + 10, right, barTop + 20), kRightText);
    char text[16];
    std::snprintf(text, sizeof(text), "%+.2f", static_cast<double>(correlation));
    context->setFont(kNormalFontSmall);
    context->setFontColor(MakeCColor(232, 236, 240));
    context->drawString(text, CRect(left, barTop - 14, right, barTop - 2), kCenterText);
    setDirty(false);
}

CMouseEventResult CScopeView::onMouseDown(CPoint&, const CButtonState& buttons)
{
    if (!(buttons & kLButton)) return kMouseEventNotHandled;
    if (closed) closed();
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}
