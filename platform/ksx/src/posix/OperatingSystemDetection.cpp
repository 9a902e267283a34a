#include "OperatingSystemDetection.h"

namespace ksx {

// Off Windows none of the codes applies.
OperatingSystem detectOperatingSystem()
{
    return OperatingSystem(OperatingSystem::DISTRIBUTION_UNKNOWN, OperatingSystem::MAJOR_UNKNOWN);
}

}  // namespace ksx
