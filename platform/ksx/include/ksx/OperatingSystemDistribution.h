#pragma once
// Which kind of Windows runs: 0 unknown, 1 workstation, 2 server, 3 Windows PE.

namespace ksx {

struct OperatingSystemDistribution {
    int distribution;
};

}  // namespace ksx
