#include "ksx/LoggerStream.h"

namespace ksx {

LoggerStream& LoggerStream::operator+(const char* text)
{
    if (text) m_text += text;
    return *this;
}

LoggerStream& LoggerStream::operator+(int number)
{
    m_text += std::to_string(number);
    return *this;
}

LoggerStream& LoggerStream::operator+(unsigned int number)
{
    m_text += std::to_string(number);
    return *this;
}

LoggerStream& LoggerStream::operator+(long number)
{
    m_text += std::to_string(number);
    return *this;
}

LoggerStream& LoggerStream::operator+(const String& text)
{
    m_text += text.utf8();
    return *this;
}

LoggerStream& LoggerStream::operator<<(const char* text)
{
    return *this + text;
}

LoggerStream& LoggerStream::operator<<(long number)
{
    return *this + number;
}

LoggerStream& LoggerStream::operator<<(unsigned long number)
{
    m_text += std::to_string(number);
    return *this;
}

const std::string& LoggerStream::text() const
{
    return m_text;
}

}  // namespace ksx
