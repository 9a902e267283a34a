#pragma once
// A modal dialog built from a dialog template resource.
#include <windows.h>

#include "afx/CWnd.h"

class CDialog : public CWnd {
public:
    explicit CDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~CDialog() override;

    // Runs the dialog until EndDialog and returns its code. -1 when the template is missing
    // or the window could not be created; GetLastError then tells why. The parent (or,
    // without one, the thread's running modal dialog) is disabled meanwhile. An exception
    // thrown by a handler ends the dialog and is thrown again from here once the window is
    // destroyed.
    virtual INT_PTR DoModal();
    // Ends the modal run with nResult once the current message has been handled.
    void EndDialog(int nResult);

    // WM_INITDIALOG. The base runs UpdateData(FALSE) and answers TRUE (the system focuses
    // the first control); when that fails it ends the dialog with -1 and answers FALSE.
    virtual BOOL OnInitDialog();

protected:
    // IDOK: UpdateData(TRUE), then EndDialog(IDOK).
    virtual void OnOK();
    // IDCANCEL (Cancel button, Escape, the close box): EndDialog(IDCANCEL).
    virtual void OnCancel();

    UINT m_nIDTemplate;
    CWnd* m_pParentWnd;

    DECLARE_MESSAGE_MAP()

private:
    static INT_PTR CALLBACK DialogProc(HWND hDlg, UINT message, WPARAM wParam, LPARAM lParam);
};
