#include "afx/CPoint.h"

CPoint::CPoint() : POINT{0, 0} {}

CPoint::CPoint(int initX, int initY) : POINT{initX, initY} {}

CPoint::CPoint(POINT initPt) : POINT(initPt) {}

CPoint::CPoint(LPARAM dwPoint)
    : POINT{static_cast<short>(LOWORD(dwPoint)), static_cast<short>(HIWORD(dwPoint))}
{
}

bool CPoint::operator==(POINT other) const
{
    return x == other.x && y == other.y;
}

bool CPoint::operator!=(POINT other) const
{
    return !(*this == other);
}
