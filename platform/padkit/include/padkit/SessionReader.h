#pragma once
// Reads a recorded-session file (FORMAT.md) as it is replayed: the header when it is made, then
// one packet a call, so that a session of any length takes the memory of one line. Anything
// that is not a well-formed session throws SessionError naming the file and line, the header's
// faults when it is made and a packet's when that packet is read.
#include <cstddef>
#include <istream>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "hidrd/LineReader.h"
#include "padkit/Packet.h"
#include "padkit/Session.h"
#include "padkit/TouchFrameStream.h"
#include "rawkit/TouchFrame.h"

namespace padkit {

class SessionReader {
public:
    static constexpr std::size_t kMaxLine = 1024 * 1024;

    // fileName only labels the messages.
    SessionReader(std::istream& in, std::string fileName);

    // The header: everything but the packets and frames.
    const Session& header() const { return m_session; }
    // The next packet; false after the last.
    bool next(Packet& packet);
    // The frame the last packet was made of, for a version 2 touchpad's session.
    const std::optional<rawkit::TouchFrame>& frame() const { return m_frame; }

private:
    [[noreturn]] void fail(const std::string& what) const;
    // The next line that is not blank or a comment, trimmed; false at the end.
    bool nextLine(std::string_view& line);
    void header(std::string_view line);
    void requireHeader(const std::string& where) const;
    void once(bool& seen, std::string_view key) const;
    void onceOptional(const std::optional<std::string>& value, std::string_view key) const;
    void range(std::string_view key, std::string_view value, std::int32_t& low, std::int32_t& high) const;
    std::string text(std::string_view key, std::string_view value) const;
    void size(std::string_view value);
    Packet packet(std::string_view line);
    Packet frameLine(std::string_view line);
    bool flag(const char* name, std::string_view value) const;
    std::int32_t coordinate(const char* name, std::string_view value) const;
    void buttons(std::string_view value, Packet& p) const;

    hidrd::LineReader m_lines;
    std::string m_file;
    Session m_session;
    std::optional<std::string> m_pending;   // the first packet's line, read with the header
    bool m_sawDevice = false;
    bool m_sawXRange = false;
    bool m_sawYRange = false;
    bool m_sawSize = false;
    bool m_sawWidthRange = false;
    bool m_sawPacket = false;
    std::optional<std::int64_t> m_lastTimeUs;
    std::optional<TouchFrameStream> m_stream;
    std::optional<rawkit::TouchFrame> m_frame;
};

}  // namespace padkit
