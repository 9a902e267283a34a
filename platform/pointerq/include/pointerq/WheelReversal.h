#pragma once
// A wheel notch the wrong way: after a run of at least three notches in one direction, one notch
// the other way within a short window, and the run going on within the window after it. A worn
// encoder throws such single notches; a person who turns back turns more than one notch, or more
// slowly. Kept for the vertical and the horizontal wheel alike, one instance each.
#include <cstdint>
#include <optional>

namespace pointerq {

class WheelReversal {
public:
    static constexpr int kRun = 3;
    static constexpr std::int64_t kWindowUs = 150000;

    // One wheel report: amount in the platform's units (120 a notch; the sign is the direction).
    void add(std::int64_t timeUs, int amount);

    std::uint32_t notchesUp() const { return m_up; }
    std::uint32_t notchesDown() const { return m_down; }
    std::uint32_t reversals() const { return m_reversals; }

private:
    int m_direction = 0;          // of the current run
    int m_runLength = 0;
    bool m_stray = false;         // the last notch went against a run: the next one says whether it was thrown
    std::optional<std::int64_t> m_lastUs;
    std::uint32_t m_up = 0;
    std::uint32_t m_down = 0;
    std::uint32_t m_reversals = 0;
};

}  // namespace pointerq
