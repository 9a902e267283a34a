#pragma once
// Per button, its presses and its chatter: a press that follows a release of the same button by
// less than the threshold. A worn switch bounces within a few milliseconds; a person cannot let go
// and press again that fast, so deliberate double clicks never count.
#include <array>
#include <cstdint>
#include <optional>

#include "pointerq/TimedReport.h"

namespace pointerq {

class ButtonChatter {
public:
    enum Button { Left, Right, Middle, Back, Forward, ButtonCount };
    struct Counts {
        std::uint32_t presses = 0;
        std::uint32_t chatter = 0;
        std::optional<std::int64_t> shortestGapUs;   // of the chatter
    };

    explicit ButtonChatter(std::int64_t thresholdUs);

    void add(const TimedReport& report);
    const Counts& counts(Button button) const { return m_counts[button]; }
    static const char* name(Button button);   // "left", "right", "middle", "back", "forward"

private:
    std::int64_t m_thresholdUs;
    std::array<Counts, ButtonCount> m_counts{};
    std::array<std::optional<std::int64_t>, ButtonCount> m_releasedUs{};
};

}  // namespace pointerq
