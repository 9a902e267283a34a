#pragma once
// One log message under construction. Every operator appends and returns the same stream, so a
// chain on a temporary (`LoggerStream() + 114 + " " + "text"`) builds the whole message.
#include <string>

#include "ksx/String.h"

namespace ksx {

class LoggerStream {
public:
    LoggerStream() = default;

    LoggerStream& operator+(const char* text);
    LoggerStream& operator+(int number);
    LoggerStream& operator+(unsigned int number);
    LoggerStream& operator+(long number);
    LoggerStream& operator+(const String& text);

    LoggerStream& operator<<(const char* text);
    LoggerStream& operator<<(long number);
    LoggerStream& operator<<(unsigned long number);

    const std::string& text() const;   // UTF-8

private:
    std::string m_text;
};

}  // namespace ksx
