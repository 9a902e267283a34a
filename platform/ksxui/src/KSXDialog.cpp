#include "ksxui/KSXDialog.h"

namespace {

bool isBitmapStatic(HWND window)
{
    wchar_t className[8] = {};
    ::GetClassNameW(window, className, 8);
    return ::lstrcmpiW(className, L"Static") == 0 &&
           (::GetWindowLongW(window, GWL_STYLE) & SS_TYPEMASK) == SS_BITMAP;
}

}  // namespace

BEGIN_MESSAGE_MAP(KSXDialog, CDialog)
    ON_WM_DESTROY()
END_MESSAGE_MAP()

KSXDialog::KSXDialog(UINT nIDTemplate, CWnd* pParentWnd) : CDialog(nIDTemplate, pParentWnd) {}

KSXDialog::~KSXDialog() = default;

BOOL KSXDialog::OnInitDialog()
{
    const BOOL result = CDialog::OnInitDialog();
    ApplyLanguage(m_hWnd);
    return result;
}

void KSXDialog::OnDestroy()
{
    // A picture control keeps the bitmap it loaded from the template past its window under Wine,
    // one leak per picture and run. Taken back from the control, which then holds none, the
    // bitmap is freed here once whatever the system does at the control's end.
    for (HWND child = ::GetWindow(m_hWnd, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
        if (isBitmapStatic(child)) {
            if (const auto bitmap = reinterpret_cast<HGDIOBJ>(::SendMessageW(child, STM_SETIMAGE, IMAGE_BITMAP, 0))) {
                ::DeleteObject(bitmap);
            }
        }
    }
    CDialog::OnDestroy();
}
