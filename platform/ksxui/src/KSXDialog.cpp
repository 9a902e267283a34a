#include "ksxui/KSXDialog.h"

BEGIN_MESSAGE_MAP(KSXDialog, CDialog)
END_MESSAGE_MAP()

KSXDialog::KSXDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(nIDTemplate, pParentWnd) {}

KSXDialog::~KSXDialog() = default;

BOOL KSXDialog::OnInitDialog()
{
    const BOOL result = CDialog::OnInitDialog();
    ApplyLanguage(m_hWnd);
    return result;
}
