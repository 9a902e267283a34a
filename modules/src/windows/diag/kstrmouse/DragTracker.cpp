#include "DragTracker.h"

#include <windowsx.h>

#include <algorithm>

namespace {

constexpr int kImageWidth = 50;
constexpr COLORREF kImageMask = RGB(0xFF, 0x00, 0xFF);
constexpr POINT kHotSpot = {20, 20};

}  // namespace

DragTracker::DragTracker() : m_window(nullptr) {}

DragTracker::~DragTracker()
{
    end();
}

bool DragTracker::detect(CWnd& window, CPoint point)
{
    const int halfWidth = std::max(1, ::GetSystemMetrics(SM_CXDRAG) / 2);
    const int halfHeight = std::max(1, ::GetSystemMetrics(SM_CYDRAG) / 2);
    const RECT still{point.x - halfWidth, point.y - halfHeight, point.x + halfWidth + 1, point.y + halfHeight + 1};
    window.SetCapture();
    for (;;) {
        MSG msg;
        while (::PeekMessageW(&msg, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE) ||
               ::PeekMessageW(&msg, nullptr, WM_KEYFIRST, WM_KEYLAST, PM_REMOVE)) {
            if (msg.message == WM_LBUTTONUP || (msg.message == WM_KEYDOWN && msg.wParam == VK_ESCAPE)) {
                ::ReleaseCapture();
                return false;
            }
            if (msg.message == WM_MOUSEMOVE) {
                const POINT moved{GET_X_LPARAM(msg.lParam), GET_Y_LPARAM(msg.lParam)};
                if (!::PtInRect(&still, moved)) {
                    ::ReleaseCapture();
                    return true;
                }
            }
        }
        if (::GetCapture() != window.m_hWnd) {
            return false;
        }
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, INFINITE, QS_INPUT | QS_POSTMESSAGE);
    }
}

bool DragTracker::loadImage(UINT bitmapId)
{
    m_images.DeleteImageList();
    return m_images.Create(bitmapId, kImageWidth, 1, kImageMask) != FALSE;
}

void DragTracker::begin(CWnd& window, CPoint point)
{
    end();
    m_window = &window;
    m_images.BeginDrag(0, CPoint(kHotSpot.x, kHotSpot.y));
    CImageList::DragEnter(m_window, toWindowPoint(point));
    window.SetCapture();
}

void DragTracker::follow(CPoint point)
{
    if (dragging()) {
        CImageList::DragMove(toWindowPoint(point));
    }
}

void DragTracker::end()
{
    if (!dragging()) {
        return;
    }
    if (::GetCapture() == m_window->m_hWnd) {
        ::ReleaseCapture();
    }
    // The image also locked the window's updates: both go together.
    CImageList::DragLeave(m_window);
    CImageList::EndDrag();
    m_window = nullptr;
}

CPoint DragTracker::toWindowPoint(CPoint point) const
{
    RECT window{};
    m_window->GetWindowRect(&window);
    m_window->ClientToScreen(&point);
    return CPoint(point.x - window.left, point.y - window.top);
}
