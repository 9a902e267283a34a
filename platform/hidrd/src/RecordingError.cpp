#include "hidrd/RecordingError.h"

namespace hidrd {

RecordingError::RecordingError(const std::string& source, std::size_t line, const std::string& what)
    : std::runtime_error(source + ":" + std::to_string(line == 0 ? 1 : line) + ": " + what)
{
}

}  // namespace hidrd
