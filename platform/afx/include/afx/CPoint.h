#pragma once
// A point with the framework's conveniences over POINT.
#include <windows.h>

class CPoint : public POINT {
public:
    CPoint();
    CPoint(int initX, int initY);
    CPoint(POINT initPt);
    // Client coordinates packed in a mouse message's lParam (signed 16-bit x and y).
    CPoint(LPARAM dwPoint);

    bool operator==(POINT other) const;
    bool operator!=(POINT other) const;
};
