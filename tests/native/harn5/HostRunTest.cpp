// The run loop: report content and validity at every step, exit status, --list, device choice,
// stop requests, exceptions escaping a test, events inside and outside runs.
#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <thread>

#include <csignal>
#include <deque>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>
#include <sstream>

#include "HostHarness.h"
#include "harn5/HarnException.h"

using namespace harn5;
using nlohmann::json;
namespace fs = std::filesystem;

namespace {

HostHarness* g_harness = nullptr;   // for the init callback, a plain function

// A report file in a fresh folder, removed afterwards.
class ReportFile {
public:
    ReportFile() : m_folder(fs::temp_directory_path() / ("harn5_" + std::to_string(::getpid()))) {
        fs::create_directories(m_folder);
    }
    ~ReportFile() { fs::remove_all(m_folder); }
    std::string path() const { return (m_folder / "report.json").string(); }
    json read() const {
        std::ifstream in(path());
        return json::parse(in);   // throws when the file is not one valid JSON document
    }
    fs::path folder() const { return m_folder; }

private:
    fs::path m_folder;
};

class ListedSource : public DeviceSource {
public:
    void enumerate(std::vector<DiagDevice>& devices) override
    {
        devices.emplace_back("Source mouse", DeviceCapability::Mouse());
    }
};

}  // namespace

TEST(Report, IsValidAndCompleteAfterEveryStep)
{
    HostHarness harness;
    ReportFile report;
    g_harness = &harness;
    harness.host.setVersion(6, 5, "000000001");
    harness.host.setModuleInitCallback([] {
        g_harness->host.report(Host::Severity::Informative, g_harness->skipped, "KstrMouse", 114);
        // What the command line asks for is known by then, so the module prepares only that.
        EXPECT_TRUE(g_harness->host.willRun(*g_harness->mouseTest));
        EXPECT_FALSE(g_harness->host.willRun(*g_harness->touchpadTest));
    });
    std::vector<json> seen;
    harness.behaviour = [&](const DiagDevice&) {
        seen.push_back(report.read());
        harness.host.report(Host::Severity::Error, harness.failed, "KstrMouseDlg", 425);
        seen.push_back(report.read());
        return TestResult::FAIL();
    };
    const int status = harness.run({"--test", "MouseTest", "--no-system-devices", "--report", report.path(),
                                    "--device", "Mouse,Kind=\"quoted\" \\ tab\there \xC3\xA4 \xFF,name=Ger\xC3\xA4t 1"});
    EXPECT_EQ(status, 1);

    ASSERT_EQ(seen.size(), 2u);
    const json& running = seen[0]["runs"][0];
    EXPECT_EQ(running["state"], "running");
    EXPECT_TRUE(running["verdict"].is_null());
    EXPECT_TRUE(running["ended"].is_null());
    EXPECT_EQ(running["device"]["name"], "Ger\xC3\xA4t 1");
    EXPECT_EQ(running["device"]["capabilities"], "Mouse");
    EXPECT_EQ(running["device"]["properties"]["Kind"], "\"quoted\" \\ tab\there \xC3\xA4 \xEF\xBF\xBD");
    EXPECT_EQ(seen[1]["runs"][0]["events"].size(), 1u);
    EXPECT_FALSE(seen[1].contains("exitStatus"));

    const json final = report.read();
    EXPECT_EQ(final["module"], "kstrmouse.kmx");
    EXPECT_EQ(final["version"], "6.5.000000001");
    EXPECT_EQ(final["language"], "en");
    EXPECT_TRUE(std::regex_match(final["started"].get<std::string>(),
                                 std::regex(R"(\d{4}-\d\d-\d\dT\d\d:\d\d:\d\d\.\d{3}Z)")));
    EXPECT_EQ(final["exitStatus"], 1);
    const json& run = final["runs"][0];
    EXPECT_EQ(run["test"], "MouseTest");
    EXPECT_EQ(run["displayName"], "Mouse Test");
    EXPECT_EQ(run["state"], "finished");
    EXPECT_EQ(run["verdict"], "FAIL");
    EXPECT_EQ(run["verdictValue"], 1);
    EXPECT_TRUE(run["ended"].is_string());
    EXPECT_FALSE(run.contains("reason"));
    EXPECT_EQ(run["events"][0]["name"], "TestFailed");
    EXPECT_EQ(run["events"][0]["severity"], "error");
    EXPECT_EQ(run["events"][0]["sourceFile"], "KstrMouseDlg");
    EXPECT_EQ(run["events"][0]["line"], 425);
    EXPECT_EQ(final["moduleEvents"][0]["name"], "SCROLL_WHEEL_TESTING_SKIPPED");
    EXPECT_EQ(final["moduleEvents"][0]["severity"], "informative");
    EXPECT_FALSE(fs::exists(report.path() + ".tmp"));

    EXPECT_NE(harness.out.str().find("MouseTest on Ger\xC3\xA4t 1: FAIL; events: TestFailed (error)"),
              std::string::npos) << harness.out.str();
}

