#pragma once
// Reporting of failed assertions. A failed KSX_ASSERT logs the file, line and expression, then
// ends the function by the failure handler: on Windows a structured exception with code 7, no
// flags and no arguments; elsewhere std::abort(). Tests may install their own handler.
#include "ksx/String.h"

namespace ksx {

class AssertionFailure {
public:
    using Handler = void (*)();

    // Writes "Assertion failed: <file>:<line>: <expression>[: <message>]" to the logger "ksx" at
    // PRIORITY_ERROR (subject to its thresholds) and, unless that already went there, to ksx::cerr.
    static void logAssert(const char* file, unsigned long long line, const char* expression);
    static void logAssert(const char* file, unsigned long long line, const char* expression,
                          const String& message);

    // Runs the failure handler.
    static void fail();
    // Installs `handler` (null restores the default) and answers the one it replaces.
    static Handler setHandler(Handler handler);
};

}  // namespace ksx

#define KSX_ASSERT(expr, file, line)                                        \
    do {                                                                    \
        if (!(expr)) {                                                      \
            ::ksx::AssertionFailure::logAssert((file), (line), #expr);      \
            ::ksx::AssertionFailure::fail();                                \
        }                                                                   \
    } while (0)

#define KSX_ASSERT_MSG(expr, message, file, line)                                   \
    do {                                                                            \
        if (!(expr)) {                                                              \
            ::ksx::AssertionFailure::logAssert((file), (line), #expr, (message));   \
            ::ksx::AssertionFailure::fail();                                        \
        }                                                                           \
    } while (0)
