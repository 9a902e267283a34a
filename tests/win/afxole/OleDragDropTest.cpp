// OLE drag and drop for real: a window of this process registered as drop target, a drag
// started with COleDataSource::DoDragDrop, and mouse and key input injected with SendInput
// from a thread timer that the drag loops dispatch.
#include <afxole.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace {

// Screen place of the test window; client points below are relative to it.
constexpr RECT kWindowRect{120, 120, 520, 420};
const CPoint kSource(40, 40);
const CPoint kTarget(250, 200);
// The target refuses drops left of this client x, and whenever Ctrl is held.
constexpr int kRefuseLeftOf = 100;
constexpr SIZE_T kBlockSize = 1024;
constexpr CLIPFORMAT kFormat = 2;  // the standard bitmap format number; the content is zeros

CPoint Offset(CPoint p, int dx, int dy)
{
    return CPoint(p.x + dx, p.y + dy);
}

struct Call {
    std::string what;
    CPoint point;
    DWORD keys;
    DROPEFFECT effect;
};

class RecordingTarget : public COleDropTarget {
public:
    std::vector<Call> calls;
    BOOL acceptDrop = TRUE;
    bool dataAtEnter = false;
    SIZE_T droppedSize = 0;
    bool droppedZeros = false;

    HWND RegisteredWindow() const { return m_hWnd; }
    int Count(const std::string& what) const
    {
        int n = 0;
        for (const Call& call : calls) {
            n += call.what == what ? 1 : 0;
        }
        return n;
    }
    const Call* Last(const std::string& what) const
    {
        for (auto it = calls.rbegin(); it != calls.rend(); ++it) {
            if (it->what == what) {
                return &*it;
            }
        }
        return nullptr;
    }

    DROPEFFECT OnDragEnter(CWnd*, COleDataObject* pData, DWORD keys, CPoint point) override
    {
        calls.push_back({"enter", point, keys, DROPEFFECT_NONE});
        dataAtEnter = pData->IsDataAvailable(kFormat) != FALSE;
        return DROPEFFECT_MOVE;
    }
    DROPEFFECT OnDragOver(CWnd*, COleDataObject*, DWORD keys, CPoint point) override
    {
        calls.push_back({"over", point, keys, DROPEFFECT_NONE});
        return point.x < kRefuseLeftOf || (keys & MK_CONTROL) != 0 ? DROPEFFECT_NONE
                                                                   : DROPEFFECT_MOVE;
    }
    BOOL OnDrop(CWnd*, COleDataObject* pData, DROPEFFECT effect, CPoint point) override
    {
        calls.push_back({"drop", point, 0, effect});
        HGLOBAL block = pData->GetGlobalData(kFormat);
        if (block != nullptr) {
            droppedSize = ::GlobalSize(block);
            const auto* bytes = static_cast<const unsigned char*>(::GlobalLock(block));
            droppedZeros = bytes != nullptr;
            for (SIZE_T i = 0; bytes != nullptr && i < droppedSize; ++i) {
                droppedZeros = droppedZeros && bytes[i] == 0;
            }
            ::GlobalUnlock(block);
            ::GlobalFree(block);
        }
        return acceptDrop;
    }
    void OnDragLeave(CWnd* pWnd) override
    {
        calls.push_back({"leave", CPoint(), 0, DROPEFFECT_NONE});
        COleDropTarget::OnDragLeave(pWnd);
    }
};

// One injected input: a move to a client point, a left press or release, a key.
struct Step {
    enum Kind { Move, Down, Up, KeyDown, KeyUp } kind;
    CPoint point;
    WORD vk;
};

Step MoveTo(CPoint p) { return {Step::Move, p, 0}; }
Step Press() { return {Step::Down, CPoint(), 0}; }
Step Release() { return {Step::Up, CPoint(), 0}; }
Step KeyDown(WORD vk) { return {Step::KeyDown, CPoint(), vk}; }
Step KeyUp(WORD vk) { return {Step::KeyUp, CPoint(), vk}; }

