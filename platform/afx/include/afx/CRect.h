#pragma once
// A rectangle with the framework's conveniences over RECT.
#include <windows.h>

#include "afx/CPoint.h"
#include "afx/CSize.h"

class CRect : public RECT {
public:
    CRect();
    CRect(int l, int t, int r, int b);
    CRect(const RECT& srcRect);

    int Width() const;
    int Height() const;
    CSize Size() const;
    CPoint TopLeft() const;
    CPoint BottomRight() const;
    BOOL PtInRect(POINT point) const;
    BOOL IsRectEmpty() const;
    // Widens the rectangle by x on the left and right and by y on the top and bottom.
    void InflateRect(int x, int y);
    void OffsetRect(int x, int y);

    operator LPRECT();
    operator LPCRECT() const;
    bool operator==(const RECT& other) const;
    bool operator!=(const RECT& other) const;
};
