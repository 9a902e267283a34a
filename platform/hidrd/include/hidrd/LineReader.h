#pragma once
// Reads text a line at a time from a stream, holding one line (and one read's worth) at most: a
// file of any length takes the same memory, and a line longer than the limit is reported as such
// once the limit is passed, without reading the rest of it.
#include <cstddef>
#include <istream>
#include <string_view>
#include <vector>

namespace hidrd {

class LineReader {
public:
    enum class Status { Line, End, TooLong };

    LineReader(std::istream& in, std::size_t maxLength);

    // The next line without its end ("\n" or "\r\n"), valid until the next call.
    Status next(std::string_view& line);
    // The number of the line last read, from 1.
    std::size_t number() const { return m_number; }

private:
    bool fill();

    std::istream& m_in;
    std::size_t m_maxLength;
    std::vector<char> m_buffer;
    std::size_t m_begin = 0;   // of the unread text in m_buffer
    std::size_t m_end = 0;
    std::size_t m_number = 0;
    bool m_atEnd = false;
};

}  // namespace hidrd
