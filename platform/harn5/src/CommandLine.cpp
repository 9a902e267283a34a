#include "harn5/CommandLine.h"

#include <cctype>
#include <charconv>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <set>

#include "harn5/HarnException.h"
#include "harn5/ParameterParser.h"
#include "harn5/Text.h"

namespace harn5 {

namespace {

[[noreturn]] void fail(const std::string& message)
{
    throw HarnException(HarnString(message));
}

int parseLevel(const std::string& text, const std::string& option)
{
    const std::optional<unsigned int> level = ParameterParser::parseUint32(text);
    if (!level || *level < 1 || *level > 6) {
        fail(option + ": \"" + text + "\" is not a log level; give 1 (trace) to 5 (error), or 6 (off)");
    }
    return static_cast<int>(*level);
}

double parseSeconds(const std::string& text)
{
    // Decimal with an optional fraction: "30", "0.5", ".25". No sign, no exponent.
    const std::size_t dot = text.find('.');
    const std::string whole = text.substr(0, dot);
    const std::string fraction = dot == std::string::npos ? "" : text.substr(dot + 1);
    const auto digits = [](const std::string& part) {
        for (const char c : part) {
            if (!std::isdigit(static_cast<unsigned char>(c))) {
                return false;
            }
        }
        return true;
    };
    if ((whole.empty() && fraction.empty()) || !digits(whole) || !digits(fraction) ||
        whole.size() > 9) {
        fail("--stop-after: \"" + text + "\" is not a number of seconds; give a decimal such as 30 or 2.5");
    }
    double seconds = whole.empty() ? 0.0 : std::stod(whole);
    double scale = 0.1;
    for (const char c : fraction) {
        seconds += (c - '0') * scale;
        scale /= 10;
    }
    return seconds;
}

std::uintptr_t parseHandle(const std::string& text)
{
    const bool hex = text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
    const std::string digits = hex ? text.substr(2) : text;
    unsigned long long handle = 0;
    const auto [end, error] =
        std::from_chars(digits.data(), digits.data() + digits.size(), handle, hex ? 16 : 10);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size() ||
        handle > UINTPTR_MAX) {
        fail("--host-window: \"" + text + "\" is not a window handle; give a decimal or 0x-hexadecimal number");
    }
    return static_cast<std::uintptr_t>(handle);
}

// The kind of a "KIND:SOURCE,..." description; none for a list of capabilities.
std::optional<std::string> deviceKind(const std::string& description)
{
    const std::size_t colon = description.find(':');
    if (colon == std::string::npos || colon > description.find(',')) {
        return std::nullopt;
    }
    return Text::trim(description.substr(0, colon));
}

// A recording must be possible before any test starts; nothing is left behind by the check.
void checkWritable(const std::string& option, const std::string& text)
{
    const std::string where = option + " \"" + text + "\": ";
    if (text.empty()) {
        fail(where + "the path is empty; give the session file to write");
    }
    const std::filesystem::path file = Text::toPath(text);
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) {
        fail(where + "is a folder; give the path of a session file");
    }
    const std::filesystem::path folder = std::filesystem::absolute(file, error).parent_path();
    if (!std::filesystem::is_directory(folder, error)) {
        fail(where + "its folder does not exist; give a path in an existing folder");
    }
    const bool existed = std::filesystem::exists(file, error);
    if (!std::ofstream(file, std::ios::binary | std::ios::app)) {
        fail(where + "cannot be written; give a path you may write");
    }
    if (!existed) {
        std::filesystem::remove(file, error);
    }
}

}  // namespace

