#include "touchq/RestingFinger.h"

#include <algorithm>

namespace touchq {

namespace {

template <typename Member>
double medianOf(const std::vector<RestingFinger::Sample>& samples, std::vector<std::int32_t>& scratch, Member member)
{
    scratch.clear();
    for (const auto& sample : samples) {
        scratch.push_back(sample.*member);
    }
    const auto middle = scratch.begin() + static_cast<std::ptrdiff_t>(scratch.size() / 2);
    std::nth_element(scratch.begin(), middle, scratch.end());
    return *middle;
}

}  // namespace

RestingFinger::RestingFinger(const PadScale& scale) : m_scale(scale)
{
    m_samples.reserve(kMostSamples);
    m_scratch.reserve(kMostSamples);
}

void RestingFinger::add(std::int64_t timeUs, const std::vector<rawkit::ContactTracker::Finger>& fingers)
{
    if (fingers.size() != 1) {
        m_candidate = false;   // a second finger, or none: this touch is no rest
        return;
    }
    const rawkit::ContactTracker::Finger& finger = fingers.front();
    if (!m_id || *m_id != finger.contact.id || finger.downUs != m_downUs) {
        m_id = finger.contact.id;
        m_downUs = finger.downUs;
        m_candidate = measurable();
        m_samples.clear();
        m_downAt = Sample{finger.contact.x, finger.contact.y};
    }
    if (!m_candidate) {
        return;
    }
    if (*m_scale.micrometres(finger.contact.x - m_downAt.x, finger.contact.y - m_downAt.y) > kStillMicrons) {
        m_candidate = false;   // it moves: a sweep, not a rest
        return;
    }
    const std::int64_t held = timeUs - m_downUs;
    if (held >= kRestUs) {
        finish();
    } else if (held >= kSettleUs && m_samples.size() < kMostSamples) {
        m_samples.push_back(Sample{finger.contact.x, finger.contact.y});
    }
}

void RestingFinger::finish()
{
    m_candidate = false;
    if (m_samples.empty()) {
        return;
    }
    const double x = medianOf(m_samples, m_scratch, &Sample::x);
    const double y = medianOf(m_samples, m_scratch, &Sample::y);
    double largest = 0.0;
    for (const Sample& sample : m_samples) {
        largest = std::max(largest, *m_scale.micrometres(sample.x - x, sample.y - y));
    }
    if (largest > kStillMicrons) {
        return;   // it moved: a sweep that began, not a rest
    }
    ++m_rests;
    m_jitter = m_jitter ? std::min(*m_jitter, largest) : largest;
}

std::int64_t RestingFinger::restingUs(std::int64_t nowUs) const
{
    return m_candidate ? std::max<std::int64_t>(0, nowUs - m_downUs) : 0;
}

}  // namespace touchq
