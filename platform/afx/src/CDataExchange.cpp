#include "afx/CDataExchange.h"

#include "afx/CUserException.h"
#include "afx/CWnd.h"

CDataExchange::CDataExchange(CWnd* pDlgWnd, BOOL bSaveAndValidate)
    : m_bSaveAndValidate(bSaveAndValidate), m_pDlgWnd(pDlgWnd)
{
}

HWND CDataExchange::PrepareCtrl(int nIDC)
{
    HWND hWndCtrl = ::GetDlgItem(m_pDlgWnd->m_hWnd, nIDC);
    if (hWndCtrl == nullptr) {
        Fail();
    }
    return hWndCtrl;
}

void CDataExchange::Fail()
{
    throw CUserException();
}

void DDX_Control(CDataExchange* pDX, int nIDC, CWnd& rControl)
{
    if (rControl.m_hWnd != nullptr) {
        return;
    }
    HWND hWndCtrl = pDX->PrepareCtrl(nIDC);
    if (!rControl.SubclassWindow(hWndCtrl)) {
        pDX->Fail();
    }
}
