#pragma once
// Loggers by name, the process-wide threshold, per-name thresholds and where log lines go.
#include <functional>
#include <string>

#include "ksx/LoggerPriority.h"
#include "ksx/String.h"

namespace ksx {

class Logger;

class LogFactory {
public:
    using LineSink = std::function<void(const std::string& line)>;

    // Process-wide threshold; PRIORITY_WARNING until set.
    static LoggerPriority::LOGGER_PRIORITY getPriority();
    static void setPriority(LoggerPriority::LOGGER_PRIORITY priority);

    // Stores the logger of that name in `out`, the same object for the same name every time.
    static void createLogger(const char* name, Logger*& out);

    // Threshold for one logger name, before or after that logger exists; PRIORITY_NOTSET removes it.
    static void setLoggerPriority(const char* name, LoggerPriority::LOGGER_PRIORITY priority);
    // The threshold configured for exactly this name, PRIORITY_NOTSET when none.
    static LoggerPriority::LOGGER_PRIORITY configuredPriority(const std::string& name);

    // Where lines go: the error stream ksx::cerr (the default), a file opened for append with
    // every line flushed (throws ksx::Exception when it cannot be opened), or a function.
    static void resetSink();
    static void setSink(const String& filePath);
    static void setSink(LineSink sink);
    static bool writesToErrorStream();

    // How often createLogger was called in this process.
    static unsigned long long createLoggerCalls();

private:
    friend class Logger;
    static void write(const std::string& line);
};

}  // namespace ksx
