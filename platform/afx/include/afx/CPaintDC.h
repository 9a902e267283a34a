#pragma once
// The paint device context of one WM_PAINT: BeginPaint on construction, EndPaint on destruction.
#include <windows.h>

#include "afx/CDC.h"

class CWnd;

class CPaintDC : public CDC {
public:
    explicit CPaintDC(CWnd* pWnd);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

protected:
    HWND m_hWnd;
};
