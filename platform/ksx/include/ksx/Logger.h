#pragma once
// A named logger. Only LogFactory makes them; each lives until the process ends.
#include <string>

#include "ksx/LoggerPriority.h"
#include "ksx/LoggerStream.h"

namespace ksx {

class Logger {
public:
    Logger(const Logger&) = delete;
    Logger& operator=(const Logger&) = delete;

    // The logger's own threshold; PRIORITY_NOTSET when none was configured for its name.
    LoggerPriority::LOGGER_PRIORITY priority = LoggerPriority::PRIORITY_NOTSET;

    // Own threshold if set, else the nearest dotted ancestor's configured one ("a.b.c" asks
    // "a.b", then "a"), else the process-wide threshold.
    LoggerPriority::LOGGER_PRIORITY resolvePriority() const;

    // Writes "YYYY-MM-DD HH:MM:SS.mmm <name> <priority> <text>" to the factory's sink when the
    // priority passes resolvePriority(); answers whether the line was written.
    bool log(LoggerPriority::LOGGER_PRIORITY level, const LoggerStream& message);

    const std::string& name() const;

private:
    friend class LogFactory;
    explicit Logger(std::string name);

    std::string m_name;
};

}  // namespace ksx
