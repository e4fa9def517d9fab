#include "CColor.h"
#include "CRect.h"

#include <gtest/gtest.h>

TEST(CRect, WidthHeightAndEmptiness)
{
    const CRect r(10, 20, 40, 30);
    EXPECT_EQ(r.getWidth(), 30);
    EXPECT_EQ(r.getHeight(), 10);
    EXPECT_FALSE(r.isEmpty());
    EXPECT_TRUE(CRect(5, 5, 5, 9).isEmpty());
    EXPECT_TRUE(CRect(5, 5, 9, 5).isEmpty());
}

TEST(CRect, PointInsideCountsLeftTopButNotRightBottom)
{
    const CRect r(10, 10, 20, 20);
    EXPECT_TRUE(r.pointInside(CPoint(10, 10)));
    EXPECT_TRUE(r.pointInside(CPoint(19.5, 19.5)));
    EXPECT_FALSE(r.pointInside(CPoint(20, 15)));
    EXPECT_FALSE(r.pointInside(CPoint(15, 20)));
    EXPECT_FALSE(r.pointInside(CPoint(9.9, 15)));
}

TEST(CRect, BoundKeepsTheSharedPartOrNothing)
{
    CRect a(0, 0, 100, 50);
    a.bound(CRect(40, 10, 200, 30));
    EXPECT_EQ(a, CRect(40, 10, 100, 30));
    CRect b(0, 0, 10, 10);
    b.bound(CRect(20, 20, 30, 30));
    EXPECT_TRUE(b.isEmpty());
}

TEST(CRect, UniteIgnoresEmptyRectangles)
{
    CRect a;
    a.unite(CRect(5, 5, 10, 10));
    EXPECT_EQ(a, CRect(5, 5, 10, 10));
    a.unite(CRect(0, 8, 6, 20));
    EXPECT_EQ(a, CRect(0, 5, 10, 20));
    a.unite(CRect(50, 50, 50, 60));
    EXPECT_EQ(a, CRect(0, 5, 10, 20));
}

TEST(CRect, TouchingEdgesCountAsTouchButNotAsOverlap)
{
    const CRect r(10, 10, 20, 20);
    EXPECT_TRUE(r.touches(CRect(20, 10, 30, 20)));
    EXPECT_TRUE(r.touches(CRect(0, 0, 10, 10)));
    EXPECT_FALSE(r.touches(CRect(21, 10, 30, 20)));
    EXPECT_FALSE(r.rectOverlap(CRect(20, 10, 30, 20)));
    EXPECT_TRUE(r.rectOverlap(CRect(19, 19, 30, 30)));
}

TEST(CRect, OffsetMoveToAndInset)
{
    CRect r(1, 2, 11, 22);
    r.offset(5, -2);
    EXPECT_EQ(r, CRect(6, 0, 16, 20));
    r.moveTo(0, 0);
    EXPECT_EQ(r, CRect(0, 0, 10, 20));
    r.inset(2, 3);
    EXPECT_EQ(r, CRect(2, 3, 8, 17));
    EXPECT_EQ(CRect(CPoint(3, 4), CPoint(10, 20)), CRect(3, 4, 13, 24));
}

TEST(CColor, NamedColoursHaveTheirClassicValues)
{
    EXPECT_EQ(kBlackCColor, MakeCColor(0, 0, 0, 255));
    EXPECT_EQ(kWhiteCColor, MakeCColor(255, 255, 255, 255));
    EXPECT_EQ(kGreyCColor, MakeCColor(127, 127, 127, 255));
    EXPECT_EQ(kRedCColor, MakeCColor(255, 0, 0, 255));
    EXPECT_EQ(kTransparentCColor.alpha, 0);
}
