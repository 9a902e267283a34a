#include "pointerq/IntervalHistogram.h"

namespace pointerq {

bool IntervalHistogram::add(std::int64_t intervalUs)
{
    if (intervalUs < 0 || intervalUs >= kLimitUs) {
        return false;
    }
    ++m_bins[static_cast<std::size_t>(intervalUs / kBinUs)];
    ++m_count;
    return true;
}

std::optional<double> IntervalHistogram::percentileUs(double fraction) const
{
    if (m_count == 0) {
        return std::nullopt;
    }
    // The first bin at which the running count reaches the wanted rank; its middle stands for it.
    const double rank = fraction * static_cast<double>(m_count);
    std::uint64_t seen = 0;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        seen += m_bins[bin];
        if (m_bins[bin] > 0 && static_cast<double>(seen) >= rank) {
            return (static_cast<double>(bin) + 0.5) * kBinUs;
        }
    }
    return (static_cast<double>(kBins) - 0.5) * kBinUs;
}

std::uint64_t IntervalHistogram::countAbove(double limitUs) const
{
    std::uint64_t above = 0;
    for (std::size_t bin = 0; bin < kBins; ++bin) {
        if (static_cast<double>(bin * kBinUs) > limitUs) {
            above += m_bins[bin];
        }
    }
    return above;
}

}  // namespace pointerq
