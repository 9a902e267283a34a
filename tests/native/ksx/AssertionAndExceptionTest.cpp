#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>

#include "LogCapture.h"
#include "ksx/AssertionFailure.h"
#include "ksx/Exception.h"

using namespace ksx::LoggerPriority;

namespace {

struct AssertionEnded {};
void throwingHandler() { throw AssertionEnded{}; }

class Assertions : public LogCapture {
protected:
    void SetUp() override
    {
        LogCapture::SetUp();
        m_previous = ksx::AssertionFailure::setHandler(throwingHandler);
    }
    void TearDown() override
    {
        ksx::AssertionFailure::setHandler(m_previous);
        LogCapture::TearDown();
    }

private:
    ksx::AssertionFailure::Handler m_previous = nullptr;
};

TEST_F(Assertions, FailedAssertionReportsThenEndsTheFunction)
{
    const int* device = nullptr;
    bool continued = false;
    KSX_ASSERT(device == nullptr, "KstrMouseDlg", 41);
    EXPECT_THROW(
        {
            KSX_ASSERT(device != nullptr, "KstrMouseDlg", 42);
            continued = true;
        },
        AssertionEnded);
    EXPECT_FALSE(continued);
    EXPECT_EQ(lines, std::vector<std::string>{"ksx 5 Assertion failed: KstrMouseDlg:42: device != nullptr"});
    EXPECT_EQ(errorStream.str(), "Assertion failed: KstrMouseDlg:42: device != nullptr\n");
}

TEST_F(Assertions, ErrorStreamGetsTheLineWhateverTheThresholdsOnce)
{
    ksx::LogFactory::setPriority(PRIORITY_OFF);
    EXPECT_THROW(KSX_ASSERT_MSG(false, ksx::String("no device"), "synaptics", 18446744073709551615ULL), AssertionEnded);
    EXPECT_TRUE(lines.empty());
    EXPECT_EQ(errorStream.str(), "Assertion failed: synaptics:18446744073709551615: false: no device\n");

    // With the default sink the log line is already on the error stream: no second copy.
    errorStream.str("");
    ksx::LogFactory::setPriority(PRIORITY_WARNING);
    ksx::LogFactory::resetSink();
    ksx::AssertionFailure::logAssert("comptr", 9, "hr == S_OK");
    EXPECT_TRUE(std::regex_match(errorStream.str(), std::regex(R"(\S+ \S+ ksx 5 Assertion failed: comptr:9: hr == S_OK\n)")))
        << errorStream.str();
}

TEST(AssertionsDeathTest, DefaultHandlerAborts)
{
    EXPECT_DEATH(KSX_ASSERT(2 < 1, "KstrMouse", 7), "Assertion failed: KstrMouse:7: 2 < 1");
}

TEST(Exception, CarriesMessageTextAndTheStackWhereItWasMade)
{
    const ksx::Exception e(ksx::String("device \xC3\xA9 lost"));
    EXPECT_EQ(e.getMessage().utf8(), "device \xC3\xA9 lost");
    EXPECT_STREQ(e.what(), "ksx::Exception: device \xC3\xA9 lost");
    EXPECT_EQ(e.toString().utf8(), e.what());

    const std::string trace = e.getStackTrace().utf8();
    EXPECT_NE(trace.find("ksx_native_tests+0x"), std::string::npos) << trace;
    std::istringstream frames(trace);
    for (std::string frame; std::getline(frames, frame);) {
        EXPECT_TRUE(std::regex_match(frame, std::regex(R"(\S+\+0x[0-9a-f]+|0x[0-9a-f]+)"))) << frame;
    }
}

}  // namespace