DiagDevice CommandLine::parseDevice(const std::string& description, std::size_t index,
                                    const DeviceProviders* providers, const std::string& record)
{
    const std::string where = "--device \"" + description + "\": ";
    const std::vector<std::string> fields = Text::split(description, ',');
    std::optional<std::string> deviceName;
    std::vector<std::pair<std::string, std::string>> settings;
    std::set<std::string> seen;
    for (std::size_t i = 1; i < fields.size(); ++i) {
        const std::size_t equals = fields[i].find('=');
        const std::string property = Text::trim(fields[i].substr(0, equals));
        if (equals == std::string::npos || property.empty()) {
            fail(where + "\"" + fields[i] + "\" is not PROPERTY=VALUE");
        }
        if (!seen.insert(property).second) {
            fail(where + "property \"" + property + "\" is given twice");
        }
        const std::string value = Text::trim(fields[i].substr(equals + 1));
        if (property == "name") {
            // An empty name would leave the device blank in the report and the dialogs.
            if (!value.empty()) {
                deviceName = value;
            }
        } else {
            settings.emplace_back(property, value);
        }
    }

    if (const std::optional<std::string> kind = deviceKind(description)) {
        DeviceProvider* provider = nullptr;
        if (providers != nullptr) {
            if (const auto found = providers->find(*kind); found != providers->end()) {
                provider = found->second.get();
            }
        }
        if (provider == nullptr) {
            std::string kinds;
            if (providers != nullptr) {
                for (const auto& entry : *providers) {
                    kinds += (kinds.empty() ? "" : ", ") + entry.first;
                }
            }
            fail(where + "unknown device kind \"" + *kind + "\"; give KIND:SOURCE with a kind from " +
                 (kinds.empty() ? std::string("none") : kinds) +
                 ", or capabilities joined by '+' from " + DeviceCapability::knownNames());
        }
        DeviceProvider::Request request;
        request.kind = *kind;
        request.source = Text::trim(fields.front().substr(fields.front().find(':') + 1));
        request.settings = std::move(settings);
        request.index = index;
        request.record = record;
        const DiagDevice made = provider->makeDevice(request);
        return deviceName ? DiagDevice(HarnString(*deviceName), made.capability(), made.properties()) : made;
    }

    DeviceCapability capability;
    for (const std::string& part : Text::split(fields.front(), '+')) {
        const std::string name = Text::trim(part);
        const std::optional<DeviceCapability> member = DeviceCapability::fromName(name);
        if (!member) {
            fail(where + (name.empty() ? std::string("a capability is missing")
                                       : "unknown capability \"" + name + "\"") +
                 "; give capabilities joined by '+' from " + DeviceCapability::knownNames());
        }
        capability = capability | *member;
    }
    std::vector<DeviceProperty> properties;
    for (const auto& [property, value] : settings) {
        properties.emplace_back(HarnString(property), HarnString(value));
    }
    return DiagDevice(HarnString(deviceName.value_or("Device " + std::to_string(index) + " (" +
                                                      capability.toString() + ")")),
                      capability, std::move(properties));
}

Options CommandLine::parse(const std::vector<std::string>& arguments, const DeviceProviders* providers)
{
    Options options;
    std::vector<std::string> descriptions;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        std::string option = arguments[i];
        std::optional<std::string> inlineValue;
        if (option.rfind("--", 0) == 0) {
            if (const std::size_t equals = option.find('='); equals != std::string::npos) {
                inlineValue = option.substr(equals + 1);
                option.resize(equals);
            }
        }
        const auto flag = [&]() {
            if (inlineValue) {
                fail(option + " takes no value, but \"" + *inlineValue + "\" was given");
            }
        };
        const auto value = [&](const char* what) -> std::string {
            if (inlineValue) {
                return *inlineValue;
            }
            // "--test --report x" lacks the test, rather than naming one "--report".
            if (i + 1 >= arguments.size() || arguments[i + 1].rfind("--", 0) == 0) {
                fail(option + " needs a value: " + what);
            }
            return arguments[++i];
        };

        if (option == "--help") {
            flag();
            options.help = true;
        } else if (option == "--list") {
            flag();
            options.list = true;
        } else if (option == "--list-devices") {
            flag();
            options.listDevices = true;
        } else if (option == "--no-system-devices") {
            flag();
            options.noSystemDevices = true;
        } else if (option == "--unattended") {
            flag();
            options.unattended = true;
        } else if (option == "--test") {
            options.tests.push_back(value("the name of a test (--list shows them)"));
        } else if (option == "--param") {
            const std::string assignment = value("NAME=VALUE");
            const std::size_t equals = assignment.find('=');
            if (equals == std::string::npos || equals == 0) {
                fail("--param \"" + assignment + "\" is not NAME=VALUE");
            }
            options.parameters.emplace_back(assignment.substr(0, equals), assignment.substr(equals + 1));
        } else if (option == "--lang") {
            options.language = value("a language code such as de, or the path of a .lang file");
        } else if (option == "--report") {
            options.reportPath = value("the path of the JSON report to write");
        } else if (option == "--log-level") {
            const std::string level = value("1..6, or LOGGER=1..6");
            const std::size_t equals = level.find('=');
            if (equals == std::string::npos) {
                options.logLevel = parseLevel(level, option);
            } else if (equals == 0) {
                fail("--log-level \"" + level + "\": the logger name before '=' is missing");
            } else {
                options.loggerLevels.emplace_back(level.substr(0, equals),
                                                  parseLevel(level.substr(equals + 1), option));
            }
        } else if (option == "--log-file") {
            options.logFile = value("the path of the log file");
        } else if (option == "--stop-after") {
            options.stopAfterSeconds = parseSeconds(value("a number of seconds"));
        } else if (option == "--stop-file") {
            options.stopFile = value("the path of a file whose appearance asks the test to stop");
        } else if (option == "--device") {
            descriptions.push_back(value("CAPABILITY+...,PROPERTY=VALUE,... or KIND:SOURCE,..."));
        } else if (option == "--record") {
            options.recordPath = value("the path of the session file to record a live touch device into");
            checkWritable(option, options.recordPath);
        } else if (option == "--convert") {
            const std::string in = value("the session file or HID recording to convert, then the session file to write");
            if (i + 1 >= arguments.size() || arguments[i + 1].rfind("--", 0) == 0) {
                fail("--convert \"" + in + "\" needs the path of the session file to write after it");
            }
            const std::string out = arguments[++i];
            checkWritable(option, out);
            options.convert.emplace(in, out);
        } else if (option == "--host-window") {
            options.hostWindow = parseHandle(value("a window handle"));
        } else if (option == "--os") {
            options.os = value("auto, win10, win11 or winpe10");
            if (options.os != "auto" && options.os != "win10" && options.os != "win11" &&
                options.os != "winpe10") {
                fail("--os \"" + options.os + "\" is not known; valid: auto, win10, win11, winpe10");
            }
        } else if (option.rfind("-", 0) == 0) {
            fail("unknown option \"" + option + "\"; --help lists the options");
        } else {
            fail("unexpected argument \"" + option + "\"; options begin with --, --help lists them");
        }
    }
    // Devices last: a live device records wherever --record says, before or after it.
    for (const std::string& description : descriptions) {
        if (providers != nullptr || !deviceKind(description)) {
            options.devices.push_back(
                parseDevice(description, options.devices.size() + 1, providers, options.recordPath));
        }
    }
    return options;
}

