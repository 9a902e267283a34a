// Bitmap buttons: pictures found by the button's text and a suffix, the button sized to the
// up picture, and the picture of each state drawn through the parent's WM_DRAWITEM.
#include <afxext.h>
#include <gtest/gtest.h>

#include "ControlsDialog.h"
#include "TestResource.h"

namespace {

const COLORREF kUp = RGB(255, 0, 0);
const COLORREF kDown = RGB(0, 255, 0);
const COLORREF kFocus = RGB(0, 0, 255);
const COLORREF kDisabled = RGB(128, 128, 128);
const COLORREF kHalfUp = RGB(255, 255, 0);

// A memory canvas the size of the largest test picture.
class Canvas {
public:
    Canvas()
    {
        HDC screen = ::GetDC(nullptr);
        m_hdc = ::CreateCompatibleDC(screen);
        m_bitmap = ::CreateCompatibleBitmap(screen, 64, 64);
        ::ReleaseDC(nullptr, screen);
        m_old = ::SelectObject(m_hdc, m_bitmap);
    }
    ~Canvas()
    {
        ::SelectObject(m_hdc, m_old);
        ::DeleteObject(m_bitmap);
        ::DeleteDC(m_hdc);
    }
    HDC m_hdc;

private:
    HBITMAP m_bitmap;
    HGDIOBJ m_old;
};

// Asks the button's parent to draw the button in the state, as the system does, and reads
// the colour drawn.
COLORREF DrawnColour(CWnd& parent, CBitmapButton& button, UINT state)
{
    Canvas canvas;
    ::SetPixel(canvas.m_hdc, 5, 5, RGB(1, 2, 3));
    DRAWITEMSTRUCT dis{ODT_BUTTON, static_cast<UINT>(button.GetDlgCtrlID()), 0, ODA_DRAWENTIRE,
                       state, button.m_hWnd, canvas.m_hdc, {0, 0, 40, 30}, 0};
    parent.SendMessage(WM_DRAWITEM, dis.CtlID, reinterpret_cast<LPARAM>(&dis));
    return ::GetPixel(canvas.m_hdc, 5, 5);
}

SIZE WindowSize(const CWnd& wnd)
{
    RECT rc{};
    wnd.GetWindowRect(&rc);
    return {rc.right - rc.left, rc.bottom - rc.top};
}

TEST(BitmapButtonTest, AutoLoadSizesToTheUpPictureAndDrawsEachState)
{
    ControlsDialog dlg([](ControlsDialog& d) {
        CBitmapButton face;
        CBitmapButton half;
        RECT before{};
        d.GetDlgItem(IDC_FACE)->GetWindowRect(&before);
        ASSERT_TRUE(face.AutoLoad(IDC_FACE, &d));
        ASSERT_TRUE(half.AutoLoad(IDC_HALF, &d)) << "only the up picture is required";

        EXPECT_EQ(WindowSize(face).cx, 40);
        EXPECT_EQ(WindowSize(face).cy, 30);
        EXPECT_EQ(WindowSize(half).cx, 24);
        EXPECT_EQ(WindowSize(half).cy, 16);
        RECT after{};
        face.GetWindowRect(&after);
        EXPECT_EQ(after.left, before.left);
        EXPECT_EQ(after.top, before.top);

        struct Case {
            UINT state;
            COLORREF face;
        };
        const Case cases[] = {
            {0, kUp},
            {ODS_SELECTED, kDown},
            {ODS_FOCUS, kFocus},
            {ODS_DISABLED, kDisabled},
            {ODS_SELECTED | ODS_FOCUS, kDown},
            {ODS_FOCUS | ODS_DISABLED, kFocus},
        };
        for (const Case& c : cases) {
            SCOPED_TRACE(c.state);
            EXPECT_EQ(DrawnColour(d, face, c.state), c.face);
            EXPECT_EQ(DrawnColour(d, half, c.state), kHalfUp) << "missing pictures fall back to up";
        }
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
}

// The system paints the button itself: disabled, it shows the X picture.
TEST(BitmapButtonTest, PaintedButtonShowsTheStatePicture)
{
    ControlsDialog dlg([](ControlsDialog& d) {
        CBitmapButton face;
        ASSERT_TRUE(face.AutoLoad(IDC_FACE, &d));
        d.ShowWindow(SW_SHOW);
        for (const auto& [enable, colour] : {std::pair{FALSE, kDisabled}, std::pair{TRUE, kUp}}) {
            face.EnableWindow(enable);
            ::RedrawWindow(face.m_hWnd, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
            HDC hdc = ::GetDC(face.m_hWnd);
            EXPECT_EQ(::GetPixel(hdc, 5, 5), colour) << "enabled " << enable;
            ::ReleaseDC(face.m_hWnd, hdc);
        }
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
}

TEST(BitmapButtonTest, AutoLoadRefusesWhatItCannotShow)
{
    ControlsDialog dlg([](ControlsDialog& d) {
        CBitmapButton noPicture;
        CBitmapButton plain;
        CBitmapButton absent;
        CBitmapButton orphan;
        EXPECT_FALSE(noPicture.AutoLoad(IDC_NOPICTURE, &d)) << "no up picture";
        EXPECT_FALSE(plain.AutoLoad(IDC_PLAIN_FACE, &d)) << "not owner-drawn";
        EXPECT_EQ(plain.m_hWnd, nullptr);
        EXPECT_FALSE(absent.AutoLoad(4242, &d));
        EXPECT_FALSE(orphan.AutoLoad(IDC_FACE, nullptr));
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
}

TEST(BitmapButtonTest, LoadBitmapsReportsAnyMissingPicture)
{
    ControlsDialog dlg([](ControlsDialog& d) {
        CBitmapButton face;
        ASSERT_TRUE(face.SubclassDlgItem(IDC_FACE, &d));
        EXPECT_FALSE(face.LoadBitmaps(L"FACEU", L"NOSUCHD"));
        EXPECT_EQ(DrawnColour(d, face, ODS_SELECTED), kUp) << "the up picture still loaded";

        // Reloading with fewer pictures drops the earlier state pictures.
        EXPECT_TRUE(face.LoadBitmaps(L"FACEU", L"FACED", L"FACEF", L"FACEX"));
        EXPECT_TRUE(face.LoadBitmaps(L"HALFU"));
        EXPECT_EQ(DrawnColour(d, face, ODS_DISABLED), kHalfUp);
        EXPECT_TRUE(face.LoadBitmaps(IDB_DRAG));
        EXPECT_FALSE(face.LoadBitmaps(static_cast<UINT>(4242)));
        EXPECT_EQ(DrawnColour(d, face, 0), RGB(1, 2, 3)) << "nothing to draw";
    });
    EXPECT_EQ(dlg.DoModal(), IDOK);
}

}  // namespace
