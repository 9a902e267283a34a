#pragma once
// The one logging pattern of the module. `loggerVar` is the calling source file's own
//     static ksx::Logger* s_log = nullptr;
// for that logger name; it is filled on the first message or trace that passes the process-wide
// threshold. `line` is the logging statement's line as a named constant: it is output that hosts
// match on, so never __LINE__.
//
//     KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_TRACE, kLineGdiplus,
//             "moduleInit()::GdiplusStartup() call failed");
//     KSX_LOG(s_log, "kstrmouse", ksx::LoggerPriority::PRIORITY_DEBUG, kLineStatus, "status " + status);
//
// `message` continues a `+` / `<<` chain after "<line> ", so it is evaluated only when the
// message passes every threshold.
#include "ksx/LogFactory.h"
#include "ksx/Logger.h"
#include "ksx/LoggerPriority.h"
#include "ksx/LoggerStream.h"
#include "ksx/TraceLogger.h"

namespace ksx {

// The file's logger when a message of `priority` passes the process-wide threshold (creating it
// on first use) and then the logger's own and resolved thresholds; null otherwise.
Logger* passingLogger(Logger*& slot, const char* name, LoggerPriority::LOGGER_PRIORITY priority);

// The file's logger for a trace: only while the process-wide threshold and the logger's own
// threshold are both at most PRIORITY_TRACE; null otherwise (the trace is then silent).
Logger* traceLogger(Logger*& slot, const char* name);

}  // namespace ksx

#define KSX_LOG(loggerVar, name, priority, line, message)                                       \
    do {                                                                                        \
        if (::ksx::Logger* const ksxPassing_ = ::ksx::passingLogger((loggerVar), (name), (priority))) \
            ksxPassing_->log((priority), ::ksx::LoggerStream() + (line) + " " + message);       \
    } while (0)

#define KSX_TRACE(varName, loggerVar, name, label, file, line) \
    ::ksx::TraceLogger varName(::ksx::traceLogger((loggerVar), (name)), (label), (file), (line))
