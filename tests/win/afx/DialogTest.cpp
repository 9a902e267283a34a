// Modal dialogs from a template: creation order, data exchange, the ways a dialog ends,
// timers, owner-drawn reflection, exceptions and failure. Every dialog ends itself from
// inside its own modal loop.
#include <afxcmn.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "TestResource.h"

namespace {

constexpr UINT WM_APP_RUN = WM_APP + 10;
using Script = std::function<void(class TestDialog&)>;

class OwnerDrawButton : public CButton {
public:
    std::vector<std::string>* log = nullptr;
    UINT drawnId = 0;
    void DrawItem(LPDRAWITEMSTRUCT item) override
    {
        log->push_back("button draws");
        drawnId = item->CtlID;
    }
};

// Records what the framework calls; runs each test's scripts at OnInitDialog, posted into the
// modal loop (Post) and at timer ticks.
class TestDialog : public CDialog {
public:
    explicit TestDialog(CWnd* parent = nullptr, UINT id = IDD_BASIC) : CDialog(id, parent)
    {
        m_ownerDraw.log = &log;
    }

    std::vector<std::string> log;
    Script onInit = [](TestDialog&) {};
    std::function<void(TestDialog&, UINT_PTR)> onTimer;
    HWND hWndSeen = nullptr;
    CWnd m_edit;
    OwnerDrawButton m_ownerDraw;
    CProgressCtrl m_progress;