TEST(ModuleInit, ATestItRefusesIsReportedWithTheReasonAndTheOthersRun)
{
    HostHarness harness;
    ReportFile report;
    g_harness = &harness;
    harness.host.setModuleInitCallback([] { g_harness->host.refuse(*g_harness->mouseTest, "OLE could not start"); });
    std::vector<std::string> entered;
    harness.behaviour = [&](const DiagDevice&) {
        entered.push_back(harness.host.currentTest()->name().utf8());
        return TestResult::PASS();
    };
    const std::vector<std::string> arguments{"--test", "MouseTest", "--test", "TouchpadTest", "--no-system-devices",
                                             "--device", "Mouse", "--device", "SynapticsTouchPad+SynapticsMouse+Mouse,SP_Handle=1",
                                             "--report", report.path()};
    // Told anew at each start: a refusal of one start does not outlive it.
    EXPECT_EQ(harness.run(arguments), 4);
    harness.host.setModuleInitCallback([] {});
    EXPECT_EQ(harness.run(arguments), 0);
    EXPECT_EQ(entered, (std::vector<std::string>{"TouchpadTest", "MouseTest", "TouchpadTest"}));
    const json final = report.read();
    EXPECT_EQ(final["runs"][0]["verdict"], "PASS");
}

TEST(ExitStatus, IsZeroOnlyWhenEveryRunPassedElseTheFirstOtherVerdict)
{
    struct Case {
        std::vector<TestResult> verdicts;
        int status;
    };
    const std::vector<Case> cases = {
        {{TestResult::PASS()}, 0},
        {{TestResult::PASS(), TestResult::PASS(), TestResult::PASS()}, 0},
        {{TestResult::PASS(), TestResult::FAIL(), TestResult::WARN()}, 1},
        {{TestResult::USERABORTED(), TestResult::FAIL()}, 3},
        {{TestResult::PASS(), TestResult::SKIPPED()}, 5},
        {{TestResult::TESTNOTSTARTED()}, 8},
    };
    for (const Case& c : cases) {
        HostHarness harness;
        std::deque<TestResult> verdicts(c.verdicts.begin(), c.verdicts.end());
        harness.behaviour = [&](const DiagDevice&) {
            const TestResult verdict = verdicts.front();
            verdicts.pop_front();
            return verdict;
        };
        std::vector<std::string> args{"--device", "Mouse"};
        for (std::size_t i = 0; i < c.verdicts.size(); ++i) {
            args.insert(args.end(), {"--test", "MouseTest"});   // the same test again and again
        }
        EXPECT_EQ(harness.run(args), c.status);
        EXPECT_TRUE(verdicts.empty());
        EXPECT_EQ(harness.host.results().runs().size(), c.verdicts.size());
    }
}

