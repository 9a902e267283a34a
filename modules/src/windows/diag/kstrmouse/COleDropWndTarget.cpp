#include "COleDropWndTarget.h"

#include <memory>

#include "KstrMouseDlg.h"
#include "resource.h"

namespace {

// Drops this close to the dialog's top or left edge (client pixels) are refused.
constexpr int kMinDropX = 36;
constexpr int kMinDropY = 33;
constexpr int kTargetMargin = 2;

void ShowControl(CWnd* pWnd, int id, int nCmdShow)
{
    CWnd* pControl = pWnd != nullptr ? pWnd->GetDlgItem(id) : nullptr;
    if (pControl != nullptr) {
        pControl->ShowWindow(nCmdShow);
    }
}

// Owns the block that the data object handed over, and its lock while taken.
struct GlobalFreeDeleter {
    void operator()(void* block) const { ::GlobalFree(block); }
};
using GlobalBlock = std::unique_ptr<void, GlobalFreeDeleter>;

class GlobalLockScope {
public:
    explicit GlobalLockScope(HGLOBAL block) : m_block(block), m_pData(::GlobalLock(block)) {}
    ~GlobalLockScope()
    {
        if (m_pData != nullptr) {
            ::GlobalUnlock(m_block);
        }
    }
    GlobalLockScope(const GlobalLockScope&) = delete;
    GlobalLockScope& operator=(const GlobalLockScope&) = delete;

    bool locked() const { return m_pData != nullptr; }

private:
    HGLOBAL m_block;
    void* m_pData;
};

}  // namespace

COleDropWndTarget::COleDropWndTarget() : m_bDropped(false), m_bEntered(false) {}

COleDropWndTarget::~COleDropWndTarget() = default;

// The source picture travels with the pointer, so the dialog hides its own copy.
DROPEFFECT COleDropWndTarget::OnDragEnter(CWnd* pWnd, COleDataObject*, DWORD, CPoint)
{
    m_bEntered = true;
    ShowControl(pWnd, IDC_DRAG_SOURCE, SW_HIDE);
    return DROPEFFECT_MOVE;
}

DROPEFFECT COleDropWndTarget::OnDragOver(CWnd*, COleDataObject*, DWORD dwKeyState, CPoint point)
{
    if (point.x < kMinDropX || point.y < kMinDropY || (dwKeyState & MK_CONTROL) != 0) {
        return DROPEFFECT_NONE;
    }
    return DROPEFFECT_MOVE;
}

// Accepts a move of bitmap-format data onto the empty target; elsewhere the source returns.
BOOL COleDropWndTarget::OnDrop(CWnd* pWnd, COleDataObject* pDataObject, DROPEFFECT dropEffect,
                               CPoint point)
{
    CWinThread* pThread = AfxGetThread();
    CWnd* pMain = pThread != nullptr ? pThread->GetMainWnd() : nullptr;
    CWnd* pTarget = pMain != nullptr ? pMain->GetDlgItem(IDC_DROP_TARGET) : nullptr;
    if (pTarget != nullptr) {
        pMain->ClientToScreen(&point);
        CRect target;
        pTarget->GetWindowRect(&target);
        target.InflateRect(kTargetMargin, kTargetMargin);
        if (target.PtInRect(point) && m_bEntered) {
            if ((dropEffect & DROPEFFECT_MOVE) == 0) {
                return FALSE;
            }
            const GlobalBlock data(pDataObject != nullptr ? pDataObject->GetGlobalData(CF_BITMAP) : nullptr);
            if (data == nullptr) {
                return FALSE;
            }
            const GlobalLockScope lock(data.get());
            if (!lock.locked()) {
                return FALSE;
            }
            m_bDropped = true;
            if (auto* pDialog = dynamic_cast<CKstrMouseDlg*>(pMain)) {
                pDialog->StartDropTimer();
            }
            if (!CKstrMouseDlg::Windows10PE()) {
                ShowControl(pMain, IDC_DROP_TARGET, SW_HIDE);
                ShowControl(pMain, IDC_DROP_TARGET_FILLED, SW_SHOWNORMAL);
            }
            return TRUE;
        }
    }
    ShowControl(pMain != nullptr ? pMain : pWnd, IDC_DRAG_SOURCE, SW_SHOWNORMAL);
    return FALSE;
}

// The drag left, was cancelled or was refused: the pictures return to their start.
void COleDropWndTarget::OnDragLeave(CWnd* pWnd)
{
    COleDropTarget::OnDragLeave(pWnd);
    if (!CKstrMouseDlg::Windows10PE()) {
        ShowControl(pWnd, IDC_DROP_TARGET_FILLED, SW_HIDE);
        ShowControl(pWnd, IDC_DROP_TARGET, SW_SHOWNORMAL);
        ShowControl(pWnd, IDC_DRAG_SOURCE, SW_SHOWNORMAL);
    }
}
