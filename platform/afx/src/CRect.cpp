#include "afx/CRect.h"

CRect::CRect() : RECT{0, 0, 0, 0} {}

CRect::CRect(int l, int t, int r, int b) : RECT{l, t, r, b} {}

CRect::CRect(const RECT& srcRect) : RECT(srcRect) {}

int CRect::Width() const
{
    return right - left;
}

int CRect::Height() const
{
    return bottom - top;
}

CSize CRect::Size() const
{
    return CSize(Width(), Height());
}

CPoint CRect::TopLeft() const
{
    return CPoint(left, top);
}

CPoint CRect::BottomRight() const
{
    return CPoint(right, bottom);
}

BOOL CRect::PtInRect(POINT point) const
{
    return ::PtInRect(this, point);
}

BOOL CRect::IsRectEmpty() const
{
    return ::IsRectEmpty(this);
}

void CRect::InflateRect(int x, int y)
{
    ::InflateRect(this, x, y);
}

void CRect::OffsetRect(int x, int y)
{
    ::OffsetRect(this, x, y);
}

CRect::operator LPRECT()
{
    return this;
}

CRect::operator LPCRECT() const
{
    return this;
}

bool CRect::operator==(const RECT& other) const
{
    return ::EqualRect(this, &other) != FALSE;
}

bool CRect::operator!=(const RECT& other) const
{
    return !(*this == other);
}
