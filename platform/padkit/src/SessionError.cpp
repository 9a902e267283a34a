#include "padkit/SessionError.h"

#include "harn5/Text.h"

namespace padkit {

SessionError::SessionError(Reason reason, const std::string& message)
    : std::runtime_error(harn5::Text::visible(message)), m_reason(reason)
{
}

SessionError::Reason SessionError::reason() const
{
    return m_reason;
}

}  // namespace padkit
