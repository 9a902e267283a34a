// A second source file with its own logger pointer, as each module file has.
#include "ksx/Log.h"

namespace {
ksx::Logger* s_log = nullptr;
constexpr int kLine = 7;
}  // namespace

ksx::Logger* logFromOtherFile(const char* name)
{
    KSX_LOG(s_log, name, ksx::LoggerPriority::PRIORITY_ERROR, kLine, "from the other file");
    return s_log;
}
