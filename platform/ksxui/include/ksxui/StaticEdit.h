#pragma once
// Read-only explanatory text in a multi-line edit control (bound with DDX_Control): it takes
// the dialog's face colour and text colour instead of the edit's own, and shows no caret.
#include <afxwin.h>

class StaticEdit : public CWnd {
public:
    StaticEdit();
    ~StaticEdit() override;

protected:
    // Makes the bound edit read-only, so that it asks its parent for static colours.
    void PreSubclassWindow() override;

    // Reflected WM_CTLCOLORSTATIC: the face brush, with the dialog's text colour on the face.
    afx_msg HBRUSH CtlColor(CDC* pDC, UINT nCtlColor);
    // The edit takes the focus as usual but gets no caret.
    afx_msg void OnSetFocus(CWnd* pOldWnd);

    DECLARE_MESSAGE_MAP()
};
