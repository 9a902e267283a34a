// Message maps, handle binding and reflection on plain windows made with CWnd::Create.
#include <afxwin.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr UINT WM_APP_SUM = WM_APP + 1;
constexpr UINT WM_APP_THROW = WM_APP + 2;

// Records each handler call as "Name flags x y extra".
class ProbeWnd : public CWnd {
public:
    std::vector<std::string> calls;

    BOOL CreatePopup()
    {
        return Create(AfxRegisterWndClass(CS_DBLCLKS), L"probe", WS_POPUP, CRect(0, 0, 120, 80),
                      nullptr, 0);
    }
    bool Called(const std::string& name) const
    {
        for (const std::string& call : calls) {
            if (call.rfind(name, 0) == 0) {
                return true;
            }
        }
        return false;
    }

protected:
    void Add(const char* name, UINT flags = 0, CPoint p = CPoint(), int extra = 0)
    {
        calls.push_back(std::string(name) + " " + std::to_string(flags) + " " + std::to_string(p.x) +
                        " " + std::to_string(p.y) + " " + std::to_string(extra));
    }
    afx_msg int OnCreate(LPCREATESTRUCT create)
    {
        Add("Create");
        return CWnd::OnCreate(create);
    }
    afx_msg void OnLButtonDown(UINT f, CPoint p) { Add("LButtonDown", f, p); }
    afx_msg void OnRButtonUp(UINT f, CPoint p) { Add("RButtonUp", f, p); }
    afx_msg void OnMouseMove(UINT f, CPoint p) { Add("MouseMove", f, p); }
    afx_msg void OnXButtonDown(UINT f, UINT b, CPoint p) { Add("XButtonDown", f, p, static_cast<int>(b)); }
    afx_msg BOOL OnMouseWheel(UINT f, short delta, CPoint p)
    {
        Add("MouseWheel", f, p, delta);
        return TRUE;
    }
    afx_msg void OnMouseHWheel(UINT f, short delta, CPoint p) { Add("MouseHWheel", f, p, delta); }
    afx_msg void OnTimer(UINT_PTR id) { Add("Timer", 0, CPoint(), static_cast<int>(id)); }
    afx_msg void OnSysCommand(UINT id, LPARAM l) { Add("SysCommand", id, CPoint(l)); }
    afx_msg HCURSOR OnQueryDragIcon() { return ::LoadCursorW(nullptr, IDC_CROSS); }
    afx_msg BOOL OnSetCursor(CWnd* w, UINT hit, UINT message)
    {
        Add("SetCursor", hit, CPoint(), static_cast<int>(message));
        return w == this;
    }
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        Add("Paint", dc.GetSafeHdc() != nullptr);
    }
    afx_msg BOOL OnEraseBkgnd(CDC* dc)
    {
        Add("EraseBkgnd", dc->GetSafeHdc() != nullptr);
        return TRUE;
    }
    afx_msg HBRUSH OnCtlColor(CDC* dc, CWnd* w, UINT kind)
    {
        Add("CtlColor", dc->GetSafeHdc() != nullptr, CPoint(), static_cast<int>(kind));
        return CWnd::OnCtlColor(dc, w, kind);
    }
    afx_msg void OnDestroy()
    {
        Add("Destroy");
        CWnd::OnDestroy();
    }
    LRESULT OnSum(WPARAM a, LPARAM b) { return static_cast<LRESULT>(a) + b; }
    LRESULT OnThrow(WPARAM, LPARAM) { throw std::runtime_error("handler failed"); }

    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ProbeWnd, CWnd)
    ON_WM_CREATE()
    ON_WM_LBUTTONDOWN()
    ON_WM_RBUTTONUP()
    ON_WM_MOUSEMOVE()
    ON_WM_XBUTTONDOWN()
    ON_WM_MOUSEWHEEL()
    ON_WM_MOUSEHWHEEL()
    ON_WM_TIMER()
    ON_WM_SYSCOMMAND()
    ON_WM_QUERYDRAGICON()
    ON_WM_SETCURSOR()
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_WM_CTLCOLOR()
    ON_WM_DESTROY()
    ON_MESSAGE(WM_APP_SUM, &ProbeWnd::OnSum)
    ON_MESSAGE(WM_APP_THROW, &ProbeWnd::OnThrow)
END_MESSAGE_MAP()

