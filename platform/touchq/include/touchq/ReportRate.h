#pragma once
// How often the pad reports while fingers move: the intervals between complete frames, kept
// apart for one finger and for three fingers or more (two fingers are neither). An interval
// counts when both frames have the same class of finger count and a finger moved in the later
// one; a gap of 100 ms or more is a pause, not an interval.
#include <cstdint>
#include <optional>
#include <vector>

#include "pointerq/IntervalHistogram.h"
#include "rawkit/ContactTracker.h"

namespace touchq {

class ReportRate {
public:
    enum Contacts { One, Several, ContactsKinds };
    static constexpr unsigned kSeveral = 3;

    // The fingers down after a frame of that time.
    void add(std::int64_t timeUs, const std::vector<rawkit::ContactTracker::Finger>& fingers);

    std::uint64_t intervals(Contacts kind) const { return m_histograms[kind].count(); }
    std::optional<double> percentileUs(Contacts kind, double fraction) const
    {
        return m_histograms[kind].percentileUs(fraction);
    }
    // 1 / the median interval; none without intervals.
    std::optional<double> rateHz(Contacts kind) const;

private:
    struct Position {
        std::uint32_t id;
        std::int32_t x;
        std::int32_t y;
    };
    static std::optional<Contacts> kindOf(std::size_t fingers);

    pointerq::IntervalHistogram m_histograms[ContactsKinds];
    std::optional<std::int64_t> m_lastUs;
    std::optional<Contacts> m_lastKind;
    std::vector<Position> m_last;   // the fingers of the frame before
};

}  // namespace touchq
