#include "hidrd/DescriptorError.h"

namespace hidrd {

DescriptorError::DescriptorError(std::size_t offset, const std::string& what)
    : std::runtime_error("byte " + std::to_string(offset) + ": " + what)
{
}

DescriptorError::DescriptorError(const std::string& what) : std::runtime_error(what) {}

}  // namespace hidrd
