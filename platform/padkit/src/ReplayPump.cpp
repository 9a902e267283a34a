#include "ReplayPump.h"

#include <cmath>
#include <utility>

namespace padkit {

namespace {

constexpr wchar_t kClassName[] = L"padkitReplayPump";
constexpr UINT_PTR kTimerId = 1;
constexpr UINT kDeliverMessage = WM_APP + 1;
constexpr UINT kStoppedMessage = WM_APP + 2;
constexpr int kMostPerWakeUp = 8;

bool registerClass(WNDPROC windowProc)
{
    WNDCLASSEXW windowClass{};
    windowClass.cbSize = sizeof(windowClass);
    windowClass.lpfnWndProc = windowProc;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClassName;
    return RegisterClassExW(&windowClass) != 0 || GetLastError() == ERROR_CLASS_ALREADY_EXISTS;
}

}  // namespace

void ReplayPump::WindowDeleter::operator()(HWND window) const
{
    DestroyWindow(window);
}

ReplayPump::ReplayPump(ReplayCursor cursor, Deliver deliver, Stopped stopped)
    : m_cursor(std::move(cursor)), m_deliver(std::move(deliver)), m_stopped(std::move(stopped)), m_lastDue(Clock::now())
{
}

std::unique_ptr<ReplayPump> ReplayPump::start(ReplayCursor cursor, Deliver deliver, Stopped stopped)
{
    if (!registerClass(&ReplayPump::windowProc)) {
        return nullptr;
    }
    std::unique_ptr<ReplayPump> pump(new ReplayPump(std::move(cursor), std::move(deliver), std::move(stopped)));
    HWND window = CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  GetModuleHandleW(nullptr), pump.get());
    if (window == nullptr) {
        return nullptr;
    }
    pump->m_window.reset(window);
    pump->schedule();
    return pump;
}

ReplayPump::~ReplayPump()
{
    if (m_window) {
        KillTimer(m_window.get(), kTimerId);
        // Messages still queued for the window must not reach a pump that is gone.
        SetWindowLongPtrW(m_window.get(), GWLP_USERDATA, 0);
    }
}

void ReplayPump::reopen()
{
    m_cursor.reopen();
    KillTimer(m_window.get(), kTimerId);
    m_pending = false;
    m_stopTold = false;
    m_lastDue = Clock::now();
    schedule();
}

LRESULT CALLBACK ReplayPump::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* pump = reinterpret_cast<ReplayPump*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (pump != nullptr && message == kStoppedMessage) {
        if (!pump->m_cursor.fault().empty() && !pump->m_cursor.delayToNext() && pump->m_stopped) {
            pump->m_stopped(pump->m_cursor.fault());
        }
        return 0;
    }
    if (pump != nullptr && pump->m_pending) {
        if (message == WM_TIMER && wParam == kTimerId) {
            KillTimer(window, kTimerId);
            pump->deliverDue();
            return 0;
        }
        if (message == kDeliverMessage && wParam == pump->m_ticket) {
            pump->deliverDue();
            return 0;
        }
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

std::optional<ReplayPump::Clock::time_point> ReplayPump::nextDue() const
{
    const std::optional<double> delay = m_cursor.delayToNext();
    if (!delay) {
        return std::nullopt;
    }
    return m_lastDue + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double, std::milli>(*delay));
}

void ReplayPump::schedule()
{
    const std::optional<Clock::time_point> due = nextDue();
    if (!due) {
        // Over; a fault in the file is told after the last good packet, once.
        if (!m_cursor.fault().empty() && !m_stopTold) {
            m_stopTold = true;
            PostMessageW(m_window.get(), kStoppedMessage, 0, 0);
        }
        return;
    }
    m_nextDue = *due;
    const double waitMs = std::chrono::duration<double, std::milli>(m_nextDue - Clock::now()).count();
    // Posted messages go before timers and paints: while those wait, a timer lets them in
    // between packets instead of a post starving them.
    const bool othersWaiting = (HIWORD(GetQueueStatus(QS_TIMER | QS_PAINT)) & (QS_TIMER | QS_PAINT)) != 0;
    m_pending = true;
    if (waitMs > 0.0 || othersWaiting) {
        const UINT ms = waitMs > 0.0 ? static_cast<UINT>(std::ceil(waitMs)) : USER_TIMER_MINIMUM;
        if (SetTimer(m_window.get(), kTimerId, ms, nullptr) != 0) {
            return;
        }
    }
    PostMessageW(m_window.get(), kDeliverMessage, ++m_ticket, 0);
}

void ReplayPump::deliverDue()
{
    m_pending = false;
    const std::weak_ptr<char> alive = m_alive;
    for (int delivered = 1;; ++delivered) {
        m_lastDue = m_nextDue;
        const long sequence = m_cursor.advance();
        const Packet packet = *m_cursor.current();
        const Deliver deliver = m_deliver;
        const std::optional<Clock::time_point> due = nextDue();
        const bool followsAtOnce = delivered < kMostPerWakeUp && due && *due <= Clock::now();
        if (followsAtOnce) {
            m_nextDue = *due;
        } else {
            // Scheduled first: the receiver may re-open the device or destroy this pump, after
            // which nothing here may be touched.
            schedule();
        }
        deliver(sequence, packet);
        // Done with this wake-up, gone, or re-opened (which schedules anew).
        if (!followsAtOnce || alive.expired() || m_pending) {
            return;
        }
    }
}

}  // namespace padkit
