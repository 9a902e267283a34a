#pragma once
// Exception of the core library: a message and the stack captured where it was thrown.
#include <exception>

#include "ksx/String.h"

namespace ksx {

class Exception : public std::exception {
public:
    explicit Exception(const String& message);
    ~Exception() override = default;

    String toString() const;              // "ksx::Exception: <message>"
    const String& getMessage() const;
    String getStackTrace() const;         // one frame a line, innermost first
    const char* what() const noexcept override;

private:
    String m_message;
    String m_stackTrace;
    std::string m_what;
};

}  // namespace ksx