void Inject(const Step& step)
{
    INPUT input{};
    if (step.kind == Step::KeyDown || step.kind == Step::KeyUp) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = step.vk;
        input.ki.dwFlags = step.kind == Step::KeyUp ? KEYEVENTF_KEYUP : 0;
    } else {
        input.type = INPUT_MOUSE;
        if (step.kind == Step::Move) {
            const int cx = ::GetSystemMetrics(SM_CXSCREEN) - 1;
            const int cy = ::GetSystemMetrics(SM_CYSCREEN) - 1;
            input.mi.dx = MulDiv(kWindowRect.left + step.point.x, 65535, cx);
            input.mi.dy = MulDiv(kWindowRect.top + step.point.y, 65535, cy);
            input.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
        } else {
            input.mi.dwFlags = step.kind == Step::Down ? MOUSEEVENTF_LEFTDOWN : MOUSEEVENTF_LEFTUP;
        }
    }
    ::SendInput(1, &input, sizeof(input));
}

// The steps still to inject during a drag, one per timer tick (a TIMERPROC has no context).
std::vector<Step> g_pending;
size_t g_next = 0;

void CALLBACK InjectNext(HWND, UINT, UINT_PTR, DWORD)
{
    if (g_next < g_pending.size()) {
        Inject(g_pending[g_next++]);
    }
}

// Pumps this thread's messages until the condition holds; false when it never did.
template <class Condition>
bool PumpUntil(Condition condition)
{
    for (int i = 0; i < 200 && !condition(); ++i) {
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
        MSG msg;
        while (::PeekMessageW(&msg, nullptr, 0, 0, PM_REMOVE)) {
            ::TranslateMessage(&msg);
            ::DispatchMessageW(&msg);
        }
    }
    return condition();
}

bool LeftButtonDown()
{
    return (::GetKeyState(VK_LBUTTON) & 0x8000) != 0;
}

// One window for the suite: destroying a shown window costs Wine about two seconds.
class OleDragDropTest : public ::testing::Test {
protected:
    static void SetUpTestSuite()
    {
        ASSERT_TRUE(AfxOleInit());
        s_wnd = std::make_unique<CWnd>();
        ASSERT_TRUE(CreateTestWindow(*s_wnd));
    }
    static void TearDownTestSuite() { s_wnd.reset(); }

    static bool CreateTestWindow(CWnd& wnd)
    {
        LPCTSTR cls = AfxRegisterWndClass(0, ::LoadCursorW(nullptr, IDC_ARROW),
                                          ::GetSysColorBrush(COLOR_WINDOW));
        if (!wnd.Create(cls, L"Drop test", WS_POPUP | WS_VISIBLE, kWindowRect, nullptr, 0)) {
            return false;
        }
        ::SetForegroundWindow(wnd.m_hWnd);
        HWND hWnd = wnd.m_hWnd;
        return PumpUntil([hWnd] { return ::GetForegroundWindow() == hWnd; });
    }

    void SetUp() override
    {
        ASSERT_NE(s_wnd->m_hWnd, nullptr);
        ASSERT_TRUE(m_target.Register(s_wnd.get()));
    }

    void TearDown() override
    {
        ::KillTimer(nullptr, m_timer);
        // Leave no button or key held for the next test.
        for (const Step& step : {Release(), KeyUp(VK_CONTROL)}) {
            Inject(step);
        }
        PumpUntil([] { return !LeftButtonDown(); });
    }

    // Presses at the source, then runs DoDragDrop while the steps are injected one by one.
    DROPEFFECT Drag(std::vector<Step> steps, DWORD effects = DROPEFFECT_COPY | DROPEFFECT_MOVE)
    {
        Inject(MoveTo(kSource));
        Inject(Press());
        EXPECT_TRUE(PumpUntil(LeftButtonDown)) << "the injected press never arrived";
        HGLOBAL block = ::GlobalAlloc(GMEM_ZEROINIT, kBlockSize);
        m_source.CacheGlobalData(kFormat, block);
        g_pending = std::move(steps);
        g_next = 0;
        m_timer = ::SetTimer(nullptr, 0, 40, &InjectNext);
        const DROPEFFECT effect = m_source.DoDragDrop(effects);
        ::KillTimer(nullptr, m_timer);
        m_timer = 0;
        m_source.Empty();
        return effect;
    }

    static std::unique_ptr<CWnd> s_wnd;
    RecordingTarget m_target;
    COleDataSource m_source;
    UINT_PTR m_timer = 0;
};

std::unique_ptr<CWnd> OleDragDropTest::s_wnd;

