#pragma once
// A progress bar control: one message per operation; without a window each does nothing
// and answers 0.
#include <windows.h>

#include "afx/CWnd.h"

class CProgressCtrl : public CWnd {
public:
    CProgressCtrl();
    ~CProgressCtrl() override;

    void SetRange(short nLower, short nUpper);
    void SetRange32(int nLower, int nUpper);
    void GetRange(int& nLower, int& nUpper) const;
    // Each returns the previous position.
    int SetPos(int nPos);
    int OffsetPos(int nPos);
    int StepIt();
    int GetPos() const;
    // Returns the previous step.
    int SetStep(int nStep);
    // Each returns the previous colour (CLR_DEFAULT when none was set).
    COLORREF SetBarColor(COLORREF clrBar);
    COLORREF SetBkColor(COLORREF clrNew);
};
