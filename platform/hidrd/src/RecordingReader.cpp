#include "hidrd/RecordingReader.h"

#include <charconv>
#include <cstdio>
#include <utility>

#include "hidrd/RecordingError.h"

namespace hidrd {

namespace {

constexpr std::size_t kQuoteLimit = 40;   // long junk is cut short in messages
constexpr unsigned kMaxDeviceIndex = 255;
constexpr std::int64_t kMaxSeconds = 1000000000;   // three decades

std::string quoted(std::string_view text)
{
    return "\"" + std::string(text.substr(0, kQuoteLimit)) + (text.size() > kQuoteLimit ? "...\"" : "\"");
}

std::string_view trim(std::string_view text)
{
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) {
        text.remove_prefix(1);
    }
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t')) {
        text.remove_suffix(1);
    }
    return text;
}

// The next blank-separated token of text, taken off its front; empty at the end.
std::string_view token(std::string_view& text)
{
    text = trim(text);
    std::size_t end = 0;
    while (end < text.size() && text[end] != ' ' && text[end] != '\t') {
        ++end;
    }
    const std::string_view taken = text.substr(0, end);
    text.remove_prefix(end);
    return taken;
}

template <typename Int>
std::optional<Int> number(std::string_view text, int base = 10)
{
    Int value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, base);
    if (text.empty() || error != std::errc() || end != text.data() + text.size()) {
        return std::nullopt;
    }
    return value;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9') {
        return c - '0';
    }
    if (c >= 'a' && c <= 'f') {
        return c - 'a' + 10;
    }
    if (c >= 'A' && c <= 'F') {
        return c - 'A' + 10;
    }
    return -1;
}

std::string seconds(std::int64_t us)
{
    char text[40];
    std::snprintf(text, sizeof text, "%lld.%06lld", static_cast<long long>(us / 1000000),
                  static_cast<long long>(us % 1000000));
    return text;
}

}  // namespace

RecordingReader::RecordingReader(std::istream& in, std::string source)
    : m_lines(in, kMaxLine), m_source(std::move(source))
{
    std::string_view line;
    while (nextLine(line)) {
        const char type = line[0];
        const std::string_view value = trim(line.substr(2));
        if (type == 'E') {
            m_inReports = true;
            report(value, m_first.emplace());
            break;
        }
        if (type == 'D') {
            select(value);
        } else {
            header(type, value);
        }
    }
    for (const RecordedDevice& d : m_devices) {
        if (d.descriptorLine != 0) {
            return;
        }
    }
    fail(std::string("no R: line (a device's report descriptor) ") + (m_first ? "before the first E: line" : "in the file") +
         "; a HID recording (hid-recorder) gives each device's R: line before its reports");
}

bool RecordingReader::begins(std::string_view line)
{
    line = trim(line);
    return line.size() >= 2 && line[1] == ':' && std::string_view("RDNPI").find(line[0]) != std::string_view::npos;
}

void RecordingReader::fail(const std::string& what) const
{
    throw RecordingError(m_source, m_lines.number(), what);
}

bool RecordingReader::nextLine(std::string_view& line)
{
    for (;;) {
        switch (m_lines.next(line)) {
        case LineReader::Status::End:
            return false;
        case LineReader::Status::TooLong:
            fail("a line longer than " + std::to_string(kMaxLine) +
                 " bytes; no line of a session file or a HID recording is that long");
        case LineReader::Status::Line:
            break;
        }
        for (std::size_t i = 0; i < line.size(); ++i) {
            const unsigned char c = static_cast<unsigned char>(line[i]);
            if (c < 0x20 && c != '\t') {
                char code[8];
                std::snprintf(code, sizeof code, "0x%02X", c);
                fail(std::string("binary data (a byte ") + code + " at column " + std::to_string(i + 1) +
                     "); a HID recording is text");
            }
        }
        line = trim(line);
        // Lines of other kinds, comments among them, say nothing to a reader.
        if (line.size() >= 2 && line[1] == ':' && line[0] >= 'A' && line[0] <= 'Z') {
            return true;
        }
    }
}

RecordedDevice& RecordingReader::device(unsigned index)
{
    for (RecordedDevice& d : m_devices) {
        if (d.index == index) {
            return d;
        }
    }
    m_devices.push_back(RecordedDevice{});
    m_devices.back().index = index;
    return m_devices.back();
}

