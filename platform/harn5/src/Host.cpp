#include "harn5/Host.h"

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <map>

#include "harn5/CommandLine.h"
#include "harn5/HarnException.h"
#include "harn5/ParameterParser.h"
#include "harn5/ProcessEnvironment.h"
#include "harn5/RunGuard.h"
#include "harn5/RunStopper.h"
#include "harn5/Text.h"
#include "ksx/Exception.h"
#include "ksx/LogFactory.h"
#include "ksx/OperatingSystem.h"

namespace harn5 {

namespace {

[[noreturn]] void fail(const std::string& message)
{
    throw HarnException(HarnString(message));
}

template <typename Handle>
std::string names(const std::vector<Handle>& handles)
{
    std::string text;
    for (const auto& handle : handles) {
        text += (text.empty() ? "" : ", ") + handle->name().utf8();
    }
    return text.empty() ? "none" : text;
}

const char* severityName(Host::Severity severity)
{
    switch (severity) {
    case Host::Severity::Error: return "error";
    case Host::Severity::Warning: return "warning";
    case Host::Severity::Informative: return "informative";
    }
    return "?";
}

RunRecord newRun(const Test& test)
{
    RunRecord run;
    run.test = test.name().utf8();
    run.displayName = test.localizedName().utf8();
    return run;
}

RunRecord::Device describe(const DiagDevice& device)
{
    RunRecord::Device described;
    described.name = device.name().utf8();
    described.capabilities = device.capability().toString();
    for (const DeviceProperty& property : device.properties()) {
        described.properties.emplace_back(property.name().utf8(), property.text().utf8());
    }
    return described;
}

}  // namespace

Host::Host() : m_out(&std::cout), m_err(&std::cerr) {}

Host::~Host() = default;

Host& Host::process()
{
    // Never destroyed: handles given out during static initialisation must outlive every
    // other static object of the module.
    static Host& host = ProcessEnvironment::configure(*new Host());
    return host;
}

Event* Host::createEvent(const HarnString& name)
{
    for (const auto& event : m_events) {
        if (event->name() == name) {
            return event.get();
        }
    }
    return m_events.emplace_back(std::make_unique<Event>(name)).get();
}

LocalizedString* Host::createLocalizedString(const HarnString& key)
{
    for (const auto& text : m_texts) {
        if (text->key() == key) {
            return text.get();
        }
    }
    return m_texts.emplace_back(std::make_unique<LocalizedString>(key, m_language)).get();
}

Parameter* Host::createParameter(const HarnString& name, const DataType& type,
                                 const HarnString& text, bool, bool)
{
    // The two flags have no meaning for this host; the module always passes false, true.
    if (findParameter(name.utf8()) != nullptr) {
        fail("parameter \"" + name.utf8() + "\" is registered twice");
    }
    return m_parameters.emplace_back(std::make_unique<Parameter>(name, type, text)).get();
}

Test* Host::createTest(const HarnString& name, const DeviceCapability& capability, Test::Entry entry)
{
    if (findTest(name.utf8()) != nullptr) {
        fail("test \"" + name.utf8() + "\" is registered twice");
    }
    if (entry == nullptr) {
        fail("test \"" + name.utf8() + "\" is registered without an entry point");
    }
    return m_tests.emplace_back(std::make_unique<Test>(name, capability, entry, m_language)).get();
}

void Host::setCmdLineArgs(int argc, const char* argv[])
{
    m_arguments.clear();
    for (int i = 0; i < argc; ++i) {
        if (argv == nullptr || argv[i] == nullptr) {
            fail("command-line argument " + std::to_string(i) + " is missing");
        }
        if (i == 0) {
            const std::string module = Text::fromPath(Text::toPath(argv[0]).filename());
            m_moduleName = module.empty() ? m_moduleName : module;
        } else {
            m_arguments.emplace_back(argv[i]);
        }
    }
}

void Host::setVersion(unsigned int major, unsigned int minor, const HarnString& build)
{
    m_major = major;
    m_minor = minor;
    m_build = build.utf8();
}

void Host::setModuleInitCallback(void (*callback)())
{
    m_initCallback = callback;
}

int Host::start()
{
    m_stop = StopState();
    m_refused.clear();
    m_options = parseAndValidate();
    buildDeviceList();
    configureLogging(m_options);
    loadLanguage(m_options.language);
    m_stopFile = m_options.stopFile.empty() ? std::filesystem::path() : Text::toPath(m_options.stopFile);
    m_report.open(m_options.reportPath.empty() ? std::filesystem::path() : Text::toPath(m_options.reportPath),
                  m_moduleName, versionText(), m_language.code());

    const RunGuard guard(*this);
    if (m_initCallback != nullptr) {
        m_initCallback();
    }
    if (m_options.help) {
        *m_out << CommandLine::help(m_moduleName) << std::flush;
        m_report.setExitStatus(0);
        return 0;
    }
    if (m_options.list) {
        *m_out << listing() << std::flush;
    }
    if (m_options.listDevices) {
        *m_out << deviceListing() << std::flush;
    }
    int status = 0;
    for (const std::string& name : m_options.tests) {
        runTest(*findTest(name), status);
    }
    m_report.setExitStatus(status);
    *m_out << m_report.summary() << std::flush;
    return status;
}

bool Host::willRun(const Test& test) const
{
    const std::string name = test.name().utf8();
    return std::find(m_options.tests.begin(), m_options.tests.end(), name) != m_options.tests.end();
}

void Host::refuse(const Test& test, const std::string& reason)
{
    m_refused[&test] = reason;
}

bool Host::unattended() const
{
    return m_options.unattended || !m_consoleInput;
}

Options Host::parseAndValidate()
{
    Options options = CommandLine::parse(m_arguments, &m_providers);
    if (options.tests.empty() && !options.list && !options.listDevices && !options.help) {
        fail("no test given; --list shows the tests, --list-devices the devices, --help the options");
    }
    for (const std::string& name : options.tests) {
        if (findTest(name) == nullptr) {
            fail("unknown test \"" + name + "\"; the tests are: " + names(m_tests));
        }
    }
    if (options.hostWindow != 0 && !ProcessEnvironment::windowExists(options.hostWindow)) {
        char handle[24];
        std::snprintf(handle, sizeof handle, "0x%llX", static_cast<unsigned long long>(options.hostWindow));
        fail(std::string("--host-window ") + handle +
             ": no window has this handle (any more); give the handle of the host's window, or leave it out");
    }
    assignParameters(options);
    return options;
}

void Host::assignParameters(const Options& options)
{
    std::vector<const Test*> chosen;
    for (const std::string& name : options.tests) {
        chosen.push_back(findTest(name));
    }
    // Texts per parameter in the order given; the map keeps one entry per parameter.
    std::map<Parameter*, std::vector<std::string>> given;
    for (const auto& [name, text] : options.parameters) {
        Parameter* parameter = findParameter(name);
        if (parameter == nullptr) {
            fail("--param " + name + ": unknown parameter \"" + name + "\"; the parameters are: " +
                 names(m_parameters));
        }
        const bool listed = std::any_of(chosen.begin(), chosen.end(),
                                        [&](const Test* test) { return test->lists(parameter); });
        if (!listed) {
            std::string takes;
            for (const Test* test : chosen) {
                takes += (takes.empty() ? "" : "; ") + test->name().utf8() + " takes " + names(test->parameters());
            }
            fail("--param " + name + ": no chosen test takes \"" + name + "\"; " +
                 (chosen.empty() ? std::string("choose a test with --test") : takes));
        }
        given[parameter].push_back(text);
    }
    std::map<Parameter*, Value> values;
    for (const auto& [parameter, texts] : given) {
        values.emplace(parameter, ParameterParser::parse(*parameter, texts));
    }
    // Only now, when every value is good, do the parameters change.
    for (const auto& parameter : m_parameters) {
        parameter->reset();
    }
    for (const auto& [parameter, value] : values) {
        parameter->assign(value);
    }
}

void Host::configureLogging(const Options& options) const
{
    using ksx::LoggerPriority::LOGGER_PRIORITY;
    if (options.logLevel) {
        ksx::LogFactory::setPriority(static_cast<LOGGER_PRIORITY>(*options.logLevel));
    }
    for (const auto& [logger, level] : options.loggerLevels) {
        ksx::LogFactory::setLoggerPriority(logger.c_str(), static_cast<LOGGER_PRIORITY>(level));
    }
    if (!options.logFile.empty()) {
        try {
            ksx::LogFactory::setSink(ksx::String(options.logFile));
        } catch (const ksx::Exception& e) {
            fail("--log-file " + options.logFile + ": the log file cannot be opened (" +
                 e.getMessage().utf8() + ")");
        }
    }
    if (options.os == "auto") {
        ksx::OperatingSystem::setOverride(nullptr);
    } else {
        const bool pe = options.os == "winpe10";
        const ksx::OperatingSystem forced(pe ? ksx::OperatingSystem::WINDOWS_PE : ksx::OperatingSystem::WORKSTATION,
                                          options.os == "win11" ? ksx::OperatingSystem::WINDOWS_11
                                                                : ksx::OperatingSystem::WINDOWS_10);
        ksx::OperatingSystem::setOverride(&forced);
    }
}

void Host::loadLanguage(const std::string& choice)
{
    namespace fs = std::filesystem;
    const auto fileFor = [&](const std::string& code) { return m_languageFolder / (code + ".lang"); };
    const auto exists = [](const fs::path& path) {
        std::error_code ignored;
        return fs::is_regular_file(path, ignored);
    };
    if (choice.empty()) {
        if (!m_userLanguage.empty() && exists(fileFor(m_userLanguage))) {
            m_language = Language::load(fileFor(m_userLanguage));
        } else if (exists(fileFor("en"))) {
            m_language = Language::load(fileFor("en"));
        } else {
            m_language = Language();   // no files: every text shows its key
        }
        return;
    }
    const bool path = choice.find_first_of("/\\") != std::string::npos ||
                      (choice.size() > 5 && choice.substr(choice.size() - 5) == ".lang");
    if (path) {
        m_language = Language::load(Text::toPath(choice));
        return;
    }
    if (!exists(fileFor(choice))) {
        std::vector<std::string> codes;
        std::error_code ignored;
        for (const auto& entry : fs::directory_iterator(m_languageFolder, ignored)) {
            if (entry.path().extension() == ".lang") {
                codes.push_back(Text::fromPath(entry.path().stem()));
            }
        }
        std::sort(codes.begin(), codes.end());
        std::string available;
        for (const std::string& code : codes) {
            available += (available.empty() ? "" : ", ") + code;
        }
        fail("--lang " + choice + ": there is no language file " + Text::fromPath(fileFor(choice)) +
             "; available: " + (available.empty() ? std::string("none") : available) +
             " (or give the path of a .lang file)");
    }
    m_language = Language::load(fileFor(choice));
}

std::vector<DiagDevice> Host::devices() const
{
    std::vector<DiagDevice> found;
    if (!m_options.noSystemDevices) {
        for (const auto& source : m_sources) {
            source->enumerate(found);
        }
    }
    found.insert(found.end(), m_options.devices.begin(), m_options.devices.end());
    return found;
}

void Host::buildDeviceList()
{
    m_devices = devices();
    for (const DiagDevice& device : m_devices) {
        m_propertyTypes.check(device);
    }
}

void Host::runTest(const Test& test, int& status)
{
    const std::vector<DiagDevice>& all = m_devices;
    std::vector<const DiagDevice*> fitting;
    std::size_t excluded = 0;
    for (const DiagDevice& device : all) {
        if (!device.hasCapability(test.capability())) {
            continue;
        }
        if (test.excludes(device)) {
            ++excluded;
        } else {
            fitting.push_back(&device);
        }
    }
    const auto note = [&status](const TestResult& verdict) {
        status = status == 0 ? verdict.value() : status;
    };
    const auto cannotRun = [&](const std::string& reason) {
        RunRecord record = newRun(test);
        record.reason = reason;
        m_report.finishRun(m_report.beginRun(std::move(record)), TestResult::CANNOTRUN());
        note(TestResult::CANNOTRUN());
    };
    if (const auto refused = m_refused.find(&test); refused != m_refused.end()) {
        cannotRun(refused->second);
        return;
    }
    if (fitting.empty()) {
        std::string reason = "no device has " + test.capability().toString();
        if (excluded > 0) {
            reason = "no device fits: " + std::to_string(excluded) + " device(s) with " +
                     test.capability().toString() + " are excluded by the test's device property exclusions";
        }
        *m_err << test.name().utf8() << " cannot run: " << reason << std::endl;
        cannotRun(reason);
        return;
    }
    if (test.enumeratesOnlyOnce()) {
        fitting.resize(1);
    }
    for (const DiagDevice* device : fitting) {
        const TestResult verdict = runOnDevice(test, *device);
        note(verdict);
    }
}

TestResult Host::runOnDevice(const Test& test, const DiagDevice& device)
{
    RunRecord record = newRun(test);
    record.device = describe(device);
    m_currentRun = m_report.beginRun(std::move(record));
    m_currentTest = &test;
    // A stop request belongs to the run it was made in; one the test does not answer itself
    // closes its window the way its Cancel does.
    beginRunStops();
    const RunStopper stopper(*this);
    // A host or core exception ends the process with 7 once the module's run operation has it.
    const auto abnormal = [this](const std::string& text) {
        m_report.finishRun(*m_currentRun, TestResult::EXITEDABNORMALLY(), text);
        m_report.setExitStatus(TestResult::EXITEDABNORMALLY().value());
        m_currentTest = nullptr;
        m_currentRun.reset();
    };
    TestResult verdict;
    try {
        verdict = test.entry()(device);
    } catch (const HarnException& e) {
        abnormal("HarnException: " + e.toString().utf8());
        throw;
    } catch (const ksx::Exception& e) {
        abnormal("Exception: " + e.toString().utf8());
        throw;
    } catch (const std::exception& e) {
        return endedByOther(test, std::string("exception: ") + e.what());
    } catch (...) {
        return endedByOther(test, "an exception of unknown type");
    }
    m_report.finishRun(*m_currentRun, verdict);
    m_currentTest = nullptr;
    m_currentRun.reset();
    return verdict;
}

TestResult Host::endedByOther(const Test& test, const std::string& text)
{
    // Neither the host's nor the core's: the module would swallow it and exit with 0, so the run
    // says what happened here, and the tests after it still run.
    *m_err << test.name().utf8() << " ended abnormally: " << text << std::endl;
    m_report.finishRun(*m_currentRun, TestResult::EXITEDABNORMALLY(), text);
    m_currentTest = nullptr;
    m_currentRun.reset();
    return TestResult::EXITEDABNORMALLY();
}

void Host::report(Severity severity, Event* event, const HarnString& sourceFile, int sourceLine,
                  const std::string& detail)
{
    if (event == nullptr) {
        fail(std::string("a null event was reported as ") + severityName(severity) + " from " +
             sourceFile.utf8() + " line " + std::to_string(sourceLine));
    }
    if (!event->declared(severityName(severity), sourceFile.utf8(), sourceLine)) {
        // The registration and the report disagree: the report keeps what happened, the
        // stream says which of the two is wrong.
        const Event::Site& site = event->sites().front();
        *m_err << "event " << event->name().utf8() << " reported as " << severityName(severity) << " from "
               << sourceFile.utf8() << " line " << sourceLine << ", registered as " << site.severity << " from "
               << site.sourceFile << " line " << site.line << std::endl;
    }
    m_report.addEvent(m_currentRun, {event->name().utf8(), severityName(severity), sourceFile.utf8(),
                                     sourceLine, {}, detail});
}

std::optional<std::filesystem::path> Host::runFile(const std::string& name) const
{
    const std::filesystem::path& report = m_report.path();
    if (report.empty() || !m_currentRun) {
        return std::nullopt;
    }
    const std::string stem = Text::fromPath(report.stem());
    return report.parent_path() / Text::toPath(stem + "-run" + std::to_string(*m_currentRun + 1) + "-" + name);
}

void Host::measure(const std::vector<RunRecord::Measurement>& measurements)
{
    if (!m_currentRun) {
        fail("measurements were given outside a test's run");
    }
    m_report.addMeasurements(*m_currentRun, measurements);
}

bool Host::checkForStop() const
{
    m_stop.polled = true;
    return stopRequested();
}

bool Host::stopRequested() const
{
    if (m_stop.requested) {
        return true;
    }
    using Seconds = std::chrono::duration<double>;
    const auto now = std::chrono::steady_clock::now();
    std::error_code ignored;
    const bool fileThere = !m_stopFile.empty() && std::filesystem::exists(m_stopFile, ignored);
    // A stop file that ended an earlier run counts again only once it has gone and come back.
    m_stop.fileHeld = m_stop.fileHeld && fileThere;
    m_stop.byFile = fileThere && !m_stop.fileHeld;
    m_stop.requested = RunGuard::interrupted() || m_stop.byFile ||
                       (m_options.stopAfterSeconds &&
                        Seconds(now - m_stop.runStart).count() >= *m_options.stopAfterSeconds);
    if (m_stop.requested) {
        m_stop.seenAt = now;
    }
    return m_stop.requested;
}

bool Host::stopUnanswered() const
{
    return stopRequested() && !m_stop.polled && std::chrono::steady_clock::now() - m_stop.seenAt >= kStopGrace;
}

void Host::beginRunStops()
{
    m_stop.fileHeld = m_stop.fileHeld || (m_stop.requested && m_stop.byFile);
    m_stop.requested = false;
    m_stop.byFile = false;
    m_stop.polled = false;
    m_stop.runStart = std::chrono::steady_clock::now();
    RunGuard::clearInterrupt();
}

const Test* Host::currentTest() const
{
    return m_currentTest;
}

void Host::setLanguageFolder(const std::filesystem::path& folder)
{
    m_languageFolder = folder;
}

void Host::setUserLanguage(const std::string& code)
{
    m_userLanguage = code;
}

void Host::setConsoleInput(bool console)
{
    m_consoleInput = console;
}

void Host::addDeviceSource(std::unique_ptr<DeviceSource> source)
{
    m_sources.push_back(std::move(source));
}

void Host::addDeviceProvider(const std::string& kind, std::unique_ptr<DeviceProvider> provider)
{
    m_providers[kind] = std::move(provider);
}

void Host::declareDeviceProperty(const std::string& name, DevicePropertyTypes::Type type)
{
    m_propertyTypes.declare(name, type);
}

void Host::setOutput(std::ostream& out, std::ostream& err)
{
    m_out = &out;
    m_err = &err;
}

std::uintptr_t Host::hostWindow() const
{
    return m_options.hostWindow;
}

const std::string& Host::recordPath() const
{
    return m_options.recordPath;
}

const Language& Host::language() const
{
    return m_language;
}

const Report& Host::results() const
{
    return m_report;
}

std::string Host::listing() const
{
    std::string text = "Tests:\n";
    for (const auto& test : m_tests) {
        std::string exclusions;
        for (const auto& [property, value] : test->exclusions()) {
            exclusions += (exclusions.empty() ? "" : ", ") + property.utf8() +
                          (value.empty() ? std::string(" (any value)") : "=" + value.utf8());
        }
        std::string required;
        for (const HarnString& property : test->requiredProperties()) {
            required += (required.empty() ? "" : ", ") + property.utf8();
        }
        text += "  " + test->name().utf8() + " \"" + test->localizedName().utf8() + "\"\n" +
                "      capability " + test->capability().toString() + "; " +
                (test->interactive() ? "interactive" : "not interactive") + ", " +
                (test->createsOwnGUI() ? "own GUI" : "no own GUI") + ", " +
                (test->enumeratesOnlyOnce() ? "first fitting device only" : "every fitting device") + "\n" +
                "      excludes devices with: " + (exclusions.empty() ? std::string("none") : exclusions) + "\n" +
                (required.empty() ? std::string() : "      requires devices with: " + required + "\n") +
                "      parameters: " + names(test->parameters()) + "\n";
    }
    text += "Parameters:\n";
    for (const auto& parameter : m_parameters) {
        text += "  " + parameter->name().utf8() + " " + parameter->type().name() + "\n";
    }
    text += "Events:\n";
    for (const auto& event : m_events) {
        std::string sites;
        for (const Event::Site& site : event->sites()) {
            sites += (sites.empty() ? " " : "; ") + site.severity + " " + site.sourceFile + " " + std::to_string(site.line);
        }
        text += "  " + event->name().utf8() + sites + "\n";
    }
    text += "Text keys:\n";
    for (const auto& key : m_texts) {
        text += "  " + key->key().utf8() + "\n";
    }
    return text;
}

std::string Host::deviceListing() const
{
    const auto field = [](const DiagDevice& device, const char* name, const char* absent = "-") {
        const DeviceProperty* property = device.property(HarnString(name));
        return property == nullptr ? std::string(absent) : property->text().utf8();
    };
    std::string text = "Devices (INDEX is what --device stick:INDEX takes):\n";
    for (const DiagDevice& device : m_devices) {
        const std::string vid = field(device, "VID", "");
        const std::string pid = field(device, "PID", "");
        const std::string wheel = field(device, "HorizontalWheel", "");
        text += "  " + field(device, "Index") + "  " + field(device, "Kind") + "  " + device.name().utf8() + "  " +
                (vid.empty() || pid.empty() ? "-" : vid + ":" + pid) + "  " + field(device, "InterfacePath") +
                "  buttons " + field(device, "Buttons") + ", sample rate " + field(device, "SampleRate") +
                ", horizontal wheel " + (wheel.empty() ? "-" : Value(HarnString(wheel)).valueBool() ? "yes" : "no") +
                (field(device, "PadSize", "").empty()
                     ? ""
                     : ", size " + field(device, "PadSize") + ", contacts a report " + field(device, "ContactsPerReport")) +
                "  offered as " + (device.capability().empty() ? "nothing" : device.capability().toString()) + "\n" +
                "      " + m_propertyTypes.understood(device) + "\n";
    }
    if (m_devices.empty()) {
        text += "  none\n";
    }
    return text;
}

void Host::recordCrash(const std::string& exceptionText)
{
    const std::string who = m_currentTest ? m_currentTest->name().utf8() : std::string("the module");
    if (m_currentRun) {
        m_report.finishRun(*m_currentRun, TestResult::EXITEDABNORMALLY(), exceptionText);
    }
    m_report.setExitStatus(TestResult::EXITEDABNORMALLY().value());
    *m_err << who << " ended abnormally: structured exception " << exceptionText << std::endl;
}

std::string Host::versionText() const
{
    return std::to_string(m_major) + "." + std::to_string(m_minor) + "." + m_build;
}

Test* Host::findTest(const std::string& name) const
{
    for (const auto& test : m_tests) {
        if (test->name().utf8() == name) {
            return test.get();
        }
    }
    return nullptr;
}

Parameter* Host::findParameter(const std::string& name) const
{
    for (const auto& parameter : m_parameters) {
        if (parameter->name().utf8() == name) {
            return parameter.get();
        }
    }
    return nullptr;
}

}  // namespace harn5
