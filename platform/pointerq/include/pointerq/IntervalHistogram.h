#pragma once
// Intervals between reports, counted in bins of 10 microseconds up to 100 ms: percentiles of any
// number of intervals in fixed memory.
#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace pointerq {

class IntervalHistogram {
public:
    static constexpr std::int64_t kBinUs = 10;
    static constexpr std::int64_t kLimitUs = 100000;   // longer gaps are pauses, not intervals
    static constexpr std::size_t kBins = kLimitUs / kBinUs;

    // False (and nothing counted) for an interval of kLimitUs or more.
    bool add(std::int64_t intervalUs);
    std::uint64_t count() const { return m_count; }
    // The interval below which this fraction of them lies (0.5 the median); none when empty.
    std::optional<double> percentileUs(double fraction) const;
    // Intervals longer than limitUs.
    std::uint64_t countAbove(double limitUs) const;
    // Counts of bins grouped into `columns` equal spans up to spanUs, for a picture.
    template <std::size_t N>
    std::array<std::uint64_t, N> columns(std::int64_t spanUs) const
    {
        std::array<std::uint64_t, N> out{};
        const std::size_t used = static_cast<std::size_t>(std::min<std::int64_t>(spanUs, kLimitUs) / kBinUs);
        for (std::size_t bin = 0; bin < used && used > 0; ++bin) {
            out[bin * N / used] += m_bins[bin];
        }
        return out;
    }

private:
    std::array<std::uint64_t, kBins> m_bins{};
    std::uint64_t m_count = 0;
};

}  // namespace pointerq
