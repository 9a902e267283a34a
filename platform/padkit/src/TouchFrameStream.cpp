#include "padkit/TouchFrameStream.h"

namespace padkit {

TouchFrameStream::TouchFrameStream(const rawkit::TouchLayout& layout)
    : m_assembler(layout.maxContactId), m_builder(layout)
{
}

std::optional<Packet> TouchFrameStream::add(const rawkit::TouchReport& report, std::int64_t timeUs)
{
    std::optional<rawkit::TouchFrame> frame = m_assembler.add(report, timeUs);
    if (!frame) {
        return std::nullopt;
    }
    return add(*frame);
}

Packet TouchFrameStream::add(const rawkit::TouchFrame& frame)
{
    m_last = frame;
    m_tracker.apply(frame);
    return m_builder.build(frame, m_tracker);
}

}  // namespace padkit
