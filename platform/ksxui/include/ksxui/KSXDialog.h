#pragma once
// The dialog base of the module's dialogs: a CDialog in the host language's reading direction.
#include <afxwin.h>

#include "ksxui/KSXLangExt.h"

class KSXDialog : public CDialog, public KSXLangExt {
public:
    explicit KSXDialog(UINT nIDTemplate, CWnd* pParentWnd = nullptr);
    ~KSXDialog() override;

    // CDialog::OnInitDialog, then ApplyLanguage; answers what the base answered.
    BOOL OnInitDialog() override;

protected:
    // Frees the bitmaps that the template's picture controls loaded, then the base handling.
    afx_msg void OnDestroy();

    DECLARE_MESSAGE_MAP()
};
