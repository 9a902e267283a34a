// CAutoTimer on a real dialog: it fires, Kill stops it, destruction kills it, and it refuses
// windows that are not there.
#include "ksxui/CAutoTimer.h"

#include <afxwin.h>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>

#include "TestResource.h"

namespace {

class TimerDialog : public CDialog {
public:
    TimerDialog() : CDialog(IDD_KSXUI) {}

    std::map<UINT_PTR, int> ticks;
    std::function<void(TimerDialog&)> onInit;
    std::function<void(TimerDialog&, UINT_PTR)> onTick;

    BOOL OnInitDialog() override
    {
        const BOOL result = CDialog::OnInitDialog();
        onInit(*this);
        return result;
    }

protected:
    afx_msg void OnTimer(UINT_PTR id)
    {
        ++ticks[id];
        onTick(*this, id);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TimerDialog, CDialog)
    ON_WM_TIMER()
END_MESSAGE_MAP()

TEST(CAutoTimer, FiresUntilKilledAndDiesWithItsObject)
{
    TimerDialog dialog;
    CAutoTimer killed;
    auto dropped = std::make_unique<CAutoTimer>();
    CAutoTimer closer;
    bool setOk = false;
    dialog.onInit = [&](TimerDialog& d) {
        setOk = killed.SetAsWindowTimer(&d, 5, 10) && dropped->SetAsWindowTimer(d.m_hWnd, 6, 10) &&
                closer.SetAsWindowTimer(&d, 7, 100);
        EXPECT_EQ(5u, killed.GetId());
        EXPECT_EQ(6u, dropped->GetId());
    };
    dialog.onTick = [&](TimerDialog& d, UINT_PTR id) {
        if (id == 5 && d.ticks[5] == 3) {
            EXPECT_TRUE(killed.Kill());
            EXPECT_EQ(0u, killed.GetId());
        } else if (id == 6) {
            dropped.reset();
        } else if (id == 7 && d.ticks[7] == 3) {
            d.EndDialog(IDOK);
        }
    };
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_TRUE(setOk);
    EXPECT_EQ(3, dialog.ticks[5]);
    EXPECT_EQ(1, dialog.ticks[6]);
    EXPECT_EQ(3, dialog.ticks[7]);
    // The window is gone: the timer went with it and cannot be killed any more.
    EXPECT_FALSE(closer.Kill());
}

TEST(CAutoTimer, RefusesAMissingOrDestroyedWindow)
{
    CAutoTimer timer;
    EXPECT_FALSE(timer.SetAsWindowTimer(static_cast<CWnd*>(nullptr), 1, 10));
    EXPECT_FALSE(timer.SetAsWindowTimer(static_cast<HWND>(nullptr), 1, 10));

    CWnd window;
    ASSERT_TRUE(window.Create(AfxRegisterWndClass(0), L"timer", WS_POPUP, CRect(0, 0, 10, 10),
                              nullptr, 0));
    HWND gone = window.m_hWnd;
    ASSERT_TRUE(timer.SetAsWindowTimer(&window, 9, 10));
    window.DestroyWindow();
    EXPECT_FALSE(timer.SetAsWindowTimer(gone, 9, 10));
    EXPECT_EQ(0u, timer.GetId());
    EXPECT_FALSE(timer.Kill());
}

}  // namespace