void RecordingReader::select(std::string_view value)
{
    const std::optional<unsigned> index = number<unsigned>(value);
    if (!index || *index > kMaxDeviceIndex) {
        fail("D: " + quoted(value) + " is not a device number; give 0 to " + std::to_string(kMaxDeviceIndex));
    }
    if (m_inReports) {
        bool known = false;
        for (const RecordedDevice& d : m_devices) {
            known = known || d.index == *index;
        }
        if (!known) {
            fail("D: " + std::to_string(*index) + " names no device of the recording; its reports follow its R: line");
        }
    } else {
        device(*index);
    }
    m_current = *index;
}

void RecordingReader::header(char type, std::string_view value)
{
    if (std::string_view("RNPI").find(type) == std::string_view::npos) {
        return;   // a kind of line this reader does not know
    }
    if (m_inReports) {
        fail(std::string(1, type) + ": after the first report; a recording gives its devices before their reports");
    }
    RecordedDevice& d = device(m_current);
    if (type == 'N') {
        d.name = std::string(value);
    } else if (type == 'P') {
        d.physicalPath = std::string(value);
    } else if (type == 'I') {
        std::optional<std::uint16_t> fields[3];
        for (std::optional<std::uint16_t>& field : fields) {
            field = number<std::uint16_t>(token(value), 16);
        }
        if (!fields[0] || !fields[1] || !fields[2] || !trim(value).empty()) {
            fail("I: is not BUS VENDOR PRODUCT; give three hex numbers of up to 4 digits (I: 18 06cb ce08)");
        }
        d.bus = fields[0];
        d.vendor = fields[1];
        d.product = fields[2];
    } else {
        if (d.descriptorLine != 0) {
            fail("a second R: line for device " + std::to_string(d.index) + " (the first is line " +
                 std::to_string(d.descriptorLine) + "); give one descriptor a device");
        }
        hexBytes('R', value, d.descriptor);
        d.descriptorLine = m_lines.number();
    }
}

bool RecordingReader::next(RecordedReport& report)
{
    if (m_first) {
        report = std::move(*m_first);
        m_first.reset();
        return true;
    }
    std::string_view line;
    while (nextLine(line)) {
        const std::string_view value = trim(line.substr(2));
        if (line[0] == 'E') {
            this->report(value, report);
            return true;
        }
        if (line[0] == 'D') {
            select(value);
        } else {
            header(line[0], value);
        }
    }
    return false;
}

void RecordingReader::hexBytes(char type, std::string_view text, std::vector<std::uint8_t>& into) const
{
    const std::string kind(1, type);
    const std::string_view count = token(text);
    const std::optional<std::size_t> length = number<std::size_t>(count);
    if (!length) {
        fail(kind + ": count " + quoted(count) + " is not a number of bytes; " +
             (type == 'R' ? "an R: line is COUNT BYTES... (R: 3 05 01 09)" : "an E: line is SECONDS.MICROSECONDS "
                                                                             "COUNT BYTES... (E: 000012.345678 3 01 a0 ff)"));
    }
    into.clear();
    for (std::string_view byte = token(text); !byte.empty(); byte = token(text)) {
        const int high = hexDigit(byte[0]);
        const int low = byte.size() == 2 ? hexDigit(byte[1]) : -1;
        if (byte.size() != 2 || high < 0 || low < 0) {
            fail(kind + ": " + quoted(byte) + " is not a byte; bytes are two hex digits (00 to ff)");
        }
        into.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    if (into.size() != *length) {
        fail(kind + ": says " + std::to_string(*length) + " bytes and gives " + std::to_string(into.size()) +
             "; the count is the number of bytes that follow");
    }
}

void RecordingReader::report(std::string_view value, RecordedReport& into)
{
    const std::string_view time = token(value);
    const std::size_t dot = time.find('.');
    const std::optional<std::int64_t> sec = number<std::int64_t>(time.substr(0, dot));
    const std::optional<std::int64_t> usec =
        dot == std::string_view::npos ? std::nullopt : number<std::int64_t>(time.substr(dot + 1));
    if (!sec || !usec || *sec < 0 || *sec > kMaxSeconds || *usec < 0 || *usec > 999999) {
        fail("E: time " + quoted(time) + " is not a time; give SECONDS.MICROSECONDS (000012.345678)");
    }
    const std::int64_t timeUs = *sec * 1000000 + *usec;
    if (timeUs < m_lastTimeUs) {
        fail("E: time " + seconds(timeUs) + " is before the previous report's " + seconds(m_lastTimeUs) +
             "; times never go back");
    }
    hexBytes('E', value, into.bytes);
    m_lastTimeUs = timeUs;
    into.timeUs = timeUs;
    into.device = m_current;
    into.line = m_lines.number();
}

}  // namespace hidrd
