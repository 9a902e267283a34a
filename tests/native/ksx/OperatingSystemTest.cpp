#include <gtest/gtest.h>

#include "ksx/OperatingSystem.h"

namespace {

TEST(OperatingSystem, ClassifiesReportedVersions)
{
    const struct {
        unsigned long major, minor, build;
        bool server, pe;
        int distribution, majorCode;
    } cases[] = {
        {10, 0, 21999, false, true, 3, 19},  // Windows 10 PE
        {10, 0, 22000, false, false, 1, 20}, // first Windows 11 build
        {10, 0, 26100, true, true, 3, 20},   // PE wins over server
        {10, 0, 17763, true, false, 2, 19},
        {6, 3, 9600, false, false, 1, 18},
        {6, 2, 9200, false, false, 1, 17},
        {6, 1, 7601, true, false, 2, 16},
        {6, 0, 6002, false, false, 1, 0},
        {10, 1, 30000, false, false, 1, 0},
    };
    for (const auto& c : cases) {
        const auto os = ksx::OperatingSystem::fromVersion(c.major, c.minor, c.build, c.server, c.pe);
        EXPECT_EQ(os.getDistribution().distribution, c.distribution) << c.major << '.' << c.minor << '.' << c.build;
        EXPECT_EQ(os.getMajor().major, c.majorCode) << c.major << '.' << c.minor << '.' << c.build;
    }
}

TEST(OperatingSystem, OverrideStandsUntilCleared)
{
    {
        const ksx::OperatingSystem windows10PE(3, 19);
        ksx::OperatingSystem::setOverride(&windows10PE);
    }
    // A copy was kept: the original is gone.
    EXPECT_EQ(ksx::OperatingSystem::getCurrentOperatingSystem().getDistribution().distribution, 3);
    EXPECT_EQ(ksx::OperatingSystem::getCurrentOperatingSystem().getMajor().major, 19);
    ksx::OperatingSystem::setOverride(nullptr);
    // Off Windows nothing is detected.
    EXPECT_EQ(ksx::OperatingSystem::getCurrentOperatingSystem().getDistribution().distribution, 0);
    EXPECT_EQ(ksx::OperatingSystem::getCurrentOperatingSystem().getMajor().major, 0);
}

}  // namespace
