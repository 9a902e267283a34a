#include "padkit/SessionCopy.h"

#include <utility>

namespace padkit {

namespace {

// What is written of the device: version 2, but a version 1 touchpad's packets stay version 1.
Session written(const Session& header)
{
    Session copy = header;
    copy.packets.clear();
    copy.frames.clear();
    if (!(header.version == 1 && header.type == SynDeviceTouchPad)) {
        copy.version = 2;
    }
    return copy;
}

}  // namespace

SessionCopy::SessionCopy(std::unique_ptr<SessionWriter> writer, const Session& header)
    : m_writer(std::move(writer)), m_header(header), m_frames(header.version == 2 && header.type == SynDeviceTouchPad)
{
}

std::unique_ptr<SessionCopy> SessionCopy::open(const std::filesystem::path& file, const Session& header,
                                               const std::string& comment, std::string& error)
{
    const Session copy = written(header);
    std::unique_ptr<SessionWriter> writer = SessionWriter::open(file, copy, comment, error);
    if (!writer) {
        return nullptr;
    }
    return std::unique_ptr<SessionCopy>(new SessionCopy(std::move(writer), copy));
}

void SessionCopy::add(const Packet& packet, const rawkit::TouchFrame* frame)
{
    const std::int64_t timeUs = m_frames && frame != nullptr ? frame->timeUs : packet.timeMs * 1000;
    if (m_frames && frame != nullptr) {
        m_writer->write(*frame);
    } else {
        m_writer->write(packet);
    }
    if (!m_firstUs) {
        m_firstUs = timeUs;
    }
    m_lastUs = timeUs;
    ++m_lines;
}

double SessionCopy::durationMs() const
{
    return m_firstUs ? static_cast<double>(m_lastUs - *m_firstUs) / 1000.0 : 0.0;
}

}  // namespace padkit