std::string CommandLine::help(const std::string& moduleName)
{
    return "Usage: " + moduleName + " [options]\n"
           "Runs the module's diagnostic tests and reports their verdicts.\n"
           "\n"
           "  --list                      show the tests, parameters, events and text keys\n"
           "  --list-devices              show the devices the tests can run on\n"
           "  --test NAME                 run a test; repeat to run several, or one twice\n"
           "  --param NAME=VALUE          set a parameter of the chosen tests; BOOLEAN takes\n"
           "                              true/false/1/0/yes/no, UINT32 0..4294967295,\n"
           "                              STRINGARRAY one element per repetition or several\n"
           "                              separated by ';'\n"
           "  --device DEVICE             add a device: capabilities joined by '+', then\n"
           "                              ,PROPERTY=VALUE pairs; name=TEXT names it, e.g.\n"
           "                              SynapticsTouchPad+SynapticsMouse+Mouse,SP_Handle=1\n"
           "                              capabilities: " + DeviceCapability::knownNames() + "\n"
           "  --device KIND:SOURCE        add a device of a kind the module knows, then\n"
           "                              ,PROPERTY=VALUE pairs, e.g. touchpad:pad.session,\n"
           "                              or stick:INDEX|TEXT for a pointing stick that reports\n"
           "                              as a mouse (--list-devices shows the indexes)\n"
           "  --record PATH               record the session of a live touchpad or stick, or\n"
           "                              of a replay, into PATH, to be replayed with\n"
           "                              touchpad:PATH\n"
           "  --convert IN OUT            write the session file OUT (version 2) from IN, a\n"
           "                              HID recording or a session file; runs no test\n"
           "  --no-system-devices         do not look for the system's own devices\n"
           "  --unattended                never wait for a person: a start-up failure is a line\n"
           "                              on stderr, not a message box (implied when standard\n"
           "                              input is not a console)\n"
           "  --lang CODE|PATH            language: a code (lang/CODE.lang beside the module)\n"
           "                              or a .lang file; default: the system's UI language\n"
           "                              when there is a file for it, else English\n"
           "  --report PATH               write the JSON results report to PATH\n"
           "  --log-level N               log threshold 1 (trace) to 5 (error), 6 for off\n"
           "  --log-level LOGGER=N        threshold of one logger and its descendants\n"
           "  --log-file PATH             append log lines to PATH instead of stderr\n"
           "  --stop-after SECONDS        ask the running test to stop after SECONDS\n"
           "  --stop-file PATH            ask the running test to stop once PATH exists\n"
           "  --host-window HANDLE        parent window for the tests' dialogs\n"
           "  --os auto|win10|win11|winpe10  treat the system as this Windows\n"
           "  --help                      show this text\n"
           "\n"
           "Exit status: 0 when every run passed, else the value of the first verdict that\n"
           "is not PASS (FAIL 1, WARN 2, USERABORTED 3, CANNOTRUN 4, SKIPPED 5,\n"
           "INTERNALERROR 6, EXITEDABNORMALLY 7, TESTNOTSTARTED 8); 7 for bad options.\n";
}

}  // namespace harn5
