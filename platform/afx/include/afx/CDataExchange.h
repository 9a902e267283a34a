#pragma once
// The context of one DoDataExchange pass and the DDX_Control binding.
#include <windows.h>

class CWnd;

class CDataExchange {
public:
    CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate);

    // The control's handle; fails the exchange when the dialog has no such control.
    HWND PrepareCtrl(int nIDC);
    // Abandons the exchange: UpdateData answers FALSE.
    [[noreturn]] void Fail();

    BOOL m_bSaveAndValidate;  // TRUE: controls to members; FALSE: members to controls
    CWnd* m_pDlgWnd;
};

// Binds rControl to the dialog's control nIDC (subclassing it) the first time; later passes
// leave the binding as it is. Fails the exchange when the control is missing or taken.
void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl);
