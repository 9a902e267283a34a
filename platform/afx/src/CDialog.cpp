#include "afx/CDialog.h"

#include <commctrl.h>

#include <exception>

#include "AfxCreationHook.h"
#include "AfxThreadState.h"
#include "afx/CWinApp.h"

namespace {

// Keeps this dialog as the thread's innermost modal dialog while it runs.
class ModalScope {
public:
    explicit ModalScope(CDialog* pDialog)
        : m_state(AfxThreadState::Get()), m_pOuter(m_state.pModalDialog)
    {
        m_state.pModalDialog = pDialog;
        ++m_state.modalDepth;
    }
    ~ModalScope()
    {
        m_state.pModalDialog = m_pOuter;
        if (--m_state.modalDepth == 0) {
            m_state.DeleteTempWrappers(true);
        }
    }
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;

private:
    AfxThreadState& m_state;
    CDialog* m_pOuter;
};

// Templates may hold progress bars and other common controls.
void EnsureCommonControls()
{
    static const bool registered = [] {
        INITCOMMONCONTROLSEX controls{sizeof(INITCOMMONCONTROLSEX), ICC_WIN95_CLASSES};
        return ::InitCommonControlsEx(&controls) != FALSE;
    }();
    (void)registered;
}

}  // namespace

BEGIN_MESSAGE_MAP(CDialog, CWnd)
    ON_COMMAND(IDOK, &CDialog::OnOK)
    ON_COMMAND(IDCANCEL, &CDialog::OnCancel)
END_MESSAGE_MAP()

CDialog::CDialog(UINT nIDTemplate, CWnd* pParentWnd)
    : m_nIDTemplate(nIDTemplate), m_pParentWnd(pParentWnd)
{
}

CDialog::~CDialog() = default;

INT_PTR CDialog::DoModal()
{
    HINSTANCE hInstance = AfxGetResourceHandle();
    HRSRC hResource = ::FindResourceW(hInstance, MAKEINTRESOURCEW(m_nIDTemplate), RT_DIALOG);
    if (hResource == nullptr) {
        return -1;
    }
    HGLOBAL hTemplate = ::LoadResource(hInstance, hResource);
    const auto* pTemplate =
        hTemplate != nullptr ? static_cast<LPCDLGTEMPLATEW>(::LockResource(hTemplate)) : nullptr;
    if (pTemplate == nullptr) {
        return -1;
    }
    EnsureCommonControls();

    AfxThreadState& state = AfxThreadState::Get();
    HWND hWndOwner = m_pParentWnd != nullptr ? m_pParentWnd->m_hWnd
                     : state.pModalDialog != nullptr ? state.pModalDialog->m_hWnd
                                                     : nullptr;
    INT_PTR result = -1;
    DWORD lastError = ERROR_SUCCESS;
    {
        ModalScope modal(this);
        AfxCreationHook hook(this);
        if (!hook.Installed()) {
            return -1;
        }
        ::SetLastError(ERROR_SUCCESS);
        result = ::DialogBoxIndirectParamW(hInstance, pTemplate, hWndOwner, &DialogProc, 0);
        lastError = ::GetLastError();
    }
    state.RethrowPendingException();
    ::SetLastError(lastError);
    return result;
}

void CDialog::EndDialog(int nResult)
{
    if (m_hWnd != nullptr) {
        ::EndDialog(m_hWnd, nResult);
    }
}

BOOL CDialog::OnInitDialog()
{
    if (!UpdateData(FALSE)) {
        EndDialog(-1);
        return FALSE;
    }
    return TRUE;
}

void CDialog::OnOK()
{
    if (!UpdateData(TRUE)) {
        return;
    }
    EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

INT_PTR CALLBACK CDialog::DialogProc(HWND hDlg, UINT message, WPARAM, LPARAM)
{
    // Every other message already went through the message map on its way here
    // (the window procedure is subclassed); the dialog manager's defaults apply.
    if (message != WM_INITDIALOG) {
        return FALSE;
    }
    auto* pDialog = dynamic_cast<CDialog*>(CWnd::FromHandlePermanent(hDlg));
    if (pDialog == nullptr) {
        return TRUE;
    }
    try {
        return pDialog->OnInitDialog();
    } catch (...) {
        AfxThreadState::Get().StoreException(std::current_exception());
        return FALSE;
    }
}
