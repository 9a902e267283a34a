#pragma once
// A button control; an owner-drawn one paints itself through DrawItem, reflected from its parent.
#include <windows.h>

#include "afx/CWnd.h"

class CButton : public CWnd {
public:
    CButton();
    ~CButton() override;

    // Paints an owner-drawn button; the base draws nothing.
    virtual void DrawItem(LPDRAWITEMSTRUCT lpDrawItemStruct);

    // WM_DRAWITEM from the parent goes to DrawItem; other notifications to the base.
    BOOL OnChildNotify(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};
