#pragma once
// Delivers a replay's packets one at a time on the thread that made it, through a hidden
// message-only window: a timer waits for a packet that is not due yet, a posted message takes
// one that is (unpaced, or late). Packets already due when one is delivered follow it at once,
// a few at most, before the message loop gets its turn again: each wake-up of the loop costs
// about as much as a packet's repaint. A fault found later in the file stops the delivery after
// the last good packet and is told once, as a live device that stops is.
#include <windows.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <type_traits>

#include "padkit/ReplayCursor.h"

namespace padkit {

class ReplayPump {
public:
    using Deliver = std::function<void(long sequence, const Packet& packet)>;
    using Stopped = std::function<void(const std::string& fault)>;

    // Null when the window cannot be made. Delivery starts with the message loop.
    static std::unique_ptr<ReplayPump> start(ReplayCursor cursor, Deliver deliver, Stopped stopped);
    ~ReplayPump();
    ReplayPump(const ReplayPump&) = delete;
    ReplayPump& operator=(const ReplayPump&) = delete;

    // Carries on with the file opened afresh, pacing anew from now; a SessionError when it cannot
    // be opened.
    void reopen();
    const ReplayCursor& cursor() const { return m_cursor; }

private:
    using Clock = std::chrono::steady_clock;
    struct WindowDeleter {
        void operator()(HWND window) const;
    };

    ReplayPump(ReplayCursor cursor, Deliver deliver, Stopped stopped);
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    // When the next packet is due; nothing when the session is over.
    std::optional<Clock::time_point> nextDue() const;
    void schedule();
    void deliverDue();

    ReplayCursor m_cursor;
    Deliver m_deliver;
    Stopped m_stopped;
    bool m_stopTold = false;
    std::unique_ptr<std::remove_pointer_t<HWND>, WindowDeleter> m_window;
    Clock::time_point m_lastDue;   // when the packet last delivered was due
    Clock::time_point m_nextDue;
    bool m_pending = false;        // a timer or a posted message will deliver the next packet
    WPARAM m_ticket = 0;           // tells the posted message of this schedule from stale ones
    // Expires with the pump: a receiver may destroy it while taking a packet.
    std::shared_ptr<char> m_alive = std::make_shared<char>();
};

}  // namespace padkit
