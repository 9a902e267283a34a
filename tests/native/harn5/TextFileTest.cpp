// Text files are read whole up to a limit: one byte more, or a device that never ends, is refused
// without reading on.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "harn5/HarnException.h"
#include "harn5/TextFile.h"

namespace {

using harn5::TextFile;

std::string refusal(const std::filesystem::path& file, std::size_t mostBytes = TextFile::kMostBytes)
{
    try {
        TextFile::read(file, "language file", mostBytes);
    } catch (const harn5::HarnException& e) {
        return e.what();
    }
    return "";
}

TEST(TextFile, ReadsUpToTheLimitAndRefusesOneByteMore)
{
    const std::filesystem::path file = std::filesystem::temp_directory_path() / "kstr_textfile_test.txt";
    std::ofstream(file, std::ios::binary) << std::string(100 * 1024, 'x');
    EXPECT_EQ(TextFile::read(file, "language file", 100 * 1024).size(), 100u * 1024);
    EXPECT_EQ(refusal(file, 100 * 1024 - 1),
              file.string() + ": the language file is larger than 99 KB; is it the right file?");
    std::filesystem::remove(file);
    EXPECT_EQ(refusal(file), file.string() + ": the language file cannot be read");
}

TEST(TextFile, AnEndlessDeviceIsRefused)
{
    EXPECT_EQ(refusal("/dev/zero"), "/dev/zero: the language file is larger than 1024 KB; is it the right file?");
}

}  // namespace