TEST(List, ShowsEveryRegistryInRegistrationOrderAfterTheInitCallback)
{
    HostHarness harness;
    g_harness = &harness;
    harness.host.setModuleInitCallback([] { g_harness->out << "init\n"; });
    EXPECT_EQ(harness.run({"--list"}), 0);
    const std::string text = harness.out.str();
    std::size_t position = 0;
    for (const char* expected :
         {"init\n", "Tests:", "  TouchpadTest \"Touchpad Test\"", "Mouse+SynapticsMouse+SynapticsTouchPad",
          "  TrackPointTest", "parameters: bDisablePassUntilFinished, ExcludedThreeButtonDisplayByPnPID",
          "  MouseTest", "first fitting device only", "excludes devices with: SP_Handle (any value)",
          "parameters: iForceMouseType, bDisablePassUntilFinished", "Parameters:",
          "  ExcludedThreeButtonDisplayByPnPID STRINGARRAY", "  bDisablePassUntilFinished BOOLEAN",
          "  iForceMouseType UINT32", "Events:", "  TestFailed", "  SCROLL_WHEEL_TESTING_SKIPPED", "Text keys:",
          "  MOUSE_INTERACTIVE_TEST_INDEX"}) {
        const std::size_t found = text.find(expected, position);
        ASSERT_NE(found, std::string::npos) << expected << " missing or out of order in:\n" << text;
        position = found;
    }
    EXPECT_TRUE(harness.devicesSeen.empty());
}

TEST(Devices, TestsRunOnlyWhereCapabilitiesFitAndNoExclusionApplies)
{
    struct Case {
        std::string test;
        std::vector<std::string> devices;
        std::vector<std::string> ran;
    };
    const std::string pad = "SynapticsTouchPad+SynapticsMouse+Mouse,SP_Handle=1,name=";
    const std::vector<Case> cases = {
        {"MouseTest", {pad + "Pad", "Mouse,name=A", "Mouse,name=B"}, {"A"}},   // SP_Handle excluded, first only
        {"TouchpadTest", {pad + "Pad1", "Mouse,name=A", pad + "Pad2"}, {"Pad1", "Pad2"}},   // every one
        {"TouchpadTest", {"SynapticsTouchPad+Mouse,name=NoSynMouse"}, {}},   // all capabilities needed
        {"TrackPointTest", {pad + "Pad"}, {}},
        {"MouseTest", {pad + "Pad"}, {}},
        {"ExcludesPnP", {"Mouse,SP_PnPID=len0042,name=Excluded", "Mouse,SP_PnPID=LEN0043,name=Other"}, {"Other"}},
    };
    for (const Case& c : cases) {
        HostHarness harness;
        harness.host.createTest("ExcludesPnP", DeviceCapability::Mouse(), [](const DiagDevice& device) {
            g_harness->devicesSeen.push_back(device.name().utf8());
            return TestResult::PASS();
        })->addDevicePropertyExclusion("SP_PnPID", "LEN0042");
        g_harness = &harness;
        std::vector<std::string> args{"--no-system-devices", "--test", c.test};
        for (const std::string& device : c.devices) {
            args.insert(args.end(), {"--device", device});
        }
        const int status = harness.run(args);
        EXPECT_EQ(harness.devicesSeen, c.ran) << c.test;
        if (c.ran.empty()) {
            EXPECT_EQ(status, TestResult::CANNOTRUN().value());
            const RunRecord& run = harness.host.results().runs().at(0);
            EXPECT_EQ(run.verdict, TestResult::CANNOTRUN());
            EXPECT_FALSE(run.device.has_value());
            EXPECT_FALSE(run.reason.empty());
            EXPECT_EQ(harness.err.str(), c.test + " cannot run: " + run.reason + "\n");
        }
    }
}

