#include "harn5/HostContext.h"

#include "harn5/Host.h"

namespace harn5 {

std::uintptr_t HostContext::hostWindow()
{
    return Host::process().hostWindow();
}

bool HostContext::rightToLeft()
{
    return Host::process().language().rightToLeft();
}

}  // namespace harn5