// Overrides one handler of its base and adds none.
class DerivedWnd : public ProbeWnd {
protected:
    afx_msg void OnTimer(UINT_PTR id) { Add("DerivedTimer", 0, CPoint(), static_cast<int>(id)); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(DerivedWnd, ProbeWnd)
    ON_WM_TIMER()
END_MESSAGE_MAP()

TEST(MessageMap, HandlersReceiveTheDecodedParameters)
{
    struct {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        LRESULT result;
        const char* call;
    } const cases[] = {
        {WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-5, -7), 0, "LButtonDown 1 -5 -7 0"},
        {WM_RBUTTONUP, MK_SHIFT, MAKELPARAM(3, 4), 0, "RButtonUp 4 3 4 0"},
        {WM_MOUSEMOVE, MK_CONTROL, MAKELPARAM(300, 200), 0, "MouseMove 8 300 200 0"},
        {WM_XBUTTONDOWN, MAKEWPARAM(MK_XBUTTON2, XBUTTON2), MAKELPARAM(13, 14), TRUE,
         "XButtonDown 64 13 14 2"},
        {WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, static_cast<WORD>(-120)), MAKELPARAM(500, 400), TRUE,
         "MouseWheel 4 500 400 -120"},
        {WM_MOUSEHWHEEL, MAKEWPARAM(0, 240), MAKELPARAM(-1, 0), 0, "MouseHWheel 0 -1 0 240"},
        {WM_TIMER, 3, 0, 0, "Timer 0 0 0 3"},
        {WM_SYSCOMMAND, 0xF012, MAKELPARAM(21, 22), 0, "SysCommand 61458 21 22 0"},
        {WM_SETCURSOR, 0, MAKELPARAM(HTCLIENT, WM_MOUSEMOVE), 0, "SetCursor 1 0 0 512"},
    };
    ProbeWnd window;
    ASSERT_TRUE(window.CreatePopup());
    for (const auto& c : cases) {
        SCOPED_TRACE(c.call);
        window.calls.clear();
        EXPECT_EQ(c.result, window.SendMessage(c.message, c.wParam, c.lParam));
        EXPECT_EQ(std::vector<std::string>{c.call}, window.calls);
    }
    // Handlers whose value is the message's result.
    EXPECT_EQ(reinterpret_cast<LRESULT>(::LoadCursorW(nullptr, IDC_CROSS)),
              window.SendMessage(WM_QUERYDRAGICON));
    EXPECT_EQ(TRUE, window.SendMessage(WM_SETCURSOR, reinterpret_cast<WPARAM>(window.m_hWnd)));
    EXPECT_EQ(5, window.SendMessage(WM_APP_SUM, 2, 3));
}

TEST(MessageMap, DerivedEntriesComeFirstAndBaseEntriesStillApply)
{
    DerivedWnd window;
    ASSERT_TRUE(window.CreatePopup());
    EXPECT_TRUE(window.Called("Create"));
    window.calls.clear();
    window.SendMessage(WM_TIMER, 9);
    window.SendMessage(WM_LBUTTONDOWN, 0, MAKELPARAM(1, 1));
    const std::vector<std::string> expected = {"DerivedTimer 0 0 0 9", "LButtonDown 0 1 1 0"};
    EXPECT_EQ(expected, window.calls);
}

TEST(MessageMap, PaintUsesThePaintDeviceContextAndValidates)
{
    ProbeWnd window;
    ASSERT_TRUE(window.CreatePopup());
    window.ShowWindow(SW_SHOWNOACTIVATE);
    window.UpdateWindow();
    window.calls.clear();

    window.Invalidate();
    window.UpdateWindow();
    // BeginPaint inside CPaintDC sends WM_ERASEBKGND; EndPaint validates.
    const std::vector<std::string> expected = {"EraseBkgnd 1 0 0 0", "Paint 1 0 0 0"};
    EXPECT_EQ(expected, window.calls);
    EXPECT_FALSE(::GetUpdateRect(window.m_hWnd, nullptr, FALSE));
}

TEST(MessageMap, HandlerExceptionsComeOutOfSendMessage)
{
    ProbeWnd window;
    ASSERT_TRUE(window.CreatePopup());
    EXPECT_THROW(window.SendMessage(WM_APP_THROW), std::runtime_error);
    EXPECT_EQ(3, window.SendMessage(WM_APP_SUM, 1, 2));  // the window survives
}

