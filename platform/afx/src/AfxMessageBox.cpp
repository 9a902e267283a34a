#include "afx/AfxMessageBox.h"

#include "afx/CWinApp.h"
#include "afx/CWinThread.h"
#include "afx/CWnd.h"

int AfxMessageBox(LPCTSTR lpszText, UINT nType, UINT nIDHelp)
{
    CWnd* pOwner = AfxGetMainWnd();
    MSGBOXPARAMSW params{};
    params.cbSize = sizeof(params);
    params.hwndOwner = pOwner != nullptr ? pOwner->m_hWnd : nullptr;
    params.hInstance = AfxGetResourceHandle();
    params.lpszText = lpszText;
    params.lpszCaption = AfxGetAppName();
    params.dwStyle = nType;
    params.dwContextHelpId = nIDHelp;
    return ::MessageBoxIndirectW(&params);
}
