// Image lists from a bitmap resource and the system's drag image shown over a window.
#include <afxcmn.h>
#include <gtest/gtest.h>

#include "TestResource.h"

namespace {

const COLORREF kMask = RGB(255, 0, 255);

// Image 0 is red; the system may blend the drag image, so "red" is what is asked.
bool IsRed(COLORREF c)
{
    return GetRValue(c) > GetGValue(c) + 100 && GetRValue(c) > GetBValue(c) + 100;
}

TEST(ImageListTest, CreateCutsTheBitmapIntoImages)
{
    CImageList list;
    EXPECT_EQ(list.GetImageCount(), 0);
    EXPECT_FALSE(list.BeginDrag(0, CPoint(0, 0))) << "no list yet";
    ASSERT_TRUE(list.Create(IDB_DRAG, 50, 1, kMask));
    EXPECT_NE(list.GetSafeHandle(), nullptr);
    EXPECT_EQ(list.GetImageCount(), 2);
    EXPECT_FALSE(list.Create(IDB_DRAG, 50, 1, kMask)) << "already created";

    EXPECT_TRUE(list.DeleteImageList());
    EXPECT_EQ(list.m_hImageList, nullptr);
    EXPECT_FALSE(list.DeleteImageList());

    CImageList missing;
    EXPECT_FALSE(missing.Create(4242, 50, 1, kMask));
    EXPECT_EQ(missing.m_hImageList, nullptr);
}

// The drag image appears over the window at the point less the hot spot, with the mask
// colour transparent, and the window is restored when it leaves.
TEST(ImageListTest, DragImageFollowsThePointAndLeavesNoTrace)
{
    CWnd wnd;
    LPCTSTR cls = AfxRegisterWndClass(0, nullptr, ::GetSysColorBrush(COLOR_WINDOW));
    ASSERT_TRUE(wnd.Create(cls, L"Image drag", WS_POPUP | WS_VISIBLE, CRect(100, 100, 400, 300),
                           nullptr, 0));
    wnd.UpdateWindow();
    const COLORREF background = ::GetSysColor(COLOR_WINDOW);

    CImageList list;
    ASSERT_TRUE(list.Create(IDB_DRAG, 50, 1, kMask));
    ASSERT_TRUE(list.BeginDrag(0, CPoint(20, 20)));
    ASSERT_TRUE(CImageList::DragEnter(&wnd, CPoint(60, 60)));
    ASSERT_TRUE(CImageList::DragMove(CPoint(120, 90)));

    HDC hdc = ::GetDC(wnd.m_hWnd);
    // Image pixel (5, 5) is opaque; (35, 5) lies in the mask stripe.
    EXPECT_TRUE(IsRed(::GetPixel(hdc, 120 - 20 + 5, 90 - 20 + 5)));
    EXPECT_EQ(::GetPixel(hdc, 120 - 20 + 35, 90 - 20 + 5), background);
    EXPECT_EQ(::GetPixel(hdc, 60 - 20 + 5, 60 - 20 + 5), background) << "the old place is restored";

    EXPECT_TRUE(CImageList::DragLeave(&wnd));
    EXPECT_EQ(::GetPixel(hdc, 120 - 20 + 5, 90 - 20 + 5), background);
    ::ReleaseDC(wnd.m_hWnd, hdc);
    CImageList::EndDrag();
    wnd.DestroyWindow();
}

}  // namespace
