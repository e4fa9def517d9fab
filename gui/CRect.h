// An axis-aligned rectangle: left and top inside, right and bottom one past the last pixel.
#pragma once

#include "CPoint.h"

struct CRect
{
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    constexpr CRect() = default;
    constexpr CRect(double left, double top, double right, double bottom)
        : left(left), top(top), right(right), bottom(bottom)
    {
    }
    CRect(const CPoint& origin, const CPoint& size);

    double getWidth() const { return right - left; }
    double getHeight() const { return bottom - top; }
    CPoint getTopLeft() const { return {left, top}; }
    CPoint getSize() const { return {getWidth(), getHeight()}; }
    bool isEmpty() const { return !(right > left && bottom > top); }

    CRect& offset(double dx, double dy);
    CRect& moveTo(double x, double y);
    CRect& setWidth(double width);
    CRect& setHeight(double height);
    CRect& inset(double dx, double dy);
    // Becomes the part shared with r (empty when they do not overlap).
    CRect& bound(const CRect& r);
    // Becomes the smallest rectangle holding both; an empty rectangle adds nothing.
    CRect& unite(const CRect& r);
    // Whether the point lies inside (left/top edges in, right/bottom edges out).
    bool pointInside(const CPoint& p) const;
    // Whether the two share at least an edge: touching counts, as repaints of neighbours need it.
    bool touches(const CRect& r) const;
    // Whether they share an area of at least one pixel.
    bool rectOverlap(const CRect& r) const;

    constexpr bool operator==(const CRect&) const = default;
};