TEST(Devices, SourcesComeFirstUnlessSystemDevicesAreOff)
{
    for (const bool systemDevices : {true, false}) {
        HostHarness harness;
        harness.host.addDeviceSource(std::make_unique<ListedSource>());
        std::vector<std::string> args{"--test", "TouchpadTest", "--test", "MouseTest", "--device", "Mouse,name=Given"};
        if (!systemDevices) {
            args.push_back("--no-system-devices");
        }
        EXPECT_EQ(harness.run(args), TestResult::CANNOTRUN().value());   // no touchpad anywhere
        EXPECT_EQ(harness.devicesSeen, std::vector<std::string>{systemDevices ? "Source mouse" : "Given"});
        EXPECT_NE(harness.err.str().find("TouchpadTest cannot run: no device has Mouse+SynapticsMouse+SynapticsTouchPad"),
                  std::string::npos) << harness.err.str();
    }
}

TEST(Stop, IsAskedForByTimeoutStopFileOrInterrupt)
{
    ReportFile folder;
    const std::string stopFile = (folder.folder() / "stop").string();
    std::ofstream(folder.folder() / "present") << "";
    struct Case {
        std::vector<std::string> args;
        bool interrupt;
        bool stop;
    };
    const std::vector<Case> cases = {
        {{}, false, false},
        {{"--stop-after", "0"}, false, true},
        {{"--stop-after", "3600"}, false, false},
        {{"--stop-file", stopFile}, false, false},
        {{"--stop-file", (folder.folder() / "present").string()}, false, true},
        {{}, true, true},
    };
    for (const Case& c : cases) {
        HostHarness harness;
        bool stop = false;
        harness.behaviour = [&](const DiagDevice&) {
            if (c.interrupt) {
                std::raise(SIGINT);   // the host's handler turns it into a stop request
            }
            stop = harness.host.checkForStop();
            return TestResult::PASS();
        };
        std::vector<std::string> args{"--test", "MouseTest", "--device", "Mouse"};
        args.insert(args.end(), c.args.begin(), c.args.end());
        harness.run(args);
        EXPECT_EQ(stop, c.stop) << (c.args.empty() ? "interrupt" : c.args[0]);
    }
}

TEST(Stop, StopFileAppearingDuringARunIsSeenAndStaysSeen)
{
    ReportFile folder;
    const fs::path stopFile = folder.folder() / "stop";
    HostHarness harness;
    std::vector<bool> answers;
    harness.behaviour = [&](const DiagDevice&) {
        answers.push_back(harness.host.checkForStop());
        std::ofstream(stopFile) << "";
        answers.push_back(harness.host.checkForStop());
        fs::remove(stopFile);
        answers.push_back(harness.host.checkForStop());
        return TestResult::USERABORTED();
    };
    harness.run({"--test", "MouseTest", "--device", "Mouse", "--stop-file", stopFile.string()});
    EXPECT_EQ(answers, (std::vector<bool>{false, true, true}));
}

TEST(Stop, ARequestBelongsToTheRunItWasMadeIn)
{
    ReportFile folder;
    const fs::path stopFile = folder.folder() / "stop";
    HostHarness harness;
    std::vector<bool> answers;
    int run = 0;
    harness.behaviour = [&](const DiagDevice&) {
        ++run;
        if (run == 1) {
            std::ofstream(stopFile) << "";
            std::raise(SIGINT);
        }
        answers.push_back(harness.host.checkForStop());
        if (run == 2) {
            fs::remove(stopFile);   // gone once, the file asks again when it comes back
            answers.push_back(harness.host.checkForStop());
            std::ofstream(stopFile) << "";
            answers.push_back(harness.host.checkForStop());
        }
        return TestResult::USERABORTED();
    };
    harness.run({"--test", "MouseTest", "--test", "MouseTest", "--device", "Mouse", "--stop-file", stopFile.string(),
                  "--stop-after", "3600"});
    EXPECT_EQ(answers, (std::vector<bool>{true, false, false, true}));
}

