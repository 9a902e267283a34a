#include "harn5/HarnException.h"

#include "harn5/Text.h"

namespace harn5 {

HarnException::HarnException(const HarnString& message) : m_message(Text::visible(message.utf8())) {}

const HarnString& HarnException::toString() const
{
    return m_message;
}

const char* HarnException::what() const noexcept
{
    return m_message.getUTF8Buffer();
}

}  // namespace harn5
