#pragma once
// Receives one kind of raw input (a HID usage page and usage) on the thread that starts it,
// whichever window has the focus, through a hidden message-only window; and hears when a device
// of that kind is removed. A process has one receiver per usage at a time: registering a usage
// again moves it to the newer window.
#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <type_traits>
#include <vector>

namespace rawkit {

class RawInputReceiver {
public:
    struct Handlers {
        std::function<void(const RAWINPUT& input)> input;
        std::function<void(std::uintptr_t device)> removed;
    };

    // Null, with GetLastError() telling why, when the window or the registration fails.
    static std::unique_ptr<RawInputReceiver> start(std::uint16_t usagePage, std::uint16_t usage, Handlers handlers);
    ~RawInputReceiver();
    RawInputReceiver(const RawInputReceiver&) = delete;
    RawInputReceiver& operator=(const RawInputReceiver&) = delete;

    HWND window() const { return m_window.get(); }
    // Calls back once, after ms on this thread's message loop; a later call replaces it.
    void after(unsigned ms, std::function<void()> callback);

private:
    struct WindowDeleter {
        void operator()(HWND window) const;
    };

    RawInputReceiver(std::uint16_t usagePage, std::uint16_t usage, Handlers handlers);
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void onInput(HRAWINPUT input);
    bool registerUsage(DWORD flags, HWND target) const;

    std::uint16_t m_usagePage;
    std::uint16_t m_usage;
    Handlers m_handlers;
    std::vector<std::uint64_t> m_buffer;   // RAWINPUT needs pointer alignment
    std::unique_ptr<std::remove_pointer_t<HWND>, WindowDeleter> m_window;
    bool m_registered = false;
    std::function<void()> m_timer;
};

}  // namespace rawkit