TEST(Stop, OnlyARequestTheTestDoesNotPollForIsLeftToTheHost)
{
    for (const bool polls : {false, true}) {
        HostHarness harness;
        bool unansweredAtOnce = true;
        bool unansweredLater = false;
        harness.behaviour = [&](const DiagDevice&) {
            if (polls) {
                harness.host.checkForStop();
            }
            unansweredAtOnce = harness.host.stopUnanswered();
            std::this_thread::sleep_for(harn5::Host::kStopGrace + std::chrono::milliseconds(50));
            unansweredLater = harness.host.stopUnanswered();
            return TestResult::USERABORTED();
        };
        harness.run({"--test", "MouseTest", "--device", "Mouse", "--stop-after", "0"});
        EXPECT_FALSE(unansweredAtOnce) << polls;   // the test gets its moment to answer
        EXPECT_EQ(unansweredLater, !polls);
    }
}

TEST(Exceptions, HostExceptionIsRecordedWithExitStatusThenPassedOn)
{
    HostHarness harness;
    ReportFile report;
    const harn5::Test* during = nullptr;
    harness.behaviour = [&](const DiagDevice&) -> TestResult {
        during = harness.host.currentTest();
        throw HarnException("host failure for the test");
    };
    EXPECT_THROW(harness.run({"--test", "TouchpadTest", "--device", "Mouse+SynapticsMouse+SynapticsTouchPad",
                              "--report", report.path()}),
                 HarnException);
    ASSERT_NE(during, nullptr);
    EXPECT_EQ(during->name().utf8(), "TouchpadTest");
    EXPECT_EQ(harness.host.currentTest(), nullptr);
    const json data = report.read();
    EXPECT_EQ(data["runs"][0]["verdict"], "EXITEDABNORMALLY");
    EXPECT_EQ(data["runs"][0]["verdictValue"], 7);
    EXPECT_EQ(data["runs"][0]["exception"], "HarnException: host failure for the test");
    EXPECT_EQ(data["exitStatus"], 7);
}

TEST(Exceptions, OtherExceptionEndsItsRunWithSevenAndTheNextTestsStillRun)
{
    // The module's run operation would swallow it and exit with 0: the host records it itself.
    HostHarness harness;
    ReportFile report;
    int calls = 0;
    harness.behaviour = [&calls](const DiagDevice&) -> TestResult {
        if (++calls == 1) {
            throw std::runtime_error("odd");
        }
        return TestResult::PASS();
    };
    EXPECT_EQ(harness.run({"--test", "MouseTest", "--test", "MouseTest", "--device", "Mouse", "--report",
                           report.path()}),
              TestResult::EXITEDABNORMALLY().value());
    const json data = report.read();
    EXPECT_EQ(data["runs"][0]["verdict"], "EXITEDABNORMALLY");
    EXPECT_EQ(data["runs"][0]["exception"], "exception: odd");
    EXPECT_EQ(data["runs"][1]["verdict"], "PASS");
    EXPECT_EQ(data["exitStatus"], 7);
    EXPECT_EQ(harness.err.str(), "MouseTest ended abnormally: exception: odd\n");
    EXPECT_NE(harness.out.str().find("MouseTest"), std::string::npos);   // the summary
    EXPECT_EQ(harness.host.currentTest(), nullptr);
}

TEST(Events, OutsideARunBelongToTheModuleAndANullEventIsRefused)
{
    HostHarness harness;
    harness.host.report(Host::Severity::Warning, harness.failed, "synaptics", 71);
    ASSERT_EQ(harness.host.results().moduleEvents().size(), 1u);
    EXPECT_EQ(harness.host.results().moduleEvents()[0].severity, "warning");
    EXPECT_THROW(harness.host.report(Host::Severity::Error, nullptr, "x", 1), HarnException);
}

TEST(Events, ARegisteredSiteIsListedAndAReportFromElsewhereIsCalledOut)
{
    HostHarness harness;
    harness.failed->reportedAs("error", "KstrMouseDlg", 425);
    harness.run({"--list"});
    EXPECT_NE(harness.out.str().find("  TestFailed error KstrMouseDlg 425\n"), std::string::npos) << harness.out.str();
    harness.host.report(Host::Severity::Error, harness.failed, "KstrMouseDlg", 425);
    EXPECT_EQ(harness.err.str(), "");
    harness.host.report(Host::Severity::Warning, harness.failed, "KstrMouseDlg", 426);
    EXPECT_EQ(harness.err.str(), "event TestFailed reported as warning from KstrMouseDlg line 426, registered as error "
                                 "from KstrMouseDlg line 425\n");
    EXPECT_EQ(harness.host.results().moduleEvents().size(), 2u);   // both reports are kept as made
}

