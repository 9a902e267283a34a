#pragma once
// What the running system reports about itself, without any override.
#include "ksx/OperatingSystem.h"

namespace ksx {

OperatingSystem detectOperatingSystem();

}  // namespace ksx
