#pragma once
// The core library's error stream. Text is UTF-8; `endl` ends the message with a newline and
// flushes. Writes go unbuffered to the process's stderr unless a test redirects them.
#include <iosfwd>

namespace ksx {

class OStream {
public:
    enum Manip { endl = 0 };

    constexpr OStream() = default;
    virtual ~OStream() = default;
    OStream(const OStream&) = delete;
    OStream& operator=(const OStream&) = delete;

    virtual OStream& operator<<(const char* utf8);
    virtual OStream& operator<<(Manip manip);

    // Sends the output to `target` instead of stderr; null restores stderr.
    void setTarget(std::ostream* target);

private:
    std::ostream* m_target = nullptr;
};

inline constexpr OStream::Manip endl = OStream::endl;

extern OStream& cerr;

}  // namespace ksx
