#pragma once
// A HID recording that cannot be used; what() reads "FILE:LINE: what is wrong; what is allowed".
#include <cstddef>
#include <stdexcept>
#include <string>

namespace hidrd {

class RecordingError : public std::runtime_error {
public:
    RecordingError(const std::string& source, std::size_t line, const std::string& what);
};

}  // namespace hidrd
