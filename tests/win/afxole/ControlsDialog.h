#pragma once
// The controls test dialog: runs a test's script at OnInitDialog, then ends itself.
#include <afxwin.h>

#include <functional>

#include "TestResource.h"

class ControlsDialog : public CDialog {
public:
    explicit ControlsDialog(std::function<void(ControlsDialog&)> script)
        : CDialog(IDD_CONTROLS), m_script(std::move(script))
    {
    }

    BOOL OnInitDialog() override
    {
        const BOOL result = CDialog::OnInitDialog();
        m_script(*this);
        EndDialog(IDOK);
        return result;
    }

private:
    std::function<void(ControlsDialog&)> m_script;
};
