#include "StackTrace.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <cstdint>
#include <cstdio>
#include <string>

namespace ksx {

String captureStackTrace(unsigned int skipFrames)
{
    void* frames[64];
    const int count = backtrace(frames, 64);
    std::string text;
    // Frame 0 is this function.
    for (int i = 1 + static_cast<int>(skipFrames); i < count; ++i) {
        Dl_info info{};
        char line[64];
        if (dladdr(frames[i], &info) && info.dli_fname && info.dli_fbase) {
            std::string module = info.dli_fname;
            module.erase(0, module.rfind('/') + 1);
            std::snprintf(line, sizeof line, "+0x%llx\n",
                          static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(frames[i]) -
                                                          reinterpret_cast<std::uintptr_t>(info.dli_fbase)));
            text += module + line;
        } else {
            std::snprintf(line, sizeof line, "%p\n", frames[i]);
            text += line;
        }
    }
    return String(text);
}

}  // namespace ksx
