#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <stdexcept>

#include "LogCapture.h"
#include "ksx/Exception.h"
#include "ksx/Log.h"

using namespace ksx::LoggerPriority;

ksx::Logger* logFromOtherFile(const char* name);

namespace {

constexpr int kLine = 114;
constexpr int kTraceLine = 137;

using Logging = LogCapture;

// Counts how often a message text was built.
struct Builds {
    int count = 0;
    const char* text(const char* t)
    {
        ++count;
        return t;
    }
};

TEST_F(Logging, DefaultSinkWritesWholeLinesToTheErrorStream)
{
    ksx::LogFactory::resetSink();
    ksx::Logger* log = nullptr;
    const ksx::String accented("caf\xC3\xA9");
    KSX_LOG(log, "fmt.kstrmouse", PRIORITY_WARNING, kLine, "a" + -5 + 7u + -8L + accented << " x" << -2L << 3UL);
    EXPECT_TRUE(std::regex_match(errorStream.str(), std::regex(R"(\d{4}-\d\d-\d\d \d\d:\d\d:\d\d\.\d{3} )"
                                                               "fmt\\.kstrmouse 4 114 a-57-8caf\xC3\xA9 x-23\n")))
        << errorStream.str();
}

TEST_F(Logging, AboveErrorNothingIsBuiltAndNoLoggerIsCreated)
{
    ksx::LogFactory::setPriority(PRIORITY_OFF);
    const auto callsBefore = ksx::LogFactory::createLoggerCalls();
    ksx::Logger* log = nullptr;
    Builds builds;
    for (int p = PRIORITY_TRACE; p <= PRIORITY_ERROR; ++p) {
        KSX_LOG(log, "off.kstrmouse", static_cast<LOGGER_PRIORITY>(p), kLine, builds.text("never"));
    }
    { KSX_TRACE(trace, log, "off.kstrmouse", "Enter MouseTest", "KstrMouse", kTraceLine); }
    EXPECT_EQ(log, nullptr);
    EXPECT_EQ(ksx::LogFactory::createLoggerCalls(), callsBefore);

    // The first message that passes brings the logger into being, once.
    ksx::LogFactory::setPriority(PRIORITY_ERROR);
    KSX_LOG(log, "off.kstrmouse", PRIORITY_WARNING, kLine, builds.text("filtered"));
    EXPECT_EQ(log, nullptr);
    KSX_LOG(log, "off.kstrmouse", PRIORITY_ERROR, kLine, builds.text("first"));
    KSX_LOG(log, "off.kstrmouse", PRIORITY_ERROR, kLine, builds.text("second"));
    EXPECT_EQ(builds.count, 2);
    EXPECT_EQ(ksx::LogFactory::createLoggerCalls(), callsBefore + 1);
    EXPECT_EQ(lines, (std::vector<std::string>{"off.kstrmouse 5 114 first", "off.kstrmouse 5 114 second"}));
}

TEST_F(Logging, TracesSpeakOnlyAtTraceThreshold)
{
    ksx::Logger* log = nullptr;
    ksx::LogFactory::setPriority(PRIORITY_TRACE);
    EXPECT_THROW(
        {
            KSX_TRACE(trace, log, "trace.kstrmouse", "KSTRMouse Run", "KstrMouse", kTraceLine);
            throw std::runtime_error("out");
        },
        std::runtime_error);
    { KSX_TRACE(trace, log, "trace.kstrmouse", "Enter MouseTest", "KstrMouse", kTraceLine); }
    EXPECT_EQ(lines, (std::vector<std::string>{"trace.kstrmouse 1 137 KSTRMouse Run (KstrMouse)",
                                               "trace.kstrmouse 1 137 KSTRMouse Run left by exception (KstrMouse)",
                                               "trace.kstrmouse 1 137 Enter MouseTest (KstrMouse)",
                                               "trace.kstrmouse 1 137 Enter MouseTest done (KstrMouse)"}));
    // At 2 or more, or with the logger's own threshold above 1, the existing logger stays silent.
    lines.clear();
    ksx::LogFactory::setPriority(PRIORITY_DEBUG);
    { KSX_TRACE(trace, log, "trace.kstrmouse", "Enter MouseTest", "KstrMouse", kTraceLine); }
    ksx::LogFactory::setPriority(PRIORITY_TRACE);
    log->priority = PRIORITY_DEBUG;
    { KSX_TRACE(trace, log, "trace.kstrmouse", "Enter MouseTest", "KstrMouse", kTraceLine); }
    EXPECT_TRUE(lines.empty());
}

// Both the logger's own threshold and the resolved one must let a message through.
struct ThresholdCase {
    const char* name;
    LOGGER_PRIORITY own;
    LOGGER_PRIORITY parentConfigured;
    int lowestPassing;   // 6: none passes
};
void PrintTo(const ThresholdCase& c, std::ostream* os) { *os << c.name; }

class LoggerThresholds : public LogCapture, public ::testing::WithParamInterface<ThresholdCase> {};

TEST_P(LoggerThresholds, DecideWhichPrioritiesPass)
{
    const ThresholdCase& c = GetParam();
    const std::string parent = std::string("thr.") + c.name;
    const std::string child = parent + ".dlg";
    ksx::LogFactory::setPriority(PRIORITY_TRACE);
    ksx::LogFactory::setLoggerPriority(parent.c_str(), c.parentConfigured);
    ksx::Logger* log = nullptr;
    ksx::LogFactory::createLogger(child.c_str(), log);
    log->priority = c.own;
    for (int p = PRIORITY_TRACE; p <= PRIORITY_ERROR; ++p) {
        Builds builds;
        KSX_LOG(log, child.c_str(), static_cast<LOGGER_PRIORITY>(p), kLine, builds.text("m"));
        EXPECT_EQ(builds.count, p >= c.lowestPassing ? 1 : 0) << "priority " << p;
    }
    EXPECT_EQ(lines.size(), static_cast<std::size_t>(std::max(0, 6 - c.lowestPassing)));
    ksx::LogFactory::setLoggerPriority(parent.c_str(), PRIORITY_NOTSET);
}

INSTANTIATE_TEST_SUITE_P(Cases, LoggerThresholds,
                         ::testing::Values(ThresholdCase{"own3", PRIORITY_INFO, PRIORITY_TRACE, 3},
                                           ThresholdCase{"parent3", PRIORITY_NOTSET, PRIORITY_INFO, 3},
                                           ThresholdCase{"own1_parent5", PRIORITY_TRACE, PRIORITY_ERROR, 1},
                                           ThresholdCase{"own_off", PRIORITY_OFF, PRIORITY_NOTSET, 6}),
                         [](const auto& p) { return std::string(p.param.name); });

TEST_F(Logging, ResolvePriorityTakesTheNearestDottedAncestor)
{
    // Configured before the loggers exist, as the host's --log-level options are.
    ksx::LogFactory::setLoggerPriority("res.a", PRIORITY_DEBUG);
    ksx::LogFactory::setLoggerPriority("res.a.b", PRIORITY_INFO);
    ksx::LogFactory::setLoggerPriority("res.a.b.c", PRIORITY_TRACE);
    ksx::Logger* log = nullptr;
    ksx::Logger* sibling = nullptr;
    ksx::LogFactory::createLogger("res.a.b.c", log);
    ksx::LogFactory::createLogger("res.a.bc", sibling);
    EXPECT_EQ(log->priority, PRIORITY_TRACE);
    EXPECT_EQ(sibling->resolvePriority(), PRIORITY_DEBUG);   // "res.a.bc" is no child of "res.a.b"
    ksx::LogFactory::setLoggerPriority("res.a.b.c", PRIORITY_NOTSET);
    EXPECT_EQ(log->resolvePriority(), PRIORITY_INFO);
    ksx::LogFactory::setLoggerPriority("res.a.b", PRIORITY_NOTSET);
    ksx::LogFactory::setLoggerPriority("res.a", PRIORITY_NOTSET);
    EXPECT_EQ(log->resolvePriority(), ksx::LogFactory::getPriority());
}

TEST_F(Logging, SameNameInTwoFilesIsAskedForOncePerFile)
{
    const auto callsBefore = ksx::LogFactory::createLoggerCalls();
    ksx::Logger* log = nullptr;
    for (int i = 0; i < 3; ++i) {
        KSX_LOG(log, "two.kstrmouse", PRIORITY_ERROR, kLine, "from this file");
        logFromOtherFile("two.kstrmouse");
    }
    EXPECT_EQ(ksx::LogFactory::createLoggerCalls(), callsBefore + 2);
    EXPECT_EQ(log, logFromOtherFile("two.kstrmouse"));
}

TEST_F(Logging, FileSinkAppendsAndEveryLineIsOnDiskAtOnce)
{
    const auto path = std::filesystem::temp_directory_path() / ("ksx-" + std::to_string(::getpid()) + ".log");
    const auto read = [&path] {
        std::ifstream in(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(in), {});
    };
    std::ofstream(path) << "earlier run\n";
    EXPECT_THROW(ksx::LogFactory::setSink(ksx::String("/nonexistent-dir/ksx.log")), ksx::Exception);
    ksx::LogFactory::setSink(ksx::String(path.string()));
    ksx::Logger* log = nullptr;
    KSX_LOG(log, "file.kstrmouse", PRIORITY_ERROR, kLine, "one");
    const std::string afterOne = read();   // while the sink still holds the file
    ksx::LogFactory::resetSink();
    std::filesystem::remove(path);
    EXPECT_EQ(afterOne.rfind("earlier run\n", 0), 0u);
    EXPECT_NE(afterOne.find(" file.kstrmouse 5 114 one\n"), std::string::npos) << afterOne;
}

}  // namespace
