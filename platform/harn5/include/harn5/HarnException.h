#pragma once
// Exception thrown by the host library: one message naming the culprit and what would be valid,
// with control characters of quoted outside text shown as \xNN.
#include <exception>

#include "harn5/HarnString.h"

namespace harn5 {

class HarnException : public std::exception {
public:
    explicit HarnException(const HarnString& message);

    const HarnString& toString() const;
    const char* what() const noexcept override;

private:
    HarnString m_message;
};

}  // namespace harn5
