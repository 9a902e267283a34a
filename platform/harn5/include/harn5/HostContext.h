#pragma once
// What the dialog library needs to know of the process's host.
#include <cstdint>

namespace harn5 {

class HostContext {
public:
    static std::uintptr_t hostWindow();        // --host-window HANDLE; 0 when none
    static bool rightToLeft();                 // the current language reads right to left
};

}  // namespace harn5
