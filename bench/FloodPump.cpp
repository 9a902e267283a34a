#include "FloodPump.h"

#include "Stopwatch.h"

namespace {

constexpr UINT kReportMessage = WM_APP + 1;

}  // namespace

FloodPump::FloodPump(std::function<void(long long n)> receive) : m_receive(std::move(receive))
{
    m_window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    SetWindowLongPtrW(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&FloodPump::windowProc));
}

FloodPump::~FloodPump()
{
    stop();
    DestroyWindow(m_window);
}

void FloodPump::start(double ratePerSecond)
{
    m_running = true;
    m_producer = std::thread([this, ratePerSecond] { produce(ratePerSecond); });
}

void FloodPump::stop()
{
    m_running = false;
    if (m_producer.joinable()) {
        m_producer.join();
    }
}

void FloodPump::produce(double ratePerSecond)
{
    const Stopwatch watch;
    const long long first = m_posted;
    while (m_running) {
        const long long due = ratePerSecond > 0
                                  ? first + static_cast<long long>(watch.elapsedMicroseconds() * ratePerSecond / 1e6)
                                  : m_handled + kFullPaceWindow;
        while (m_posted < due && m_running) {
            PostMessageW(m_window, kReportMessage, static_cast<WPARAM>(m_posted), 0);
            ++m_posted;
        }
        ratePerSecond > 0 ? Sleep(1) : std::this_thread::yield();
    }
}

LRESULT CALLBACK FloodPump::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* self = reinterpret_cast<FloodPump*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message != kReportMessage || self == nullptr) {
        return DefWindowProcW(window, message, wParam, lParam);
    }
    const auto n = static_cast<long long>(wParam);
    self->m_receive(n);
    self->m_handled = n + 1;
    return 0;
}
