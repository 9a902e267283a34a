#pragma once
// How still a resting finger is reported: a finger alone on the pad for 2 s that stays within
// 5 mm of where it touched and of the median of its positions after the first 200 ms (the
// fingertip settling as it is pressed) is a rest; its jitter is the largest distance of those
// positions from their median.
// The figure kept is that of the stillest rest seen: a person may shift a finger during one
// rest, but a pad that trembles trembles in every rest.
#include <cstdint>
#include <optional>
#include <vector>

#include "rawkit/ContactTracker.h"
#include "touchq/PadScale.h"

namespace touchq {

class RestingFinger {
public:
    static constexpr std::int64_t kRestUs = 2000000;
    static constexpr std::int64_t kSettleUs = 200000;
    static constexpr double kStillMicrons = 5000.0;   // beyond this the finger moves, it does not rest
    static constexpr std::size_t kMostSamples = 4096; // positions of one rest kept (a 2 kHz pad fits)

    explicit RestingFinger(const PadScale& scale);

    // The fingers down after a frame of that time.
    void add(std::int64_t timeUs, const std::vector<rawkit::ContactTracker::Finger>& fingers);

    // False when the pad's size is unknown: no distance can then be given in micrometres.
    bool measurable() const { return m_scale.known(); }
    unsigned rests() const { return m_rests; }
    // Of the stillest rest; none before the first.
    std::optional<double> jitterMicrons() const { return m_jitter; }
    // How long the finger alone now has rested (0 when none does), for the dialog.
    std::int64_t restingUs(std::int64_t nowUs) const;

    // One position of a rest.
    struct Sample {
        std::int32_t x;
        std::int32_t y;
    };

private:
    void finish();

    PadScale m_scale;
    std::optional<std::uint32_t> m_id;     // the finger alone now, or last
    std::int64_t m_downUs = 0;
    Sample m_downAt{};                     // where it touched
    bool m_candidate = false;              // its touch may still become a rest
    std::vector<Sample> m_samples;
    std::vector<std::int32_t> m_scratch;   // for the medians
    unsigned m_rests = 0;
    std::optional<double> m_jitter;
};

}  // namespace touchq
