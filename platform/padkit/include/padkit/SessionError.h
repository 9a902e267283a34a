#pragma once
// A session that cannot be used; what() reads "FILE:LINE: what is wrong; what is allowed", with
// control characters shown as \xNN.
#include <stdexcept>
#include <string>

namespace padkit {

class SessionError : public std::runtime_error {
public:
    enum class Reason { Unreadable, Invalid };

    SessionError(Reason reason, const std::string& message);

    Reason reason() const;

private:
    Reason m_reason;
};

}  // namespace padkit
