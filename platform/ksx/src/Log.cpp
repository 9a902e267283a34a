#include "ksx/Log.h"

namespace ksx {

using LoggerPriority::LOGGER_PRIORITY;

Logger* passingLogger(Logger*& slot, const char* name, LOGGER_PRIORITY priority)
{
    if (LogFactory::getPriority() > priority) return nullptr;
    if (!slot) LogFactory::createLogger(name, slot);
    if (slot->priority > priority || slot->resolvePriority() > priority) return nullptr;
    return slot;
}

Logger* traceLogger(Logger*& slot, const char* name)
{
    if (LogFactory::getPriority() > LoggerPriority::PRIORITY_TRACE) return nullptr;
    if (!slot) LogFactory::createLogger(name, slot);
    return slot->priority <= LoggerPriority::PRIORITY_TRACE ? slot : nullptr;
}

}  // namespace ksx
