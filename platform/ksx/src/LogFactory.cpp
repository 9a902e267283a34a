#include "ksx/LogFactory.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <map>
#include <memory>
#include <mutex>

#include "ksx/Exception.h"
#include "ksx/Logger.h"
#include "ksx/OStream.h"

namespace ksx {

using LoggerPriority::LOGGER_PRIORITY;

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

struct Registry {
    std::mutex mutex;
    std::map<std::string, Logger*> loggers;
    std::map<std::string, LOGGER_PRIORITY> configured;
    LogFactory::LineSink sink;   // when set, lines go here
    File file;                   // else here when open, else to ksx::cerr
    unsigned long long createLoggerCalls = 0;
};

// Never destroyed: loggers must outlive every static object, since the module logs and traces
// from static initialisation onwards and may do so from static destructors too.
Registry& registry()
{
    static Registry* const instance = new Registry;
    return *instance;
}

// Constant-initialised so that it holds before any static constructor asks for it.
constinit std::atomic<int> s_priority{LoggerPriority::PRIORITY_WARNING};

File openForAppend(const String& path)
{
#if defined(_WIN32)
    return File(_wfopen(reinterpret_cast<const wchar_t*>(path.getUCS2Buffer()), L"ab"));
#else
    return File(std::fopen(path.utf8().c_str(), "ab"));
#endif
}

}  // namespace

LOGGER_PRIORITY LogFactory::getPriority()
{
    return static_cast<LOGGER_PRIORITY>(s_priority.load(std::memory_order_relaxed));
}

void LogFactory::setPriority(LOGGER_PRIORITY priority)
{
    s_priority.store(priority, std::memory_order_relaxed);
}

void LogFactory::createLogger(const char* name, Logger*& out)
{
    Registry& r = registry();
    const std::string key = name ? name : "";
    std::lock_guard lock(r.mutex);
    ++r.createLoggerCalls;
    Logger*& logger = r.loggers[key];
    if (!logger) {
        logger = new Logger(key);
        const auto configured = r.configured.find(key);
        if (configured != r.configured.end()) logger->priority = configured->second;
    }
    out = logger;
}

void LogFactory::setLoggerPriority(const char* name, LOGGER_PRIORITY priority)
{
    Registry& r = registry();
    const std::string key = name ? name : "";
    std::lock_guard lock(r.mutex);
    if (priority == LoggerPriority::PRIORITY_NOTSET) r.configured.erase(key);
    else r.configured[key] = priority;
    const auto existing = r.loggers.find(key);
    if (existing != r.loggers.end()) existing->second->priority = priority;
}

LOGGER_PRIORITY LogFactory::configuredPriority(const std::string& name)
{
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    const auto configured = r.configured.find(name);
    return configured == r.configured.end() ? LoggerPriority::PRIORITY_NOTSET : configured->second;
}

void LogFactory::resetSink()
{
    setSink(LineSink());
}

void LogFactory::setSink(const String& filePath)
{
    File file = openForAppend(filePath);
    if (!file) {
        throw Exception("cannot open log file \"" + filePath + "\": " + std::strerror(errno));
    }
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    r.sink = nullptr;
    r.file = std::move(file);
}

void LogFactory::setSink(LineSink sink)
{
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    r.file.reset();
    r.sink = std::move(sink);
}

bool LogFactory::writesToErrorStream()
{
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    return !r.sink && !r.file;
}

unsigned long long LogFactory::createLoggerCalls()
{
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    return r.createLoggerCalls;
}

void LogFactory::write(const std::string& line)
{
    Registry& r = registry();
    std::lock_guard lock(r.mutex);
    if (r.sink) {
        r.sink(line);
    } else if (r.file) {
        // Flushed line by line so that a killed process loses nothing already logged. A failed
        // write is not reported: logging must never break the run it describes.
        std::fwrite(line.data(), 1, line.size(), r.file.get());
        std::fputc('\n', r.file.get());
        std::fflush(r.file.get());
    } else {
        cerr << line.c_str() << endl;
    }
}

}  // namespace ksx
