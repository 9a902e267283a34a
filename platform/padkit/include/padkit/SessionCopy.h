#pragma once
// Writes what a replay or a conversion reads, as a session file of the same device (FORMAT.md):
// a touchpad's frames with every contact (version 2), a pointing stick's packets, or the packets
// of a version 1 touchpad session (which has no contacts to give) as they were. Each line is
// flushed as it is written, so a run that ends abruptly keeps what it saw.
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>

#include "padkit/Packet.h"
#include "padkit/Session.h"
#include "padkit/SessionWriter.h"
#include "rawkit/TouchFrame.h"

namespace padkit {

class SessionCopy {
public:
    // Null, with the reason in error, when the file cannot be written.
    static std::unique_ptr<SessionCopy> open(const std::filesystem::path& file, const Session& header,
                                             const std::string& comment, std::string& error);

    // One packet, with the frame it was made of where the file had one.
    void add(const Packet& packet, const rawkit::TouchFrame* frame);
    bool good() const { return m_writer->good(); }

    const Session& header() const { return m_header; }
    unsigned long lines() const { return m_lines; }
    // From the first line's time to the last's, in ms.
    double durationMs() const;

private:
    SessionCopy(std::unique_ptr<SessionWriter> writer, const Session& header);

    std::unique_ptr<SessionWriter> m_writer;
    Session m_header;
    bool m_frames;
    unsigned long m_lines = 0;
    std::optional<std::int64_t> m_firstUs;
    std::int64_t m_lastUs = 0;
};

}  // namespace padkit