TEST_F(OleDragDropTest, DropOnTheTargetDeliversTheBlockAndAnswersMove)
{
    const DROPEFFECT effect = Drag({MoveTo(Offset(kSource, 3, 3)), MoveTo(kTarget),
                                    MoveTo(Offset(kTarget, 1, 0)), Release()});
    EXPECT_EQ(effect, static_cast<DROPEFFECT>(DROPEFFECT_MOVE));
    ASSERT_GE(m_target.Count("enter"), 1);
    EXPECT_TRUE(m_target.dataAtEnter);
    EXPECT_GE(m_target.Count("over"), 1);
    ASSERT_EQ(m_target.Count("drop"), 1);
    EXPECT_EQ(m_target.Count("leave"), 0);
    const Call* drop = m_target.Last("drop");
    EXPECT_EQ(drop->point, Offset(kTarget, 1, 0)) << "points are in client coordinates";
    EXPECT_EQ(drop->effect, static_cast<DROPEFFECT>(DROPEFFECT_MOVE));
    EXPECT_EQ(m_target.calls.front().what, "enter");
    EXPECT_EQ(m_target.calls.back().what, "drop");
    EXPECT_EQ(m_target.droppedSize, kBlockSize);
    EXPECT_TRUE(m_target.droppedZeros);
}

