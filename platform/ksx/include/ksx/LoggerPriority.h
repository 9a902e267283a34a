#pragma once
// Log thresholds and message priorities: a message of priority P passes a threshold T when T <= P.
// The enumerator names avoid ERROR and friends, which windows.h defines as macros.

namespace ksx::LoggerPriority {

enum LOGGER_PRIORITY {
    PRIORITY_NOTSET = 0,
    PRIORITY_TRACE = 1,
    PRIORITY_DEBUG = 2,
    PRIORITY_INFO = 3,
    PRIORITY_WARNING = 4,
    PRIORITY_ERROR = 5,
    PRIORITY_OFF = 6
};

}  // namespace ksx::LoggerPriority
