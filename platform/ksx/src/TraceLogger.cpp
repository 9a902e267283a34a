#include "ksx/TraceLogger.h"

#include <exception>

namespace ksx {

TraceLogger::TraceLogger(Logger* logger, const char* label, const char* file, int line)
    : m_logger(logger),
      m_label(label ? label : ""),
      m_file(file ? file : ""),
      m_line(line),
      m_uncaughtAtStart(std::uncaught_exceptions())
{
    write("");
}

TraceLogger::~TraceLogger()
{
    // Telling an exception's way out from a normal return is what a reader of a trace needs most.
    write(std::uncaught_exceptions() > m_uncaughtAtStart ? " left by exception" : " done");
}

// "<line> <label>[ event] (<file>)": the line first, as in every message of the module.
void TraceLogger::write(const char* event) const
{
    if (!m_logger) return;
    m_logger->log(LoggerPriority::PRIORITY_TRACE,
                  LoggerStream() + m_line + " " + m_label + event + " (" + m_file + ")");
}

}  // namespace ksx