// A drop where OnDragOver answers none ends in OnDragLeave, never in OnDrop.
TEST_F(OleDragDropTest, DropRefusedByOnDragOverEndsInLeave)
{
    struct Case {
        const char* name;
        std::vector<Step> steps;
    };
    const CPoint refused(kRefuseLeftOf - 20, kTarget.y);
    const std::vector<Case> cases = {
        {"left of the accepted area", {MoveTo(kTarget), MoveTo(refused), Release()}},
        // Under Wine the pointer moves of SendInput reset the modifier keys: Ctrl is pressed
        // after the last move.
        {"Ctrl held at the drop",
         {MoveTo(kTarget), MoveTo(Offset(kTarget, 2, 0)), KeyDown(VK_CONTROL), Release()}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        m_target.calls.clear();
        EXPECT_EQ(Drag(c.steps), static_cast<DROPEFFECT>(DROPEFFECT_NONE));
        EXPECT_EQ(m_target.Count("drop"), 0);
        EXPECT_EQ(m_target.Count("leave"), 1);
        Inject(KeyUp(VK_CONTROL));
    }
}

TEST_F(OleDragDropTest, DropRefusedByOnDropAnswersNone)
{
    m_target.acceptDrop = FALSE;
    EXPECT_EQ(Drag({MoveTo(kTarget), MoveTo(Offset(kTarget, 1, 1)), Release()}),
              static_cast<DROPEFFECT>(DROPEFFECT_NONE));
    EXPECT_EQ(m_target.Count("drop"), 1);
}

// The source allows copying only: the target's move becomes a copy.
TEST_F(OleDragDropTest, EffectIsLimitedToWhatTheSourceAllows)
{
    EXPECT_EQ(Drag({MoveTo(kTarget), MoveTo(Offset(kTarget, 1, 1)), Release()}, DROPEFFECT_COPY),
              static_cast<DROPEFFECT>(DROPEFFECT_COPY));
    ASSERT_EQ(m_target.Count("drop"), 1);
    EXPECT_EQ(m_target.Last("drop")->effect, static_cast<DROPEFFECT>(DROPEFFECT_COPY));
}

TEST_F(OleDragDropTest, EscapeCancelsTheDrag)
{
    EXPECT_EQ(Drag({MoveTo(kTarget), MoveTo(Offset(kTarget, 1, 1)), KeyDown(VK_ESCAPE),
                    KeyUp(VK_ESCAPE), Release()}),
              static_cast<DROPEFFECT>(DROPEFFECT_NONE));
    EXPECT_GE(m_target.Count("enter"), 1);
    EXPECT_EQ(m_target.Count("drop"), 0);
    EXPECT_EQ(m_target.Count("leave"), 1);
}

// Released inside the start rectangle, or not pressed at all: the drag never begins and the
// target hears nothing.
TEST_F(OleDragDropTest, NoDragWithoutAMoveWhileTheButtonIsDown)
{
    EXPECT_EQ(Drag({Release()}), static_cast<DROPEFFECT>(DROPEFFECT_NONE));
    ASSERT_TRUE(PumpUntil([] { return !LeftButtonDown(); }));
    EXPECT_EQ(m_source.DoDragDrop(), static_cast<DROPEFFECT>(DROPEFFECT_NONE));
    EXPECT_TRUE(m_target.calls.empty());
}

TEST_F(OleDragDropTest, RegistrationEndsWithRevokeAndWithTheWindow)
{
    EXPECT_FALSE(m_target.Register(s_wnd.get())) << "registered twice";
    EXPECT_EQ(m_target.RegisteredWindow(), s_wnd->m_hWnd);

    m_target.Revoke();
    EXPECT_EQ(m_target.RegisteredWindow(), nullptr);
    // The system no longer knows a target for the window: a new one can register.
    ASSERT_TRUE(m_target.Register(s_wnd.get()));
    m_target.Revoke();

    CWnd doomed;
    ASSERT_TRUE(CreateTestWindow(doomed));
    ASSERT_TRUE(m_target.Register(&doomed));
    doomed.DestroyWindow();
    EXPECT_EQ(m_target.RegisteredWindow(), nullptr) << "not revoked at WM_DESTROY";

    RecordingTarget unregistered;
    EXPECT_FALSE(unregistered.Register(nullptr));
    EXPECT_FALSE(unregistered.Register(&doomed)) << "the window is gone";
}

TEST(OleDataTest, DataObjectHandsOutCopiesOfTheCachedBlocks)
{
    COleDataSource source;
    HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, 4);
    {
        auto* bytes = static_cast<unsigned char*>(::GlobalLock(block));
        bytes[0] = 1; bytes[1] = 2; bytes[2] = 3; bytes[3] = 4;
        ::GlobalUnlock(block);
    }
    source.CacheGlobalData(kFormat, block);

    COleDataObject data;
    data.Attach(source.GetDataObject());
    EXPECT_TRUE(data.IsDataAvailable(kFormat));
    EXPECT_FALSE(data.IsDataAvailable(CF_TEXT));
    FORMATETC asStream{kFormat, nullptr, DVASPECT_CONTENT, -1, TYMED_ISTREAM};
    EXPECT_FALSE(data.IsDataAvailable(kFormat, &asStream));
    EXPECT_EQ(data.GetGlobalData(CF_TEXT), nullptr);

    HGLOBAL first = data.GetGlobalData(kFormat);
    HGLOBAL second = data.GetGlobalData(kFormat);
    ASSERT_NE(first, nullptr);
    EXPECT_NE(first, block);
    EXPECT_NE(first, second) << "each receiver owns its own copy";
    ASSERT_EQ(::GlobalSize(first), 4u);
    const auto* copied = static_cast<const unsigned char*>(::GlobalLock(first));
    EXPECT_EQ(copied[3], 4);
    ::GlobalUnlock(first);
    ::GlobalFree(first);
    ::GlobalFree(second);

    LPDATAOBJECT raw = data.GetIDataObject(FALSE);
    IDropTarget* notATarget = reinterpret_cast<IDropTarget*>(1);
    EXPECT_EQ(raw->QueryInterface(IID_IDropTarget, reinterpret_cast<void**>(&notATarget)),
              E_NOINTERFACE);
    EXPECT_EQ(notATarget, nullptr);
    IEnumFORMATETC* formats = nullptr;
    ASSERT_EQ(raw->EnumFormatEtc(DATADIR_GET, &formats), S_OK);
    FORMATETC listed{};
    ULONG fetched = 0;
    EXPECT_EQ(formats->Next(1, &listed, &fetched), S_OK);
    EXPECT_EQ(listed.cfFormat, kFormat);
    EXPECT_EQ(formats->Next(1, &listed, &fetched), S_FALSE) << "one format only";
    formats->Release();

    // A second block under the same format replaces the first.
    source.CacheGlobalData(kFormat, ::GlobalAlloc(GMEM_ZEROINIT, 16));
    HGLOBAL replaced = data.GetGlobalData(kFormat);
    ASSERT_NE(replaced, nullptr);
    EXPECT_EQ(::GlobalSize(replaced), 16u);
    ::GlobalFree(replaced);

    source.Empty();
    EXPECT_FALSE(data.IsDataAvailable(kFormat));
    EXPECT_EQ(data.GetGlobalData(kFormat), nullptr);

    data.Release();
    STGMEDIUM medium{};
    EXPECT_FALSE(data.IsDataAvailable(kFormat)) << "nothing attached";
    EXPECT_FALSE(data.GetData(kFormat, &medium));
}

}  // namespace
