// A point in view coordinates (pixels, y grows downwards).
#pragma once

struct CPoint
{
    double x = 0.0;
    double y = 0.0;

    constexpr CPoint() = default;
    constexpr CPoint(double x, double y) : x(x), y(y) {}

    CPoint& offset(double dx, double dy)
    {
        x += dx;
        y += dy;
        return *this;
    }
    constexpr bool operator==(const CPoint&) const = default;
};
