#include "touchq/ReportRate.h"

#include <algorithm>

namespace touchq {

std::optional<ReportRate::Contacts> ReportRate::kindOf(std::size_t fingers)
{
    if (fingers == 1) {
        return One;
    }
    if (fingers >= kSeveral) {
        return Several;
    }
    return std::nullopt;
}

void ReportRate::add(std::int64_t timeUs, const std::vector<rawkit::ContactTracker::Finger>& fingers)
{
    const std::optional<Contacts> kind = kindOf(fingers.size());
    bool moved = false;
    for (const rawkit::ContactTracker::Finger& finger : fingers) {
        const auto before = std::find_if(m_last.begin(), m_last.end(),
                                         [&finger](const Position& p) { return p.id == finger.contact.id; });
        moved = moved || (before != m_last.end() && (before->x != finger.contact.x || before->y != finger.contact.y));
    }
    if (kind && m_lastUs && kind == m_lastKind && moved) {
        m_histograms[*kind].add(timeUs - *m_lastUs);   // a pause is not counted
    }
    m_lastUs = timeUs;
    m_lastKind = kind;
    m_last.clear();
    for (const rawkit::ContactTracker::Finger& finger : fingers) {
        m_last.push_back(Position{finger.contact.id, finger.contact.x, finger.contact.y});
    }
}

std::optional<double> ReportRate::rateHz(Contacts kind) const
{
    const std::optional<double> median = m_histograms[kind].percentileUs(0.5);
    if (!median || *median <= 0.0) {
        return std::nullopt;
    }
    return 1e6 / *median;
}

}  // namespace touchq