TEST(Report, MeasurementsBelongToTheirRunAndOutsideARunAreRefused)
{
    HostHarness harness;
    ReportFile report;
    harness.behaviour = [&harness](const DiagDevice&) {
        harness.host.measure({{"ReportRate", 125.5, "Hz"}, {"LeftChatter", 2, "count"}});
        harness.host.measure({{"Odd", std::nan(""), "x"}});
        return TestResult::PASS();
    };
    harness.run({"--test", "MouseTest", "--device", "Mouse", "--report", report.path()});
    const json measured = report.read()["runs"][0]["measurements"];
    ASSERT_EQ(measured.size(), 3U);
    EXPECT_EQ(measured[0]["name"], "ReportRate");
    EXPECT_EQ(measured[0]["value"], 125.5);
    EXPECT_EQ(measured[0]["unit"], "Hz");
    EXPECT_EQ(measured[1]["value"], 2);
    EXPECT_TRUE(measured[2]["value"].is_null());
    EXPECT_THROW(harness.host.measure({{"Late", 1, "count"}}), HarnException);
}

TEST(Report, AnEventsDetailAndTheFilesOfARunBesideTheReport)
{
    HostHarness harness;
    ReportFile report;
    std::vector<std::optional<fs::path>> files;
    harness.behaviour = [&](const DiagDevice&) {
        harness.host.report(Host::Severity::Error, harness.failed, "KstrMouseDlg", 425, "row 3 column 5");
        harness.host.report(Host::Severity::Error, harness.failed, "KstrMouseDlg", 425);
        files.push_back(harness.host.runFile("map.png"));
        return TestResult::PASS();
    };
    harness.run({"--test", "MouseTest", "--test", "MouseTest", "--device", "Mouse", "--report", report.path()});
    const json events = report.read()["runs"][0]["events"];
    ASSERT_EQ(events.size(), 2U);
    EXPECT_EQ(events[0]["detail"], "row 3 column 5");
    EXPECT_FALSE(events[1].contains("detail")) << "no detail, no key";
    ASSERT_EQ(files.size(), 2U);
    EXPECT_EQ(files[0], report.folder() / "report-run1-map.png");
    EXPECT_EQ(files[1], report.folder() / "report-run2-map.png");
    EXPECT_FALSE(harness.host.runFile("map.png")) << "outside a run";
}

TEST(Report, NoFilesBesideAReportKeptInMemory)
{
    HostHarness harness;
    std::optional<fs::path> file = fs::path("set");
    harness.behaviour = [&](const DiagDevice&) {
        file = harness.host.runFile("map.png");
        return TestResult::PASS();
    };
    harness.run({"--test", "MouseTest", "--device", "Mouse"});
    EXPECT_FALSE(file);
}

TEST(Registration, SameNamesGiveSameHandlesOrAreRefused)
{
    HostHarness harness;
    EXPECT_EQ(harness.host.createEvent("TestFailed"), harness.failed);
    EXPECT_EQ(harness.host.createLocalizedString("MOUSE_INTERACTIVE_TEST_INDEX"), harness.stepIndex);
    EXPECT_THROW(harness.host.createParameter("iForceMouseType", DataType::UINT32(), "", false, true), HarnException);
    EXPECT_THROW(harness.host.createTest("MouseTest", DeviceCapability::Mouse(),
                                         [](const DiagDevice&) { return TestResult::PASS(); }),
                 HarnException);
    EXPECT_THROW(harness.host.createTest("NoEntry", DeviceCapability::Mouse(), nullptr), HarnException);
}
