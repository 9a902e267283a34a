#include "ksx/AssertionFailure.h"

#include <atomic>
#include <string>

#include "AssertionRaise.h"
#include "ksx/Log.h"
#include "ksx/OStream.h"

namespace ksx {

namespace {

Logger* s_log = nullptr;
constinit std::atomic<AssertionFailure::Handler> s_handler{nullptr};

void report(const std::string& text)
{
    bool reachedErrorStream = false;
    if (Logger* const logger = passingLogger(s_log, "ksx", LoggerPriority::PRIORITY_ERROR)) {
        // With the default sink the log line already is on the error stream.
        reachedErrorStream = logger->log(LoggerPriority::PRIORITY_ERROR, LoggerStream() + text.c_str()) &&
                             LogFactory::writesToErrorStream();
    }
    // A technician reads the error stream even when logging is off.
    if (!reachedErrorStream) cerr << text.c_str() << endl;
}

std::string describe(const char* file, unsigned long long line, const char* expression)
{
    return std::string("Assertion failed: ") + (file ? file : "") + ':' + std::to_string(line) + ": " +
           (expression ? expression : "");
}

}  // namespace

void AssertionFailure::logAssert(const char* file, unsigned long long line, const char* expression)
{
    report(describe(file, line, expression));
}

void AssertionFailure::logAssert(const char* file, unsigned long long line, const char* expression,
                                 const String& message)
{
    report(describe(file, line, expression) + ": " + message.utf8());
}

void AssertionFailure::fail()
{
    if (const Handler handler = s_handler.load()) handler();
    else raiseAssertionException();
}

AssertionFailure::Handler AssertionFailure::setHandler(Handler handler)
{
    return s_handler.exchange(handler);
}

}  // namespace ksx
