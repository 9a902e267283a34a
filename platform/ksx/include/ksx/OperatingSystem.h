#pragma once
// The running operating system as a distribution code and a major-version code.
#include "ksx/OperatingSystemDistribution.h"
#include "ksx/OperatingSystemMajorVersion.h"

namespace ksx {

class OperatingSystem {
public:
    enum Distribution { DISTRIBUTION_UNKNOWN = 0, WORKSTATION = 1, SERVER = 2, WINDOWS_PE = 3 };
    enum Major { MAJOR_UNKNOWN = 0, WINDOWS_7 = 16, WINDOWS_8 = 17, WINDOWS_8_1 = 18,
                 WINDOWS_10 = 19, WINDOWS_11 = 20 };

    OperatingSystem(int distribution, int major);

    // The override when one is set, else what the system reports (unknown, 0 and 0, off Windows).
    static OperatingSystem getCurrentOperatingSystem();
    // Makes getCurrentOperatingSystem answer a copy of `os` (for tests and the host's --os
    // option); null restores detection.
    static void setOverride(const OperatingSystem* os);

    // Classifies the numbers that the system reports: its version, whether the product type is
    // a server and whether it runs as Windows PE.
    static OperatingSystem fromVersion(unsigned long majorVersion, unsigned long minorVersion,
                                       unsigned long build, bool server, bool preinstallation);

    const OperatingSystemDistribution& getDistribution() const;
    const OperatingSystemMajorVersion& getMajor() const;

private:
    OperatingSystemDistribution m_distribution;
    OperatingSystemMajorVersion m_major;
};

}  // namespace ksx
