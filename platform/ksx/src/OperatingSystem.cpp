#include "ksx/OperatingSystem.h"

#include <mutex>
#include <optional>

#include "OperatingSystemDetection.h"

namespace ksx {

namespace {

struct Override {
    std::mutex mutex;
    std::optional<OperatingSystem> os;
};

// Built on first use, so that static initialisers of other files may already set or read it.
Override& theOverride()
{
    static Override instance;
    return instance;
}

}  // namespace

OperatingSystem::OperatingSystem(int distribution, int major) : m_distribution{distribution}, m_major{major}
{
}

OperatingSystem OperatingSystem::getCurrentOperatingSystem()
{
    {
        Override& o = theOverride();
        std::lock_guard lock(o.mutex);
        if (o.os) return *o.os;
    }
    // Asked afresh each time: cheap, and an override may come and go.
    return detectOperatingSystem();
}

void OperatingSystem::setOverride(const OperatingSystem* os)
{
    Override& o = theOverride();
    std::lock_guard lock(o.mutex);
    if (os) o.os = *os;
    else o.os.reset();
}

OperatingSystem OperatingSystem::fromVersion(unsigned long majorVersion, unsigned long minorVersion,
                                             unsigned long build, bool server, bool preinstallation)
{
    // Windows 11 kept version 10.0; only its build number tells it apart.
    constexpr unsigned long kFirstWindows11Build = 22000;
    int major = MAJOR_UNKNOWN;
    if (majorVersion == 10 && minorVersion == 0) major = build >= kFirstWindows11Build ? WINDOWS_11 : WINDOWS_10;
    else if (majorVersion == 6 && minorVersion == 3) major = WINDOWS_8_1;
    else if (majorVersion == 6 && minorVersion == 2) major = WINDOWS_8;
    else if (majorVersion == 6 && minorVersion == 1) major = WINDOWS_7;
    const int distribution = preinstallation ? WINDOWS_PE : server ? SERVER : WORKSTATION;
    return OperatingSystem(distribution, major);
}

const OperatingSystemDistribution& OperatingSystem::getDistribution() const
{
    return m_distribution;
}

const OperatingSystemMajorVersion& OperatingSystem::getMajor() const
{
    return m_major;
}

}  // namespace ksx
