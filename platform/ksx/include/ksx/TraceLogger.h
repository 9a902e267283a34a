#pragma once
// Scoped trace of one function: a line at construction and one at destruction, both at
// PRIORITY_TRACE. A null logger makes it silent.
#include "ksx/Logger.h"

namespace ksx {

class TraceLogger {
public:
    TraceLogger(Logger* logger, const char* label, const char* file, int line);
    ~TraceLogger();

    TraceLogger(const TraceLogger&) = delete;
    TraceLogger& operator=(const TraceLogger&) = delete;

private:
    void write(const char* event) const;

    Logger* m_logger;
    const char* m_label;
    const char* m_file;
    int m_line;
    int m_uncaughtAtStart;
};

}  // namespace ksx
