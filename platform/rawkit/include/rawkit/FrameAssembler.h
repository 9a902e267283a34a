#pragma once
// Puts a precision touchpad's reports together into complete scans. A report with a non-zero
// contact count starts a frame of that many contacts; each report gives the frame as many of its
// finger collections as are still missing (all of them on a parallel device, one on a hybrid
// one), and reports with a count of 0 continue it. A frame is complete when all its contacts have
// come. A new non-zero count, or a new scan time, before that leaves the frame incomplete: it is
// counted, never given out. So is a frame whose contact ids repeat or exceed the declared maximum.
#include <cstdint>
#include <optional>

#include "rawkit/TouchFrame.h"

namespace rawkit {

class FrameAssembler {
public:
    explicit FrameAssembler(std::uint32_t maxContactId = 0xFFFFFFFFu);

    // The frame this report completes, if it completes one.
    std::optional<TouchFrame> add(const TouchReport& report, std::int64_t timeUs);

    // Frames that never completed, or that were malformed; they are not given out.
    unsigned long malformedFrames() const { return m_malformed; }

private:
    std::optional<TouchFrame> take(const TouchReport& report, std::int64_t timeUs);
    bool wellFormed(const TouchFrame& frame) const;
    void drop();

    std::uint32_t m_maxContactId;
    std::optional<TouchFrame> m_pending;
    unsigned m_expected = 0;
    unsigned long m_malformed = 0;
};

}  // namespace rawkit
