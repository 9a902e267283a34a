#pragma once
// A flood of posted messages into a message-only window of this thread, one a report as Raw Input
// delivers them, from a thread of its own: at a rate, or at full pace (the next as soon as the
// receiver has taken the ones before, a fixed number in flight). Each message taken is handed to
// the receiver with its number.
#include <windows.h>

#include <atomic>
#include <functional>
#include <thread>

class FloodPump {
public:
    static constexpr long long kFullPaceWindow = 256;   // messages in flight at full pace

    explicit FloodPump(std::function<void(long long n)> receive);
    ~FloodPump();
    FloodPump(const FloodPump&) = delete;
    FloodPump& operator=(const FloodPump&) = delete;

    // ratePerSecond 0: full pace.
    void start(double ratePerSecond);
    void stop();
    long long posted() const { return m_posted; }
    long long handled() const { return m_handled; }

private:
    void produce(double ratePerSecond);
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::function<void(long long n)> m_receive;
    HWND m_window;
    std::thread m_producer;
    std::atomic<bool> m_running{false};
    std::atomic<long long> m_posted{0};
    std::atomic<long long> m_handled{0};
};
