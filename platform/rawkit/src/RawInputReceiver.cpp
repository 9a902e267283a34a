#include "rawkit/RawInputReceiver.h"

#include <utility>

namespace rawkit {

namespace {

constexpr wchar_t kClassName[] = L"rawkitReceiver";
constexpr UINT_PTR kTimerId = 1;

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

void RawInputReceiver::WindowDeleter::operator()(HWND window) const
{
    DestroyWindow(window);
}

RawInputReceiver::RawInputReceiver(std::uint16_t usagePage, std::uint16_t usage, Handlers handlers)
    : m_usagePage(usagePage), m_usage(usage), m_handlers(std::move(handlers))
{
}

std::unique_ptr<RawInputReceiver> RawInputReceiver::start(std::uint16_t usagePage, std::uint16_t usage,
                                                          Handlers handlers)
{
    if (!registerClass(&RawInputReceiver::windowProc)) {
        return nullptr;
    }
    std::unique_ptr<RawInputReceiver> receiver(new RawInputReceiver(usagePage, usage, std::move(handlers)));
    HWND window = CreateWindowExW(0, kClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                  GetModuleHandleW(nullptr), receiver.get());
    if (window == nullptr) {
        return nullptr;
    }
    receiver->m_window.reset(window);
    // Input sink: the test hears the device while another window has the focus.
    if (!receiver->registerUsage(RIDEV_INPUTSINK | RIDEV_DEVNOTIFY, window)) {
        return nullptr;
    }
    receiver->m_registered = true;
    return receiver;
}

RawInputReceiver::~RawInputReceiver()
{
    if (m_registered) {
        registerUsage(RIDEV_REMOVE, nullptr);
    }
    if (m_window) {
        KillTimer(m_window.get(), kTimerId);
        // Messages still queued for the window must not reach a receiver that is gone.
        SetWindowLongPtrW(m_window.get(), GWLP_USERDATA, 0);
    }
}

bool RawInputReceiver::registerUsage(DWORD flags, HWND target) const
{
    RAWINPUTDEVICE device{};
    device.usUsagePage = m_usagePage;
    device.usUsage = m_usage;
    device.dwFlags = flags;
    device.hwndTarget = target;
    return RegisterRawInputDevices(&device, 1, sizeof(device)) != FALSE;
}

LRESULT CALLBACK RawInputReceiver::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    if (message == WM_NCCREATE) {
        const auto* creation = reinterpret_cast<const CREATESTRUCTW*>(lParam);
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(creation->lpCreateParams));
    }
    auto* receiver = reinterpret_cast<RawInputReceiver*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (receiver != nullptr) {
        if (message == WM_INPUT) {
            receiver->onInput(reinterpret_cast<HRAWINPUT>(lParam));
        } else if (message == WM_TIMER && wParam == kTimerId) {
            KillTimer(window, kTimerId);
            // Moved out first: the callback may arm the next one.
            const std::function<void()> callback = std::move(receiver->m_timer);
            if (callback) {
                callback();
            }
            return 0;
        } else if (message == WM_INPUT_DEVICE_CHANGE && wParam == GIDC_REMOVAL && receiver->m_handlers.removed) {
            receiver->m_handlers.removed(static_cast<std::uintptr_t>(lParam));
            return 0;
        }
    }
    // WM_INPUT must reach the default procedure, which frees the input.
    return DefWindowProcW(window, message, wParam, lParam);
}

void RawInputReceiver::after(unsigned ms, std::function<void()> callback)
{
    m_timer = std::move(callback);
    SetTimer(m_window.get(), kTimerId, ms, nullptr);
}

void RawInputReceiver::onInput(HRAWINPUT input)
{
    UINT size = 0;
    if (GetRawInputData(input, RID_INPUT, nullptr, &size, sizeof(RAWINPUTHEADER)) != 0 || size == 0) {
        return;
    }
    m_buffer.resize((size + sizeof(std::uint64_t) - 1) / sizeof(std::uint64_t));
    if (GetRawInputData(input, RID_INPUT, m_buffer.data(), &size, sizeof(RAWINPUTHEADER)) == static_cast<UINT>(-1)) {
        return;
    }
    if (m_handlers.input) {
        m_handlers.input(*reinterpret_cast<const RAWINPUT*>(m_buffer.data()));
    }
}

}  // namespace rawkit
