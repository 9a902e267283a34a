#pragma once
// A report descriptor that cannot be used; what() names the byte where it goes wrong and what is
// wrong there ("byte 41: a Pop with nothing pushed").
#include <cstddef>
#include <stdexcept>
#include <string>

namespace hidrd {

class DescriptorError : public std::runtime_error {
public:
    DescriptorError(std::size_t offset, const std::string& what);
    // A fault of the descriptor as a whole (no touchpad collection, say), not of one byte.
    explicit DescriptorError(const std::string& what);
};

}  // namespace hidrd
