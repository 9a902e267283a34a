#pragma once
// A device context borrowed from its owner: the wrapper never releases the handle.
#include <windows.h>

class CDC {
public:
    CDC();
    virtual ~CDC();
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;

    HDC m_hDC;

    operator HDC() const;
    HDC GetSafeHdc() const;
    BOOL Attach(HDC hDC);
    HDC Detach();

    BOOL DrawIcon(int x, int y, HICON hIcon);
    int SetBkMode(int nBkMode);
    COLORREF SetBkColor(COLORREF crColor);
    COLORREF SetTextColor(COLORREF crColor);
};
