#pragma once
// The diagnostic host: registries, options, language, devices, report and the run loop.
// DiagModule forwards to Host::process(); tests build hosts of their own.
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "harn5/DataType.h"
#include "harn5/DeviceCapability.h"
#include "harn5/DevicePropertyTypes.h"
#include "harn5/DeviceProvider.h"
#include "harn5/DeviceSource.h"
#include "harn5/DiagDevice.h"
#include "harn5/Event.h"
#include "harn5/HarnString.h"
#include "harn5/Language.h"
#include "harn5/LocalizedString.h"
#include "harn5/Options.h"
#include "harn5/Parameter.h"
#include "harn5/Report.h"
#include "harn5/RunRecord.h"
#include "harn5/Test.h"
#include "harn5/TestResult.h"

namespace harn5 {

class Host {
public:
    Host();
    ~Host();
    Host(const Host&) = delete;
    Host& operator=(const Host&) = delete;

    // The process-wide host, made on first use with the platform's language folder, system
    // language and system device source.
    static Host& process();

    // Registration; names are unique per kind (a second event or text key of the same name
    // gives the same handle, a second test or parameter throws HarnException).
    Event* createEvent(const HarnString& name);
    LocalizedString* createLocalizedString(const HarnString& key);
    Parameter* createParameter(const HarnString& name, const DataType& type,
                               const HarnString& text, bool first, bool second);
    Test* createTest(const HarnString& name, const DeviceCapability& capability, Test::Entry entry);

    void setCmdLineArgs(int argc, const char* argv[]);
    void setVersion(unsigned int major, unsigned int minor, const HarnString& build);
    void setModuleInitCallback(void (*callback)());
    // Parses, validates, prepares and runs what the command line asks; the exit status.
    int start();
    // No person is there to answer a message box: --unattended, or standard input is no console.
    bool unattended() const;
    // This start's command line asks for the test: from the module-init callback on, so that the
    // module prepares only what the tests asked for use.
    bool willRun(const Test& test) const;
    // What the test needs cannot be had in this start (from the module-init callback): each of its
    // runs is CANNOTRUN for the reason, and its entry point is never called.
    void refuse(const Test& test, const std::string& reason);

    enum class Severity { Error, Warning, Informative };
    // detail: what the test found, kept with the event in the report (empty: nothing).
    void report(Severity severity, Event* event, const HarnString& sourceFile, int sourceLine,
                const std::string& detail = {});
    // A stop asked for in this run (Ctrl+C, console close, --stop-after from the run's start, or
    // the stop file); the test answers it by ending. Counts the test as one that polls.
    bool checkForStop() const;
    // Figures the running test measured, into its run in the report; outside a run they are refused.
    void measure(const std::vector<RunRecord::Measurement>& measurements);
    // A stop asked for a while ago that the running test has not polled for: the host must end it.
    bool stopUnanswered() const;
    static constexpr std::chrono::seconds kStopGrace{1};
    const Test* currentTest() const;

    // Environment seams.
    void setLanguageFolder(const std::filesystem::path& folder);
    void setUserLanguage(const std::string& code);     // primary code such as "de"
    void setConsoleInput(bool console);                // standard input is a console
    void addDeviceSource(std::unique_ptr<DeviceSource> source);
    // Lets "--device KIND:SOURCE,..." make a device of that kind; a later one replaces it.
    void addDeviceProvider(const std::string& kind, std::unique_ptr<DeviceProvider> provider);
    // A device property that something reads with this type: devices are checked against it.
    void declareDeviceProperty(const std::string& name, DevicePropertyTypes::Type type);
    void setOutput(std::ostream& out, std::ostream& err);

    // State for the dialog library and for tests.
    std::uintptr_t hostWindow() const;
    const std::string& recordPath() const;     // --record, or empty
    // A file of the running run beside the report: REPORT-STEM-runN-NAME in the report's folder,
    // N the run's place in the report from 1; none without a report file or a running run.
    std::optional<std::filesystem::path> runFile(const std::string& name) const;
    const Language& language() const;
    const Report& results() const;
    std::string listing() const;               // what --list prints
    std::string deviceListing() const;         // what --list-devices prints

    // Called from the structured-exception filter while a test runs: records the running run
    // as ended abnormally with that text, writes the report and the line on stderr.
    void recordCrash(const std::string& exceptionText);

    // Log thresholds, log file and system override from the options, before the run: the module
    // traces its entry before the host reads its command line.
    void configureLogging(const Options& options) const;

private:
    Options parseAndValidate();
    void assignParameters(const Options& options);
    void loadLanguage(const std::string& choice);
    std::vector<DiagDevice> devices() const;
    bool stopRequested() const;
    void beginRunStops();
    // The devices once, checked, before any test runs.
    void buildDeviceList();
    void runTest(const Test& test, int& status);
    TestResult runOnDevice(const Test& test, const DiagDevice& device);
    // A run ended by an exception that is neither a host nor a core exception.
    TestResult endedByOther(const Test& test, const std::string& text);
    std::string versionText() const;
    Test* findTest(const std::string& name) const;
    Parameter* findParameter(const std::string& name) const;

    // Registries in registration order; handles stay put for the host's life.
    std::vector<std::unique_ptr<Event>> m_events;
    std::vector<std::unique_ptr<LocalizedString>> m_texts;
    std::vector<std::unique_ptr<Parameter>> m_parameters;
    std::vector<std::unique_ptr<Test>> m_tests;

    std::vector<std::string> m_arguments;
    std::string m_moduleName = "kstrmouse.kmx";
    unsigned int m_major = 0;
    unsigned int m_minor = 0;
    std::string m_build;
    void (*m_initCallback)() = nullptr;
    std::map<const Test*, std::string> m_refused;   // this start's tests that cannot run, and why

    std::filesystem::path m_languageFolder;
    std::string m_userLanguage;
    bool m_consoleInput = false;
    std::vector<std::unique_ptr<DeviceSource>> m_sources;
    DeviceProviders m_providers;
    DevicePropertyTypes m_propertyTypes;
    std::vector<DiagDevice> m_devices;
    std::ostream* m_out;
    std::ostream* m_err;

    Options m_options;
    Language m_language;
    Report m_report;
    std::filesystem::path m_stopFile;
    struct StopState {
        std::chrono::steady_clock::time_point runStart;
        std::chrono::steady_clock::time_point seenAt;
        bool requested = false;   // once seen, stays asked for until the next run
        bool byFile = false;
        bool fileHeld = false;    // the stop file ended an earlier run and has not gone since
        bool polled = false;      // the test asked during this run
    };
    mutable StopState m_stop;
    const Test* m_currentTest = nullptr;
    std::optional<std::size_t> m_currentRun;
};

}  // namespace harn5
