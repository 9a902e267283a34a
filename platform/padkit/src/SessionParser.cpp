#include "padkit/SessionParser.h"

#include <charconv>
#include <cstdint>
#include <fstream>
#include <limits>
#include <sstream>
#include <vector>

#include "WholeNumber.h"
#include "padkit/FrameLine.h"
#include "padkit/SessionError.h"
#include "padkit/TouchFrameStream.h"

namespace padkit {

namespace {

constexpr std::string_view kMagic = "padkit-session 1";
constexpr std::string_view kMagic2 = "padkit-session 2";
constexpr std::int32_t kMaxWidth = 15;   // the drivers report finger width in four bits
constexpr std::size_t kPacketFields = 9;
constexpr std::size_t kQuoteLimit = 40;  // long junk is cut short in messages

// A token as a message shows it: quoted, and cut short when it is long.
std::string quoted(std::string_view text)
{
    if (text.size() > kQuoteLimit) {
        return "\"" + std::string(text.substr(0, kQuoteLimit)) + "...\"";
    }
    return "\"" + std::string(text) + "\"";
}

bool isBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

std::string_view trim(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

// The line without its comment; a '#' inside double quotes is text.
std::string_view withoutComment(std::string_view line)
{
    bool inQuotes = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == '"') {
            inQuotes = !inQuotes;
        } else if (line[i] == '#' && !inQuotes) {
            return line.substr(0, i);
        }
    }
    return line;
}

std::vector<std::string_view> fields(std::string_view text)
{
    std::vector<std::string_view> result;
    std::size_t i = 0;
    while (i < text.size()) {
        while (i < text.size() && isBlank(text[i])) {
            ++i;
        }
        const std::size_t start = i;
        while (i < text.size() && !isBlank(text[i])) {
            ++i;
        }
        if (i > start) {
            result.push_back(text.substr(start, i - start));
        }
    }
    return result;
}

class Reader {
public:
    Reader(std::string_view text, const std::string& fileName) : m_text(text), m_file(fileName) {}

    Session read()
    {
        bool sawMagic = false;
        while (nextLine()) {
            const std::string_view line = trim(withoutComment(m_line));
            if (line.empty()) {
                continue;
            }
            if (!sawMagic) {
                if (line != kMagic && line != kMagic2) {
                    fail(quoted(line) + " does not begin a session; the first line must be \"" +
                         std::string(kMagic) + "\" or \"" + std::string(kMagic2) + "\"");
                }
                m_session.version = line == kMagic ? 1 : 2;
                sawMagic = true;
            } else if (isPacketLine(line) && m_session.version == 2 && m_session.type == SynDeviceTouchPad) {
                frame(line);
            } else if (isPacketLine(line)) {
                packet(line);
            } else {
                header(line);
            }
        }
        if (!sawMagic) {
            fail("the file holds no session; the first line must be \"" + std::string(kMagic) + "\"");
        }
        requireHeader("at the end of the file");
        return std::move(m_session);
    }

private:
    [[noreturn]] void fail(const std::string& what) const
    {
        throw SessionError(SessionError::Reason::Invalid,
                           m_file + ":" + std::to_string(m_lineNumber == 0 ? 1 : m_lineNumber) + ": " + what);
    }

    bool nextLine()
    {
        if (m_position >= m_text.size()) {
            return false;
        }
        const std::size_t end = m_text.find('\n', m_position);
        const std::size_t stop = end == std::string_view::npos ? m_text.size() : end;
        m_line = m_text.substr(m_position, stop - m_position);
        m_position = stop + 1;
        ++m_lineNumber;
        return true;
    }

    static bool isPacketLine(std::string_view line)
    {
        return (line[0] >= '0' && line[0] <= '9') || line[0] == '-';
    }

