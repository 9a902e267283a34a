// Read-only explanatory text: bound with DDX_Control, it answers its colour request with the
// dialog's face and text colours and keeps the text it is given.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <string>

#include "TestResource.h"
#include "ksxui/StaticEdit.h"

namespace {

class NoteDialog : public CDialog {
public:
    NoteDialog() : CDialog(IDD_CONTROLS) {}

    StaticEdit m_note;
    bool readOnly = false;
    HBRUSH brush = nullptr;
    COLORREF text = 0;
    COLORREF back = 0;
    COLORREF painted = 0;
    std::wstring shown;
    bool focused = false;
    bool caretShown = true;

    BOOL OnInitDialog() override
    {
        const BOOL result = CDialog::OnInitDialog();
        readOnly = (::GetWindowLongPtrW(m_note.m_hWnd, GWL_STYLE) & ES_READONLY) != 0;

        // The colour request as the edit makes it, on a DC with other colours set.
        HDC hdc = ::GetDC(m_note.m_hWnd);
        ::SetTextColor(hdc, RGB(1, 2, 3));
        ::SetBkColor(hdc, RGB(4, 5, 6));
        brush = reinterpret_cast<HBRUSH>(
            SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(hdc),
                        reinterpret_cast<LPARAM>(m_note.m_hWnd)));
        text = ::GetTextColor(hdc);
        back = ::GetBkColor(hdc);
        ::ReleaseDC(m_note.m_hWnd, hdc);

        m_note.SetWindowText(L"Drag the picture onto the target.");
        wchar_t buffer[64] = {};
        m_note.GetWindowText(buffer, 64);
        shown = buffer;

        // What the edit really paints, away from its text.
        ShowWindow(SW_SHOW);
        m_note.UpdateWindow();
        RECT rc{};
        m_note.GetClientRect(&rc);
        HDC client = ::GetDC(m_note.m_hWnd);
        painted = ::GetPixel(client, rc.right - 30, rc.bottom - 4);
        ::ReleaseDC(m_note.m_hWnd, client);

        m_note.SetFocus();
        focused = ::GetFocus() == m_note.m_hWnd;
        GUITHREADINFO info{};
        info.cbSize = sizeof(info);
        ::GetGUIThreadInfo(::GetCurrentThreadId(), &info);
        caretShown = info.hwndCaret == m_note.m_hWnd;

        EndDialog(IDOK);
        return result;
    }

protected:
    void DoDataExchange(CDataExchange* pDX) override { DDX_Control(pDX, IDC_NOTE, m_note); }
};

TEST(StaticEditTest, ShowsItsTextOnTheDialogFace)
{
    NoteDialog dlg;
    ASSERT_EQ(dlg.DoModal(), IDOK);
    EXPECT_TRUE(dlg.readOnly) << "the template's edit is writable; binding makes it read-only";
    EXPECT_EQ(dlg.brush, ::GetSysColorBrush(COLOR_3DFACE));
    EXPECT_EQ(dlg.text, ::GetSysColor(COLOR_WINDOWTEXT));
    EXPECT_EQ(dlg.back, ::GetSysColor(COLOR_3DFACE));
    EXPECT_EQ(dlg.painted, ::GetSysColor(COLOR_3DFACE));
    EXPECT_EQ(dlg.shown, L"Drag the picture onto the target.");
    EXPECT_TRUE(dlg.focused);
    EXPECT_FALSE(dlg.caretShown);
}

}  // namespace
