#pragma once
// The longer explanation of the classic mouse test, opened over it by More Info. It watches
// for the host's stop request itself, so a stop while it is open closes it.
#include <afxwin.h>

#include "ksxui/CAutoTimer.h"
#include "ksxui/KSXDialog.h"

class CKstrMoreInfo : public KSXDialog {
public:
    explicit CKstrMoreInfo(CWnd* pParent = nullptr);
    ~CKstrMoreInfo() override;

    BOOL OnInitDialog() override;

protected:
    afx_msg void OnTimer(UINT_PTR nIDEvent);
    afx_msg void OnDestroy();

    DECLARE_MESSAGE_MAP()

private:
    void BuildMoreInfoText();

    CAutoTimer m_stopTimer;
};
