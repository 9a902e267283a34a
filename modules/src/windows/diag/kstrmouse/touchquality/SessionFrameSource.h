#pragma once
// The frames of a recorded session (format version 2) or HID recording replayed on the dialog's thread, through a
// hidden message-only window: a timer waits for a frame not yet due; frames already due are
// delivered together, a bounded number at a time, so that timers and paints get their turn.
#include <windows.h>

#include <cstdint>
#include <memory>
#include <type_traits>
#include <vector>

#include "FrameSource.h"
#include "quality/MicrosecondClock.h"
#include "touchq/FrameReplay.h"

class SessionFrameSource : public FrameSource {
public:
    // speed: recorded time per wall time, 0 unpaced; loop: start again after the last frame;
    // malformed: the frames the file's reports could not make (a HID recording's).
    static Factory of(std::vector<rawkit::TouchFrame> frames, double speed, bool loop, unsigned long malformed);

    SessionFrameSource(touchq::FrameReplay replay, Sink sink, unsigned long malformed);
    ~SessionFrameSource() override;
    SessionFrameSource(const SessionFrameSource&) = delete;
    SessionFrameSource& operator=(const SessionFrameSource&) = delete;
    bool started() const { return m_window != nullptr; }

    std::int64_t nowUs() const override;
    unsigned long malformedFrames() const override { return m_malformed; }

private:
    struct WindowDeleter {
        void operator()(HWND window) const;
    };
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void deliverDue();
    void schedule();
    std::int64_t wallUs() const;

    touchq::FrameReplay m_replay;
    Sink m_sink;
    unsigned long m_malformed;
    MicrosecondClock m_clock;
    std::int64_t m_startUs;
    std::unique_ptr<std::remove_pointer_t<HWND>, WindowDeleter> m_window;
    // Expires with the source: the sink may end the dialog, and with it this source.
    std::shared_ptr<char> m_alive = std::make_shared<char>();
};
