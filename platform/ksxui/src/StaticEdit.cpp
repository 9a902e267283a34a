#include "ksxui/StaticEdit.h"

BEGIN_MESSAGE_MAP(StaticEdit, CWnd)
    AFX_MSG_ENTRY(WM_REFLECT_BASE + WM_CTLCOLORSTATIC, CDC afxDC;
                  afxDC.Attach(reinterpret_cast<HDC>(afxW));
                  return reinterpret_cast<LRESULT>(afxThis->CtlColor(&afxDC, CTLCOLOR_STATIC));)
    AFX_MSG_ENTRY(WM_SETFOCUS,
                  afxThis->OnSetFocus(CWnd::FromHandle(reinterpret_cast<HWND>(afxW)));
                  return 0;)
END_MESSAGE_MAP()

StaticEdit::StaticEdit() = default;

StaticEdit::~StaticEdit() = default;

void StaticEdit::PreSubclassWindow()
{
    ::SendMessageW(m_hWnd, EM_SETREADONLY, TRUE, 0);
}

HBRUSH StaticEdit::CtlColor(CDC* pDC, UINT)
{
    pDC->SetTextColor(::GetSysColor(COLOR_WINDOWTEXT));
    pDC->SetBkColor(::GetSysColor(COLOR_3DFACE));
    return ::GetSysColorBrush(COLOR_3DFACE);
}

void StaticEdit::OnSetFocus(CWnd*)
{
    Default();
    // The text cannot be edited: the caret the edit just made would only mislead.
    ::DestroyCaret();
}
