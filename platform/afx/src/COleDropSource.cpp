#include "afx/COleDropSource.h"

#include "afx/CWnd.h"

namespace {

// How long the pointer may rest in the start rectangle before the drag begins anyway.
UINT DragDelayMs()
{
    return ::GetProfileIntW(L"windows", L"DragDelay", DD_DEFDRAGDELAY);
}

bool IsLeftButtonDown()
{
    return (::GetKeyState(VK_LBUTTON) & 0x8000) != 0;
}

}  // namespace

COleDropSource::COleDropSource() : m_bDragStarted(FALSE) {}

COleDropSource::~COleDropSource() = default;

BOOL COleDropSource::OnBeginDrag(CWnd* pWnd)
{
    m_bDragStarted = FALSE;
    if (!IsLeftButtonDown()) {
        return FALSE;
    }
    HWND hWnd = pWnd != nullptr ? pWnd->GetSafeHwnd() : nullptr;
    const bool tookCapture = hWnd != nullptr && ::GetCapture() != hWnd;
    if (tookCapture) {
        ::SetCapture(hWnd);
    }
    const DWORD delay = DragDelayMs();
    const DWORD start = ::GetTickCount();
    bool done = false;
    while (!done) {
        if (hWnd != nullptr && ::GetCapture() != hWnd) {
            break;  // someone else took the mouse
        }
        const DWORD elapsed = ::GetTickCount() - start;
        if (elapsed >= delay) {
            m_bDragStarted = TRUE;
            break;
        }
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, delay - elapsed, QS_ALLINPUT);
        MSG msg;
        while (!done && ::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            switch (msg.message) {
            case WM_MOUSEMOVE:
                if (!m_rectStartDrag.PtInRect(msg.pt)) {
                    m_bDragStarted = TRUE;
                    done = true;
                }
                break;
            case WM_LBUTTONUP:
            case WM_RBUTTONDOWN:
            case WM_MBUTTONDOWN:
                done = true;
                break;
            case WM_KEYDOWN:
                done = msg.wParam == VK_ESCAPE;
                break;
            case WM_QUIT:
                // Left for the thread's own loop.
                ::PostQuitMessage(static_cast<int>(msg.wParam));
                done = true;
                break;
            default:
                if ((msg.message < WM_MOUSEFIRST || msg.message > WM_MOUSELAST) &&
                    (msg.message < WM_KEYFIRST || msg.message > WM_KEYLAST)) {
                    ::TranslateMessage(&msg);
                    ::DispatchMessageW(&msg);
                }
                break;
            }
        }
    }
    if (tookCapture && ::GetCapture() == hWnd) {
        ::ReleaseCapture();
    }
    return m_bDragStarted;
}

SCODE COleDropSource::QueryContinueDrag(BOOL bEscapePressed, DWORD dwKeyState)
{
    if (bEscapePressed) {
        return DRAGDROP_S_CANCEL;
    }
    if ((dwKeyState & MK_LBUTTON) == 0) {
        return DRAGDROP_S_DROP;
    }
    return S_OK;
}

SCODE COleDropSource::GiveFeedback(DROPEFFECT)
{
    return DRAGDROP_S_USEDEFAULTCURSORS;
}