    void header(std::string_view line)
    {
        const std::size_t keyEnd = line.find_first_of(" \t");
        const std::string_view key = line.substr(0, keyEnd);
        const std::string_view value =
            keyEnd == std::string_view::npos ? std::string_view() : trim(line.substr(keyEnd));
        if (!m_session.packets.empty()) {
            fail(quoted(key) + " after the first packet; header lines come before the packets");
        }
        if (key == "device") {
            once(m_sawDevice, key);
            if (value == "touchpad") {
                m_session.type = SynDeviceTouchPad;
            } else if (value == "trackpoint") {
                m_session.type = SynDeviceTrackpoint;
            } else {
                fail("device " + quoted(value) + " is not known; give touchpad or trackpoint");
            }
        } else if (key == "x-range") {
            once(m_sawXRange, key);
            range(key, value, m_session.xLo, m_session.xHi);
        } else if (key == "y-range") {
            once(m_sawYRange, key);
            range(key, value, m_session.yLo, m_session.yHi);
        } else if (key == "pnp-id") {
            onceOptional(m_session.pnpId, key);
            m_session.pnpId = text(key, value);
        } else if (key == "blacklist-version") {
            onceOptional(m_session.blacklistVersion, key);
            m_session.blacklistVersion = text(key, value);
        } else if (key == "size-mm" && m_session.version == 2) {
            once(m_sawSize, key);
            size(value);
        } else if (key == "width-range" && m_session.version == 2) {
            once(m_sawWidthRange, key);
            range(key, value, m_session.widthRange.emplace().low, m_session.widthRange->high);
        } else if (key == "name" && m_session.version == 2) {
            onceOptional(m_session.name, key);
            m_session.name = text(key, value);
        } else {
            fail("unknown header line " + quoted(key) + "; the header has device, x-range, y-range, pnp-id and " +
                 "blacklist-version" + (m_session.version == 2 ? ", size-mm, width-range and name" : "") +
                 ", and packets begin with their time");
        }
    }

    void once(bool& seen, std::string_view key) const
    {
        if (seen) {
            fail(std::string(key) + " is given twice; give it once");
        }
        seen = true;
    }

    void onceOptional(const std::optional<std::string>& value, std::string_view key) const
    {
        if (value) {
            fail(std::string(key) + " is given twice; give it once");
        }
    }

    void range(std::string_view key, std::string_view value, std::int32_t& low, std::int32_t& high) const
    {
        const std::vector<std::string_view> parts = fields(value);
        const std::string allowed = "; give two whole numbers LOW HIGH with LOW <= HIGH";
        if (parts.size() != 2) {
            fail(std::string(key) + " " + quoted(value) + " is not a range" + allowed);
        }
        const std::optional<std::int32_t> lo = wholeNumber<std::int32_t>(parts[0]);
        const std::optional<std::int32_t> hi = wholeNumber<std::int32_t>(parts[1]);
        if (!lo || !hi) {
            fail(std::string(key) + ": " + quoted(!lo ? parts[0] : parts[1]) +
                 " is not a whole number from -2147483648 to 2147483647" + allowed);
        }
        if (*lo > *hi) {
            fail(std::string(key) + " " + quoted(value) + " runs backwards" + allowed);
        }
        low = *lo;
        high = *hi;
    }

    // A text value: the rest of the line, or exactly what stands between double quotes.
    std::string text(std::string_view key, std::string_view value) const
    {
        if (value.empty()) {
            fail(std::string(key) + " has no value; give it, or \"\" for an empty one");
        }
        if (value.front() != '"') {
            if (value.find('"') != std::string_view::npos) {
                fail(std::string(key) + " " + quoted(value) +
                     " has a stray double quote; quote the whole value or none of it");
            }
            return std::string(value);
        }
        if (value.size() < 2 || value.back() != '"' ||
            value.substr(1, value.size() - 2).find('"') != std::string_view::npos) {
            fail(std::string(key) + " " + quoted(value) +
                 " is not a quoted value; write \"TEXT\" with no double quote inside");
        }
        return std::string(value.substr(1, value.size() - 2));
    }

    void requireHeader(const std::string& where) const
    {
        std::string missing;
        for (const auto& [seen, name] : {std::pair{m_sawDevice, "device"}, std::pair{m_sawXRange, "x-range"},
                                         std::pair{m_sawYRange, "y-range"}}) {
            if (!seen) {
                missing += (missing.empty() ? "" : ", ") + std::string(name);
            }
        }
        if (!missing.empty()) {
            fail("the header lacks " + missing + " " + where +
                 "; device, x-range and y-range come before the first packet");
        }
    }

    void packet(std::string_view line)
    {
        if (m_session.packets.empty()) {
            requireHeader("before the first packet");
        }
        const std::vector<std::string_view> parts = fields(line);
        if (parts.size() != kPacketFields) {
            fail("a packet has " + std::to_string(kPacketFields) + " fields, this line " +
                 std::to_string(parts.size()) +
                 "; give TIME FINGER X Y WIDTH MOTION STICK-X STICK-Y BUTTONS");
        }
        Packet p;
        const std::optional<std::int64_t> time = wholeNumber<std::int64_t>(parts[0]);
        if (!time || *time < 0 || *time > std::numeric_limits<std::int32_t>::max()) {
            fail("time " + quoted(parts[0]) + " is not a time; give milliseconds from 0 to 2147483647");
        }
        if (!m_session.packets.empty() && *time < m_session.packets.back().timeMs) {
            fail("time " + quoted(parts[0]) + " is before the previous packet's " +
                 std::to_string(m_session.packets.back().timeMs) + "; times never decrease");
        }
        p.timeMs = *time;
        p.finger = flag("finger", parts[1]);
        p.x = coordinate("x", parts[2]);
        p.y = coordinate("y", parts[3]);
        const std::optional<std::int32_t> width = wholeNumber<std::int32_t>(parts[4]);
        if (!width || *width < 0 || *width > kMaxWidth) {
            fail("width " + quoted(parts[4]) + " is not a finger width; give 0 to " +
                 std::to_string(kMaxWidth));
        }
        p.width = *width;
        p.motion = flag("motion", parts[5]);
        p.stickX = coordinate("stick-x", parts[6]);
        p.stickY = coordinate("stick-y", parts[7]);
        buttons(parts[8], p);
        m_session.packets.push_back(p);
    }

