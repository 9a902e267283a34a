#include "MouseDragSource.h"

#include <memory>

#include "resource.h"

namespace {

constexpr SIZE_T kDragDataSize = 1024;
constexpr int kMargin = 2;

// A global memory block owned until it is handed over.
struct GlobalFreeDeleter {
    void operator()(void* block) const { ::GlobalFree(block); }
};
using GlobalBlock = std::unique_ptr<void, GlobalFreeDeleter>;

}  // namespace

bool MouseDragSource::contains(CPoint p)
{
    CWinThread* pThread = AfxGetThread();
    CWnd* pMain = pThread != nullptr ? pThread->GetMainWnd() : nullptr;
    CWnd* pSource = pMain != nullptr ? pMain->GetDlgItem(IDC_DRAG_SOURCE) : nullptr;
    if (pSource == nullptr) {
        return false;
    }
    pMain->ClientToScreen(&p);
    CRect source;
    pSource->GetWindowRect(&source);
    source.InflateRect(kMargin, kMargin);
    return source.PtInRect(p) != FALSE;
}

bool MouseDragSource::drag()
{
    // Only the format matters to the target: 1024 zero bytes under the bitmap format's number.
    GlobalBlock block(::GlobalAlloc(GMEM_ZEROINIT, kDragDataSize));
    if (block == nullptr || ::GlobalLock(block.get()) == nullptr) {
        return false;
    }
    ::GlobalUnlock(block.get());
    m_dataSource.CacheGlobalData(CF_BITMAP, block.release());
    m_dataSource.DoDragDrop(DROPEFFECT_COPY | DROPEFFECT_MOVE);
    m_dataSource.Empty();
    return true;
}
