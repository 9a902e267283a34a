#include "rawkit/FrameAssembler.h"

#include <algorithm>
#include <utility>

namespace rawkit {

FrameAssembler::FrameAssembler(std::uint32_t maxContactId) : m_maxContactId(maxContactId) {}

void FrameAssembler::drop()
{
    if (m_pending) {
        ++m_malformed;
        m_pending.reset();
    }
}

bool FrameAssembler::wellFormed(const TouchFrame& frame) const
{
    for (std::size_t i = 0; i < frame.contacts.size(); ++i) {
        if (frame.contacts[i].id > m_maxContactId) {
            return false;
        }
        for (std::size_t j = 0; j < i; ++j) {
            if (frame.contacts[j].id == frame.contacts[i].id) {
                return false;
            }
        }
    }
    return true;
}

std::optional<TouchFrame> FrameAssembler::take(const TouchReport& report, std::int64_t timeUs)
{
    const std::size_t wanted = m_expected - m_pending->contacts.size();
    const std::size_t given = std::min(wanted, report.slots.size());
    m_pending->contacts.insert(m_pending->contacts.end(), report.slots.begin(),
                               report.slots.begin() + static_cast<std::ptrdiff_t>(given));
    // A button held in any report of the scan is held in the frame.
    m_pending->buttons |= report.buttons;
    m_pending->timeUs = timeUs;
    if (m_pending->contacts.size() < m_expected) {
        return std::nullopt;
    }
    std::optional<TouchFrame> frame = std::exchange(m_pending, std::nullopt);
    if (!wellFormed(*frame)) {
        ++m_malformed;
        return std::nullopt;
    }
    return frame;
}

std::optional<TouchFrame> FrameAssembler::add(const TouchReport& report, std::int64_t timeUs)
{
    // A device without a contact count sends every contact of a scan in one report.
    const unsigned count = report.contactCount.value_or(static_cast<unsigned>(report.slots.size()));
    const bool newScan = m_pending && report.scanTime && m_pending->scanTime && *report.scanTime != *m_pending->scanTime;
    if (count > 0 || newScan) {
        drop();
    }
    if (count > 0) {
        m_pending = TouchFrame{timeUs, {}, 0, report.scanTime};
        m_expected = count;
        return take(report, timeUs);
    }
    if (m_pending) {
        return take(report, timeUs);
    }
    // A count of 0 outside a frame: the pad's button alone, or the rest of a scan whose first
    // report was lost (a contact touching in it says so).
    if (!report.slots.empty() && report.slots.front().tip) {
        ++m_malformed;
        return std::nullopt;
    }
    return TouchFrame{timeUs, {}, report.buttons, report.scanTime};
}

}  // namespace rawkit