    void size(std::string_view value)
    {
        const std::vector<std::string_view> parts = fields(value);
        double* const sides[] = {&m_session.widthMm.emplace(), &m_session.heightMm.emplace()};
        for (std::size_t i = 0; i < parts.size() && i < 2; ++i) {
            const auto [end, error] = std::from_chars(parts[i].data(), parts[i].data() + parts[i].size(), *sides[i]);
            if (error != std::errc() || end != parts[i].data() + parts[i].size() || !(*sides[i] > 0.0) ||
                *sides[i] > 10000.0) {
                fail("size-mm " + quoted(value) + " is not a size; give WIDTH HEIGHT in millimetres, each above 0");
            }
        }
        if (parts.size() != 2) {
            fail("size-mm " + quoted(value) + " is not a size; give WIDTH HEIGHT in millimetres, each above 0");
        }
    }

    void frame(std::string_view line)
    {
        if (!m_stream) {
            requireHeader("before the first frame");
            rawkit::TouchLayout layout;
            layout.x = {m_session.xLo, m_session.xHi};
            layout.y = {m_session.yLo, m_session.yHi};
            layout.width = m_session.widthRange;
            m_stream.emplace(layout);
        }
        rawkit::TouchFrame parsed;
        std::string error;
        if (!FrameLine::parse(fields(line), parsed, error)) {
            fail(error);
        }
        if (!m_session.frames.empty() && parsed.timeUs < m_session.frames.back().timeUs) {
            fail("time " + quoted(fields(line)[0]) + " is before the previous frame's; times never decrease");
        }
        m_session.packets.push_back(m_stream->add(parsed));
        m_session.frames.push_back(std::move(parsed));
    }

    bool flag(const char* name, std::string_view value) const
    {
        if (value != "0" && value != "1") {
            fail(std::string(name) + " " + quoted(value) + " is not a flag; give 0 or 1");
        }
        return value == "1";
    }

    std::int32_t coordinate(const char* name, std::string_view value) const
    {
        const std::optional<std::int32_t> number = wholeNumber<std::int32_t>(value);
        if (!number) {
            fail(std::string(name) + " " + quoted(value) +
                 " is not a whole number; give one from -2147483648 to 2147483647");
        }
        return *number;
    }

    void buttons(std::string_view value, Packet& p) const
    {
        const std::string allowed = "; give - for none, or the held buttons as L, R and M, each once (LR, M, ...)";
        if (value == "-") {
            return;
        }
        for (const char c : value) {
            bool* held = c == 'L' ? &p.left : c == 'R' ? &p.right : c == 'M' ? &p.middle : nullptr;
            if (held == nullptr || *held) {
                fail("buttons " + quoted(value) + " are not a button set" + allowed);
            }
            *held = true;
        }
    }

    std::string_view m_text;
    const std::string& m_file;
    std::size_t m_position = 0;
    std::size_t m_lineNumber = 0;
    std::string_view m_line;
    Session m_session;
    bool m_sawDevice = false;
    bool m_sawXRange = false;
    bool m_sawYRange = false;
    bool m_sawSize = false;
    bool m_sawWidthRange = false;
    std::optional<TouchFrameStream> m_stream;
};

}  // namespace

Session SessionParser::parse(std::string_view text, const std::string& fileName)
{
    return Reader(text, fileName).read();
}

Session SessionParser::load(const std::filesystem::path& file)
{
    const std::u8string utf8 = file.u8string();
    const std::string name(utf8.begin(), utf8.end());
    std::error_code ignored;
    std::ifstream in;
    if (!std::filesystem::is_directory(file, ignored)) {
        in.open(file, std::ios::binary);
    }
    std::ostringstream content;
    if (in) {
        content << in.rdbuf();
    }
    if (!in.is_open() || in.bad()) {
        throw SessionError(SessionError::Reason::Unreadable,
                           name + ": cannot be read; give the path of a readable session file");
    }
    return parse(content.str(), name);
}

}  // namespace padkit
