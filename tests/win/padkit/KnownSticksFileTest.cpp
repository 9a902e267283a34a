// The list of pointing sticks beside the executable: read when it is there, refused above the
// text size limit instead of read without end.
#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "harn5/HarnException.h"
#include "harn5/ProcessEnvironment.h"
#include "padkit/LiveDeviceSource.h"

namespace {

TEST(KnownSticksFile, ReadBesideTheExecutableUpToTheLimit)
{
    const std::filesystem::path file = harn5::ProcessEnvironment::executableFolder() / "pointing-sticks.txt";
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    EXPECT_TRUE(padkit::LiveDeviceSource::knownSticks().ids().empty()) << "no list: the user names the stick";

    std::ofstream(file, std::ios::binary) << "# sticks\nACPI\\LEN0300\n";
    EXPECT_TRUE(padkit::LiveDeviceSource::knownSticks().contains("ACPI\\LEN0300"));

    std::ofstream(file, std::ios::binary) << std::string(1024 * 1024 + 1, '#');
    std::string message;
    try {
        padkit::LiveDeviceSource::knownSticks();
    } catch (const harn5::HarnException& e) {
        message = e.what();
    }
    EXPECT_NE(message.find("pointing-sticks.txt: the list of pointing sticks is larger than 1024 KB"),
              std::string::npos)
        << message;
    std::filesystem::remove(file, ignored);
}

}  // namespace
