#include "CRect.h"

#include <algorithm>

CRect::CRect(const CPoint& origin, const CPoint& size)
    : left(origin.x), top(origin.y), right(origin.x + size.x), bottom(origin.y + size.y)
{
}

CRect& CRect::offset(double dx, double dy)
{
    left += dx;
    right += dx;
    top += dy;
    bottom += dy;
    return *this;
}

CRect& CRect::moveTo(double x, double y)
{
    return offset(x - left, y - top);
}

CRect& CRect::setWidth(double width)
{
    right = left + width;
    return *this;
}

CRect& CRect::setHeight(double height)
{
    bottom = top + height;
    return *this;
}

CRect& CRect::inset(double dx, double dy)
{
    left += dx;
    right -= dx;
    top += dy;
    bottom -= dy;
    return *this;
}

CRect& CRect::bound(const CRect& r)
{
    left = std::max(left, r.left);
    top = std::max(top, r.top);
    right = std::max(left, std::min(right, r.right));
    bottom = std::max(top, std::min(bottom, r.bottom));
    return *this;
}

CRect& CRect::unite(const CRect& r)
{
    if (r.isEmpty()) return *this;
    if (isEmpty()) return *this = r;
    left = std::min(left, r.left);
    top = std::min(top, r.top);
    right = std::max(right, r.right);
    bottom = std::max(bottom, r.bottom);
    return *this;
}

bool CRect::pointInside(const CPoint& p) const
{
    return p.x >= left && p.x < right && p.y >= top && p.y < bottom;
}

bool CRect::touches(const CRect& r) const
{
    return !(r.right < left || r.left > right || r.bottom < top || r.top > bottom);
}

bool CRect::rectOverlap(const CRect& r) const
{
    return r.right > left && r.left < right && r.bottom > top && r.top < bottom;
}
