#include "ksx/Logger.h"

#include <chrono>
#include <cstdio>
#include <ctime>

#include "ksx/LogFactory.h"

namespace ksx {

using LoggerPriority::LOGGER_PRIORITY;

namespace {

// "YYYY-MM-DD HH:MM:SS.mmm" in local time.
std::string timestamp()
{
    const auto now = std::chrono::system_clock::now();
    const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
    const auto millis =
        std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
    std::tm local{};
#if defined(_WIN32)
    localtime_s(&local, &seconds);
#else
    localtime_r(&seconds, &local);
#endif
    char text[64];   // room for any int the fields may hold
    std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d.%03d", local.tm_year + 1900,
                  local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min, local.tm_sec,
                  static_cast<int>(millis));
    return text;
}

}  // namespace

Logger::Logger(std::string name) : m_name(std::move(name))
{
}

LOGGER_PRIORITY Logger::resolvePriority() const
{
    if (priority != LoggerPriority::PRIORITY_NOTSET) return priority;
    std::string ancestor = m_name;
    for (auto dot = ancestor.rfind('.'); dot != std::string::npos; dot = ancestor.rfind('.')) {
        ancestor.resize(dot);
        const LOGGER_PRIORITY configured = LogFactory::configuredPriority(ancestor);
        if (configured != LoggerPriority::PRIORITY_NOTSET) return configured;
    }
    return LogFactory::getPriority();
}

bool Logger::log(LOGGER_PRIORITY level, const LoggerStream& message)
{
    if (level < resolvePriority()) return false;
    LogFactory::write(timestamp() + ' ' + m_name + ' ' + std::to_string(static_cast<int>(level)) + ' ' +
                      message.text());
    return true;
}

const std::string& Logger::name() const
{
    return m_name;
}

}  // namespace ksx