    void Post(Script script)
    {
        m_posted.push_back(std::move(script));
        PostMessage(WM_APP_RUN, m_posted.size() - 1);
    }
    bool Logged(const std::string& entry) const
    {
        return std::find(log.begin(), log.end(), entry) != log.end();
    }
    BOOL OnInitDialog() override
    {
        hWndSeen = m_hWnd;
        const BOOL result = CDialog::OnInitDialog();
        log.push_back("init");
        onInit(*this);
        return result;
    }

protected:
    void DoDataExchange(CDataExchange* pDX) override
    {
        log.push_back(pDX->m_bSaveAndValidate ? "ddx save" : "ddx load");
        DDX_Control(pDX, IDC_EDIT, m_edit);
        DDX_Control(pDX, IDC_OWNERDRAW, m_ownerDraw);
        DDX_Control(pDX, IDC_PROGRESS, m_progress);
    }
    void OnOK() override
    {
        log.push_back("ok");
        CDialog::OnOK();
    }
    void OnCancel() override
    {
        log.push_back("cancel");
        CDialog::OnCancel();
    }
    LRESULT OnNcCreate(WPARAM, LPARAM)
    {
        log.push_back("nccreate");
        return Default();
    }
    afx_msg int OnCreate(LPCREATESTRUCT create)
    {
        log.push_back("create");
        return CDialog::OnCreate(create);
    }
    afx_msg void OnDestroy()
    {
        log.push_back("destroy");
        CDialog::OnDestroy();
    }
    afx_msg void OnTimer(UINT_PTR id) { onTimer(*this, id); }
    void OnEditFocus() { log.push_back("edit focus"); }
    void OnAction()
    {
        log.push_back("action");
        EndDialog(77);
    }
    LRESULT OnRun(WPARAM index, LPARAM)
    {
        m_posted.at(index)(*this);
        return 0;
    }
    DECLARE_MESSAGE_MAP()

private:
    std::vector<Script> m_posted;
};

BEGIN_MESSAGE_MAP(TestDialog, CDialog)
    ON_MESSAGE(WM_NCCREATE, &TestDialog::OnNcCreate)
    ON_WM_CREATE()
    ON_WM_DESTROY()
    ON_WM_TIMER()
    ON_BN_CLICKED(IDC_ACTION, &TestDialog::OnAction)
    ON_EN_SETFOCUS(IDC_EDIT, &TestDialog::OnEditFocus)
    ON_MESSAGE(WM_APP_RUN, &TestDialog::OnRun)
END_MESSAGE_MAP()

TEST(Dialog, CreationReachesTheMapBeforeInitDialogAndDataExchange)
{
    TestDialog dialog;
    HWND editSeen = nullptr;
    dialog.onInit = [&](TestDialog& d) {
        editSeen = d.m_edit.m_hWnd;
        EXPECT_EQ(&d.m_edit, CWnd::FromHandle(::GetDlgItem(d.m_hWnd, IDC_EDIT)));
        d.Post([](TestDialog& running) {
            ::PostMessageW(::GetDlgItem(running.m_hWnd, IDC_ACTION), BM_CLICK, 0, 0);
        });
    };
    EXPECT_EQ(77, dialog.DoModal());
    const std::vector<std::string> expected = {"nccreate", "create", "ddx load", "init",
                                               "action",   "destroy"};
    EXPECT_EQ(expected, dialog.log);
    // Everything is unbound once the windows are gone.
    EXPECT_EQ(nullptr, dialog.m_hWnd);
    EXPECT_EQ(nullptr, dialog.m_edit.m_hWnd);
    EXPECT_FALSE(::IsWindow(dialog.hWndSeen));
    EXPECT_FALSE(::IsWindow(editSeen));
}

TEST(Dialog, EnterEscapeCloseBoxAndButtonsReachOnOKAndOnCancel)
{
    struct {
        const char* name;
        void (*act)(HWND);
        INT_PTR code;
        const char* handler;
    } const endings[] = {
        {"Escape", [](HWND d) { ::PostMessageW(d, WM_KEYDOWN, VK_ESCAPE, 0); }, IDCANCEL, "cancel"},
        {"close box", [](HWND d) { ::PostMessageW(d, WM_CLOSE, 0, 0); }, IDCANCEL, "cancel"},
        {"Cancel", [](HWND d) { ::PostMessageW(::GetDlgItem(d, IDCANCEL), BM_CLICK, 0, 0); },
         IDCANCEL, "cancel"},
        {"Enter", [](HWND d) { ::PostMessageW(d, WM_KEYDOWN, VK_RETURN, 0); }, IDOK, "ok"},
    };
    for (const auto& ending : endings) {
        SCOPED_TRACE(ending.name);
        TestDialog dialog;
        dialog.onInit = [&](TestDialog& d) {
            d.Post([&](TestDialog& running) { ending.act(running.m_hWnd); });
        };
        EXPECT_EQ(ending.code, dialog.DoModal());
        EXPECT_EQ(1, std::count(dialog.log.begin(), dialog.log.end(), ending.handler));
        // OnOK reads the controls back; OnCancel does not.
        EXPECT_EQ(ending.code == IDOK, dialog.Logged("ddx save"));
    }
}

TEST(Dialog, UnhandledMessagesGetTheDialogManagersDefaults)
{
    TestDialog dialog;
    LRESULT defId = 0;
    dialog.onInit = [&](TestDialog& d) {
        defId = d.SendMessage(DM_GETDEFID);
        d.EndDialog(3);
    };
    EXPECT_EQ(3, dialog.DoModal());
    EXPECT_EQ(MAKELRESULT(IDOK, DC_HASDEFID), defId);
}

TEST(Dialog, TimersFireByIdAndKillTimerStopsThem)
{
    TestDialog dialog;
    int fast = 0;
    int slow = 0;
    dialog.onInit = [](TestDialog& d) {
        EXPECT_EQ(1u, d.SetTimer(1, 10));
        EXPECT_EQ(2u, d.SetTimer(2, 80));
    };
    dialog.onTimer = [&](TestDialog& d, UINT_PTR id) {
        if (id == 1 && ++fast == 3) {
            EXPECT_TRUE(d.KillTimer(1));
        } else if (id == 2 && ++slow == 4) {
            d.EndDialog(IDOK);
        }
    };
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_EQ(3, fast);
    EXPECT_EQ(4, slow);
}

// The dialog has no WM_DRAWITEM entry: the framework's own reflects it to the button.
TEST(Dialog, OwnerDrawnButtonPaintsItselfThroughReflection)
{
    TestDialog dialog;
    // The dialog manager shows the dialog once its queue is first idle: paint from a timer.
    dialog.onInit = [](TestDialog& d) { d.SetTimer(1, 1); };
    dialog.onTimer = [](TestDialog& d, UINT_PTR id) {
        // A busy machine may run the timer before the dialog shows: a hidden button paints nothing.
        if (!d.IsWindowVisible()) {
            return;
        }
        d.KillTimer(id);
        d.log.clear();
        d.m_ownerDraw.Invalidate();
        d.m_ownerDraw.UpdateWindow();
        d.EndDialog(IDOK);
    };
    EXPECT_EQ(IDOK, dialog.DoModal());
    ASSERT_FALSE(dialog.log.empty());
    EXPECT_EQ("button draws", dialog.log.front());
    EXPECT_EQ(static_cast<UINT>(IDC_OWNERDRAW), dialog.m_ownerDraw.drawnId);
}

TEST(Dialog, HandlerExceptionsLeaveDoModalAfterTheWindowIsGone)
{
    const std::pair<const char*, Script> failures[] = {
        {"OnInitDialog", [](TestDialog&) { throw std::runtime_error("OnInitDialog"); }},
        {"posted message",
         [](TestDialog& d) {
             d.Post([](TestDialog&) { throw std::runtime_error("posted message"); });
         }},
        {"nested send",
         [](TestDialog& d) {
             d.Post([](TestDialog& running) {
                 running.onTimer = [](TestDialog&, UINT_PTR) {
                     throw std::runtime_error("nested send");
                 };
                 running.SendMessage(WM_TIMER, 1);
                 running.log.push_back("after send");
             });
         }},
    };
    for (const auto& [where, script] : failures) {
        SCOPED_TRACE(where);
        CWnd owner;
        ASSERT_TRUE(owner.Create(AfxRegisterWndClass(0), L"owner", WS_POPUP | WS_VISIBLE,
                                 CRect(0, 0, 50, 50), nullptr, 0));
        TestDialog dialog(&owner);
        dialog.onInit = script;
        try {
            dialog.DoModal();
            ADD_FAILURE() << "DoModal returned";
        } catch (const std::runtime_error& error) {
            EXPECT_STREQ(where, error.what());
        }
        EXPECT_EQ(nullptr, dialog.m_hWnd);
        EXPECT_FALSE(::IsWindow(dialog.hWndSeen));
        EXPECT_TRUE(dialog.Logged("destroy"));
        EXPECT_FALSE(dialog.Logged("after send"));
        EXPECT_TRUE(owner.IsWindowEnabled());
    }
}

TEST(Dialog, MissingTemplateFailsWithTheSystemsReason)
{
    TestDialog dialog(nullptr, IDD_MISSING);
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_EQ(static_cast<DWORD>(ERROR_RESOURCE_NAME_NOT_FOUND), ::GetLastError());
    EXPECT_TRUE(dialog.log.empty());
}

// Binds a control the template does not have.
class MissingControlDialog : public CDialog {
public:
    MissingControlDialog() : CDialog(IDD_BASIC) {}
    BOOL updated = TRUE;

protected:
    void DoDataExchange(CDataExchange* pDX) override { DDX_Control(pDX, IDC_ABSENT, m_absent); }
    BOOL OnInitDialog() override
    {
        updated = UpdateData(FALSE);
        return CDialog::OnInitDialog();
    }
    CWnd m_absent;
};

TEST(Dialog, DataExchangeWithAMissingControlFailsAndEndsTheDialog)
{
    MissingControlDialog dialog;
    EXPECT_EQ(-1, dialog.DoModal());
    EXPECT_FALSE(dialog.updated);
}

TEST(Dialog, ParentIsDisabledWhileTheDialogRuns)
{
    CWnd parent;
    ASSERT_TRUE(parent.Create(AfxRegisterWndClass(0), L"parent", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                              CRect(0, 0, 300, 200), nullptr, 0));
    TestDialog dialog(&parent);
    BOOL enabledDuring = TRUE;
    HWND ownerDuring = nullptr;
    CWnd* mainDuring = nullptr;
    dialog.onInit = [&](TestDialog& d) {
        d.Post([&](TestDialog& running) {
            enabledDuring = parent.IsWindowEnabled();
            ownerDuring = ::GetWindow(running.m_hWnd, GW_OWNER);
            mainDuring = AfxGetMainWnd();
            running.EndDialog(IDOK);
        });
    };
    EXPECT_EQ(IDOK, dialog.DoModal());
    EXPECT_FALSE(enabledDuring);
    EXPECT_EQ(parent.m_hWnd, ownerDuring);
    EXPECT_EQ(&dialog, mainDuring);
    EXPECT_TRUE(parent.IsWindowEnabled());
    EXPECT_EQ(nullptr, AfxGetMainWnd());
}

TEST(Dialog, ControlsAnswerThroughTheirWrappers)
{
    TestDialog dialog;
    dialog.onInit = [](TestDialog& d) {
        CWnd* label = d.GetDlgItem(IDC_LABEL);
        ASSERT_NE(nullptr, label);
        EXPECT_EQ(&d, label->GetParent());
        label->ShowWindow(SW_HIDE);
        EXPECT_FALSE(label->IsWindowVisible());
        EXPECT_EQ(nullptr, d.GetDlgItem(IDC_ABSENT));

        d.m_edit.SetFocus();  // EN_SETFOCUS comes back through the map
        EXPECT_EQ(&d.m_edit, CWnd::GetFocus());
        EXPECT_TRUE(d.Logged("edit focus"));

        d.m_progress.SetRange(0, 100);
        EXPECT_EQ(0, d.m_progress.SetPos(40));
        d.m_progress.SetStep(10);
        EXPECT_EQ(40, d.m_progress.StepIt());
        EXPECT_EQ(50, d.m_progress.GetPos());
        d.EndDialog(IDOK);
    };
    EXPECT_EQ(IDOK, dialog.DoModal());

    CProgressCtrl unbound;
    EXPECT_EQ(0, unbound.SetPos(10));
    EXPECT_EQ(0, unbound.GetPos());
}

}  // namespace