// Refuses creation by throwing from OnCreate.
class FailingCreateWnd : public CWnd {
protected:
    afx_msg int OnCreate(LPCREATESTRUCT) { throw std::logic_error("no window"); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(FailingCreateWnd, CWnd)
    ON_WM_CREATE()
END_MESSAGE_MAP()

TEST(MessageMap, ExceptionFromOnCreateRefusesTheWindowAndComesOutOfCreate)
{
    FailingCreateWnd window;
    EXPECT_THROW(window.Create(AfxRegisterWndClass(0), L"x", WS_POPUP, CRect(0, 0, 10, 10),
                               nullptr, 0),
                 std::logic_error);
    EXPECT_EQ(nullptr, window.m_hWnd);
}

// Watches WM_SETTEXT and passes it on.
class TextWatcher : public CWnd {
public:
    std::wstring seen;

protected:
    LRESULT OnSetText(WPARAM, LPARAM text)
    {
        seen = reinterpret_cast<const wchar_t*>(text);
        return Default();
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TextWatcher, CWnd)
    ON_MESSAGE(WM_SETTEXT, &TextWatcher::OnSetText)
END_MESSAGE_MAP()

// A window made by plain Win32, destroyed with the test.
struct ForeignEdit {
    HWND hWnd = ::CreateWindowExW(0, L"EDIT", L"", WS_POPUP, 0, 0, 100, 20, nullptr, nullptr,
                                  nullptr, nullptr);
    ~ForeignEdit() { ::DestroyWindow(hWnd); }
};

TEST(Handles, SubclassingRoutesMessagesAndUnsubclassingRestoresTheProcedure)
{
    ForeignEdit edit;
    const LONG_PTR original = ::GetWindowLongPtrW(edit.hWnd, GWLP_WNDPROC);

    TextWatcher watcher;
    ASSERT_TRUE(watcher.SubclassWindow(edit.hWnd));
    EXPECT_FALSE(TextWatcher().SubclassWindow(edit.hWnd));  // one wrapper per window
    ::SetWindowTextW(edit.hWnd, L"typed");
    EXPECT_EQ(L"typed", watcher.seen);
    wchar_t text[16] = {};
    ::GetWindowTextW(edit.hWnd, text, 16);
    EXPECT_STREQ(L"typed", text);  // Default() reached the edit control's own procedure

    EXPECT_EQ(edit.hWnd, watcher.UnsubclassWindow());
    EXPECT_EQ(original, ::GetWindowLongPtrW(edit.hWnd, GWLP_WNDPROC));
    ::SetWindowTextW(edit.hWnd, L"again");
    EXPECT_EQ(L"typed", watcher.seen);
}

TEST(Handles, BoundWrappersAreReleasedAtDestructionEitherWay)
{
    ProbeWnd destroyed;
    ASSERT_TRUE(destroyed.CreatePopup());
    HWND first = destroyed.m_hWnd;
    EXPECT_TRUE(destroyed.DestroyWindow());
    EXPECT_TRUE(destroyed.Called("Destroy"));
    EXPECT_EQ(nullptr, destroyed.m_hWnd);  // released at WM_NCDESTROY
    EXPECT_EQ(nullptr, CWnd::FromHandlePermanent(first));

    HWND second = nullptr;
    {
        ProbeWnd dropped;
        ASSERT_TRUE(dropped.CreatePopup());
        second = dropped.m_hWnd;
    }
    EXPECT_FALSE(::IsWindow(second));  // the wrapper took its window along
}

// A child that answers reflected WM_CTLCOLORSTATIC with its own brush.
class ColouredChild : public CWnd {
public:
    HBRUSH brush = static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH));

protected:
    LRESULT OnReflectedColor(WPARAM, LPARAM) { return reinterpret_cast<LRESULT>(brush); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(ColouredChild, CWnd)
    ON_MESSAGE(WM_REFLECT_BASE + WM_CTLCOLORSTATIC, &ColouredChild::OnReflectedColor)
END_MESSAGE_MAP()

TEST(Reflection, CtlColorIsOfferedToTheChildWrapperFirst)
{
    ProbeWnd parent;
    ASSERT_TRUE(parent.CreatePopup());
    ColouredChild child;
    ASSERT_TRUE(child.Create(L"STATIC", L"", WS_CHILD, CRect(0, 0, 20, 20), &parent, 7));
    EXPECT_EQ(&child, parent.GetDlgItem(7));
    HWND plain = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 5, 5, parent.m_hWnd,
                                   nullptr, nullptr, nullptr);

    HDC dc = ::GetDC(parent.m_hWnd);
    parent.calls.clear();
    const auto colour = [&](HWND control) {
        return parent.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc),
                                  reinterpret_cast<LPARAM>(control));
    };
    EXPECT_EQ(reinterpret_cast<LRESULT>(child.brush), colour(child.m_hWnd));
    EXPECT_NE(reinterpret_cast<LRESULT>(child.brush), colour(plain));  // default handling
    ::ReleaseDC(parent.m_hWnd, dc);
    const std::vector<std::string> expected = {"CtlColor 1 0 0 6", "CtlColor 1 0 0 6"};
    EXPECT_EQ(expected, parent.calls);
}

}  // namespace
