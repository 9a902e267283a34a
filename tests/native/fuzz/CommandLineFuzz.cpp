// The host's options, one argument a line. Parsing gives options within their ranges or a
// one-line HarnException; and what parses with the device kinds parses without them to the same
// logging options, since the early parse that sets up logging before start() knows no kinds.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Promise.h"
#include "ShippedSessionDevices.h"
#include "harn5/CommandLine.h"
#include "harn5/HarnException.h"
#include "harn5/Text.h"

using namespace harn5;

namespace {

std::optional<Options> parsed(const std::vector<std::string>& arguments, const DeviceProviders* providers)
{
    try {
        return CommandLine::parse(arguments, providers);
    } catch (const HarnException& error) {
        Promise::refusal(error, "");
        return std::nullopt;
    }
}

bool isLevel(int level)
{
    return level >= 1 && level <= 6;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> arguments = text.empty() ? std::vector<std::string>() : Text::split(text, '\n');
    const ShippedSessionDevices devices;
    const std::optional<Options> full = parsed(arguments, &devices.providers());
    const std::optional<Options> early = parsed(arguments, nullptr);
    if (!full) {
        return 0;
    }
    Promise::hold(!full->logLevel || isLevel(*full->logLevel), "the log level is 1 to 6");
    for (const auto& [logger, level] : full->loggerLevels) {
        Promise::hold(!logger.empty() && isLevel(level), "a logger's level names it and is 1 to 6");
    }
    Promise::hold(!full->stopAfterSeconds || (std::isfinite(*full->stopAfterSeconds) && *full->stopAfterSeconds >= 0),
                  "the stop time is a finite number of seconds");
    Promise::hold(full->os == "auto" || full->os == "win10" || full->os == "win11" || full->os == "winpe10",
                  "the system is a known one");
    for (const auto& parameter : full->parameters) {
        Promise::hold(!parameter.first.empty() && parameter.first.find('=') == std::string::npos,
                      "a parameter has a name without '='");
    }
    for (const DiagDevice& device : full->devices) {
        Promise::hold(!device.capability().empty(), "a device can do something");
    }
    Promise::hold(early.has_value(), "what parses with the device kinds parses without them");
    Promise::hold(early->logLevel == full->logLevel && early->loggerLevels == full->loggerLevels &&
                      early->logFile == full->logFile && early->os == full->os,
                  "the early parse takes the same logging options");
    return 0;
}
