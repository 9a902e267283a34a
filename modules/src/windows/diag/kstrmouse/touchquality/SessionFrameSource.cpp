#include "SessionFrameSource.h"

#include <utility>

namespace {

constexpr wchar_t kClassName[] = L"kstrTouchFrameReplay";
constexpr UINT_PTR kTimerId = 1;
constexpr UINT kDeliverMessage = WM_APP + 1;
constexpr int kMostPerWakeUp = 32;   // a burst of due frames gives timers and paints their turn after this many

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

FrameSource::Factory SessionFrameSource::of(std::vector<rawkit::TouchFrame> frames, double speed, bool loop,
                                            unsigned long malformed)
{
    return [frames = std::move(frames), speed, loop, malformed](Sink sink) -> std::unique_ptr<FrameSource> {
        auto source = std::make_unique<SessionFrameSource>(touchq::FrameReplay(frames, speed, loop), std::move(sink),
                                                           malformed);
        if (!source->started()) {
            return nullptr;
        }
        return source;
    };
}

void SessionFrameSource::WindowDeleter::operator()(HWND window) const
{
    DestroyWindow(window);
}

SessionFrameSource::SessionFrameSource(touchq::FrameReplay replay, Sink sink, unsigned long malformed)
    : m_replay(std::move(replay)), m_sink(std::move(sink)), m_malformed(malformed), m_startUs(m_clock.nowUs())
{
    if (!registerClass(&SessionFrameSource::windowProc)) {
        return;
    }
    m_window.reset(CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, GetModuleHandleW(nullptr),
                                   this));
    if (m_window) {
        schedule();
    }
}

SessionFrameSource::~SessionFrameSource()
{
    if (m_window) {
        KillTimer(m_window.get(), kTimerId);
        // Messages still queued for the window must not reach a source that is gone.
        SetWindowLongPtrW(m_window.get(), GWLP_USERDATA, 0);
    }
}

std::int64_t SessionFrameSource::wallUs() const
{
    return m_clock.nowUs() - m_startUs;
}

std::int64_t SessionFrameSource::nowUs() const
{
    return m_replay.positionUs(wallUs());
}

LRESULT CALLBACK SessionFrameSource::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* source = reinterpret_cast<SessionFrameSource*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (source != nullptr && ((message == WM_TIMER && wParam == kTimerId) || message == kDeliverMessage)) {
        KillTimer(window, kTimerId);
        source->deliverDue();
        return 0;
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

void SessionFrameSource::deliverDue()
{
    const std::weak_ptr<char> alive = m_alive;
    for (int delivered = 0; delivered < kMostPerWakeUp; ++delivered) {
        const std::optional<rawkit::TouchFrame> frame = m_replay.take(wallUs());
        if (!frame) {
            break;
        }
        m_sink(*frame);
        if (alive.expired()) {
            return;
        }
    }
    schedule();
}

void SessionFrameSource::schedule()
{
    const std::optional<std::int64_t> due = m_replay.nextDueUs();
    if (!due) {
        return;   // the recording is over
    }
    const std::int64_t waitUs = *due - wallUs();
    // Posted messages go before timers and paints: while those wait, a timer lets them in.
    const bool othersWaiting = (HIWORD(GetQueueStatus(QS_TIMER | QS_PAINT)) & (QS_TIMER | QS_PAINT)) != 0;
    if (waitUs > 0 || othersWaiting) {
        const UINT ms = waitUs > 0 ? static_cast<UINT>((waitUs + 999) / 1000) : USER_TIMER_MINIMUM;
        if (SetTimer(m_window.get(), kTimerId, ms, nullptr) != 0) {
            return;
        }
    }
    PostMessageW(m_window.get(), kDeliverMessage, 0, 0);
}
