#include "ksxui/KSXLangExt.h"

#include "harn5/HostContext.h"

namespace {

void SetExStyleBit(HWND hWnd, LONG_PTR bit, bool on)
{
    const LONG_PTR style = ::GetWindowLongPtrW(hWnd, GWL_EXSTYLE);
    const LONG_PTR wanted = on ? (style | bit) : (style & ~bit);
    if (wanted != style) {
        ::SetWindowLongPtrW(hWnd, GWL_EXSTYLE, wanted);
    }
}

BOOL CALLBACK SetChildReading(HWND hChild, LPARAM rightToLeft)
{
    SetExStyleBit(hChild, WS_EX_RTLREADING, rightToLeft != 0);
    return TRUE;
}

}  // namespace

void KSXLangExt::ApplyLanguage(HWND hDlg)
{
    if (!::IsWindow(hDlg)) {
        return;
    }
    const bool rightToLeft = harn5::HostContext::rightToLeft();
    SetExStyleBit(hDlg, WS_EX_LAYOUTRTL, rightToLeft);
    SetExStyleBit(hDlg, WS_EX_RTLREADING, rightToLeft);
    ::EnumChildWindows(hDlg, &SetChildReading, rightToLeft ? 1 : 0);
    ::RedrawWindow(hDlg, nullptr, nullptr,
                   RDW_ERASE | RDW_FRAME | RDW_INVALIDATE | RDW_ALLCHILDREN);
}
