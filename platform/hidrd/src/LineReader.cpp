#include "hidrd/LineReader.h"

#include <cstring>

namespace hidrd {

namespace {

constexpr std::size_t kChunk = 64 * 1024;

}  // namespace

LineReader::LineReader(std::istream& in, std::size_t maxLength)
    : m_in(in), m_maxLength(maxLength), m_buffer(kChunk)
{
}

bool LineReader::fill()
{
    if (m_atEnd) {
        return false;
    }
    // Unread text moves to the front; the buffer grows only while a line is longer than it.
    if (m_begin > 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_begin = 0;
    }
    if (m_buffer.size() - m_end < kChunk) {
        m_buffer.resize(m_end + kChunk);
    }
    m_in.read(m_buffer.data() + m_end, static_cast<std::streamsize>(m_buffer.size() - m_end));
    const std::size_t got = static_cast<std::size_t>(m_in.gcount());
    m_end += got;
    if (got == 0) {
        m_atEnd = true;
    }
    return got > 0;
}

LineReader::Status LineReader::next(std::string_view& line)
{
    const auto take = [this, &line](std::size_t length, std::size_t consumed) {
        line = std::string_view(m_buffer.data() + m_begin, length);
        if (!line.empty() && line.back() == '\r') {
            line.remove_suffix(1);
        }
        m_begin += consumed;
        ++m_number;
        return Status::Line;
    };
    std::size_t scanned = 0;   // bytes from m_begin known to hold no line end
    for (;;) {
        const std::size_t left = m_end - m_begin - scanned;
        const void* found = left > 0 ? std::memchr(m_buffer.data() + m_begin + scanned, '\n', left) : nullptr;
        if (found != nullptr) {
            const std::size_t length = static_cast<std::size_t>(static_cast<const char*>(found) - m_buffer.data()) - m_begin;
            if (length > m_maxLength) {
                ++m_number;
                return Status::TooLong;
            }
            return take(length, length + 1);
        }
        scanned = m_end - m_begin;
        if (scanned > m_maxLength) {
            ++m_number;
            return Status::TooLong;
        }
        if (!fill()) {
            return scanned == 0 ? Status::End : take(scanned, scanned);
        }
    }
}

}  // namespace hidrd
