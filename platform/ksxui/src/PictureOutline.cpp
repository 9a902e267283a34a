#include "ksxui/PictureOutline.h"

void PictureOutline::draw(HDC dc, const RECT& place, const std::wstring& label, bool filled)
{
    if (place.right - place.left < 2 || place.bottom - place.top < 2) {
        return;
    }
    // Stock objects and system brushes only: nothing to free, the DC's own put back.
    const int saved = ::SaveDC(dc);
    ::SelectObject(dc, ::GetStockObject(DC_PEN));
    // Filled, so that outlines that overlap (a stick's middle button) lie one on the other.
    ::SelectObject(dc, ::GetSysColorBrush(filled ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    ::SelectObject(dc, ::GetStockObject(DEFAULT_GUI_FONT));
    ::SetDCPenColor(dc, ::GetSysColor(COLOR_WINDOWTEXT));
    ::Rectangle(dc, place.left, place.top, place.right, place.bottom);
    if (!label.empty()) {
        ::SetBkMode(dc, TRANSPARENT);
        ::SetTextColor(dc, ::GetSysColor(filled ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        RECT inside{place.left + 2, place.top + 2, place.right - 2, place.bottom - 2};
        ::DrawTextW(dc, label.c_str(), static_cast<int>(label.size()), &inside,
                    DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | DT_NOPREFIX);
    }
    ::RestoreDC(dc, saved);
}
