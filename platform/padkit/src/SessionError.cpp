#include "padkit/SessionError.h"

namespace padkit {

SessionError::SessionError(Reason reason, const std::string& message)
    : std::runtime_error(message), m_reason(reason)
{
}

SessionError::Reason SessionError::reason() const
{
    return m_reason;
}

}  // namespace padkit
