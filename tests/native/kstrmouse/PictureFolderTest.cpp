// Pictures are found under the working directory first, then beside the executable; one found
// nowhere is reported once with both places.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "PictureFolder.h"
#include "ksx/LogFactory.h"

namespace {

namespace fs = std::filesystem;

class PictureFolderTest : public testing::Test {
protected:
    void SetUp() override
    {
        m_root = fs::temp_directory_path() / ("kstr_pictures_" + std::to_string(::getpid()));
        for (const char* place : {"work", "bin"}) {
            fs::create_directories(m_root / place / "resources" / "kstrmouse");
        }
        m_previous = fs::current_path();
        fs::current_path(m_root / "work");
        ksx::LogFactory::setSink([this](const std::string& line) { lines.push_back(line.substr(24)); });
    }
    void TearDown() override
    {
        ksx::LogFactory::resetSink();
        fs::current_path(m_previous);
        fs::remove_all(m_root);
    }
    void put(const char* place, const char* name)
    {
        std::ofstream(m_root / place / "resources" / "kstrmouse" / name) << "png";
    }

    fs::path m_root;
    fs::path m_previous;
    std::vector<std::string> lines;
};

TEST_F(PictureFolderTest, WorkingDirectoryFirstThenBesideTheExecutable)
{
    put("work", "both.png");
    put("bin", "both.png");
    put("bin", "beside.png");
    PictureFolder folder("resources//kstrmouse//", m_root / "bin");
    EXPECT_EQ(folder.find("both.png"), fs::path("resources//kstrmouse//both.png"));
    EXPECT_EQ(folder.find("beside.png"), m_root / "bin" / "resources//kstrmouse//" / "beside.png");
    EXPECT_TRUE(lines.empty());
}

TEST_F(PictureFolderTest, AMissingPictureIsReportedOnceWithBothPlaces)
{
    PictureFolder folder("resources//kstrmouse//", m_root / "bin");
    EXPECT_TRUE(folder.find("gone.png").empty());
    EXPECT_TRUE(folder.find("gone.png").empty());
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0], "kstrmouse.pictures 4 40 The picture resources//kstrmouse//gone.png is missing: neither in "
                        "the working directory (" + (m_root / "work").string() + ") nor at " +
                            (m_root / "bin" / "resources/kstrmouse/gone.png").string() + ".");
    // Without a known executable folder only the working directory counts.
    PictureFolder nowhere("resources//kstrmouse//", {});
    EXPECT_TRUE(nowhere.find("gone.png").empty());
    EXPECT_EQ(lines.size(), 2u) << "once per folder object, that is once per dialog";
}

}  // namespace
