#include "DoubleClickTest.h"

BEGIN_MESSAGE_MAP(DoubleClickTest, CBitmapButton)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_RBUTTONDOWN()
    ON_WM_RBUTTONUP()
    ON_WM_MBUTTONDOWN()
    ON_WM_MBUTTONUP()
END_MESSAGE_MAP()

DoubleClickTest::DoubleClickTest() = default;

DoubleClickTest::~DoubleClickTest() = default;

// The press is handled by the dialog before the face sees anything else, so the dialog holds
// the capture when the release comes.
void DoubleClickTest::OnLButtonDown(UINT nFlags, CPoint)
{
    ::SendMessageW(::GetParent(m_hWnd), WM_LBUTTONDOWN, nFlags, MAKELPARAM(0, 0));
}

void DoubleClickTest::OnLButtonUp(UINT nFlags, CPoint)
{
    PostToParent(WM_LBUTTONUP, nFlags);
}

void DoubleClickTest::OnRButtonDown(UINT nFlags, CPoint)
{
    PostToParent(WM_RBUTTONDOWN, nFlags);
}

void DoubleClickTest::OnRButtonUp(UINT nFlags, CPoint)
{
    PostToParent(WM_RBUTTONUP, nFlags);
}

void DoubleClickTest::OnMButtonDown(UINT nFlags, CPoint)
{
    PostToParent(WM_MBUTTONDOWN, nFlags);
}

void DoubleClickTest::OnMButtonUp(UINT nFlags, CPoint)
{
    PostToParent(WM_MBUTTONUP, nFlags);
}

void DoubleClickTest::PostToParent(UINT message, UINT nFlags)
{
    ::PostMessageW(::GetParent(m_hWnd), message, nFlags, MAKELPARAM(0, 0));
}
