#include "ksx/OStream.h"

#include <cstdio>
#include <cstring>
#include <ostream>

namespace ksx {

OStream& OStream::operator<<(const char* utf8)
{
    if (!utf8) return *this;
    if (m_target) *m_target << utf8;
    else std::fwrite(utf8, 1, std::strlen(utf8), stderr);   // stderr is unbuffered
    return *this;
}

OStream& OStream::operator<<(Manip manip)
{
    if (manip == endl) {
        if (m_target) *m_target << '\n' << std::flush;
        else {
            std::fputc('\n', stderr);
            std::fflush(stderr);
        }
    }
    return *this;
}

void OStream::setTarget(std::ostream* target)
{
    m_target = target;
}

namespace {
// Constant-initialised, so usable from any static constructor.
constinit OStream s_errorStream;
}  // namespace

constinit OStream& cerr = s_errorStream;

}  // namespace ksx
