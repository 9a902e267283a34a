#include "ksx/Exception.h"

#include "StackTrace.h"

namespace ksx {

Exception::Exception(const String& message)
    : m_message(message), m_stackTrace(captureStackTrace(0)), m_what(toString().utf8())
{
}

String Exception::toString() const
{
    return "ksx::Exception: " + m_message;
}

const String& Exception::getMessage() const
{
    return m_message;
}

String Exception::getStackTrace() const
{
    return m_stackTrace;
}

const char* Exception::what() const noexcept
{
    return m_what.c_str();
}

}  // namespace ksx
