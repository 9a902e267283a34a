#include "harn5/RunGuard.h"

#include <csignal>

namespace harn5 {

namespace {
struct sigaction s_previous {};

void onInterrupt(int)
{
    RunGuard::interrupt();
}
}  // namespace

RunGuard::RunGuard(Host&)
{
    clearInterrupt();
    struct sigaction action {};
    action.sa_handler = onInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &s_previous);
}

RunGuard::~RunGuard()
{
    sigaction(SIGINT, &s_previous, nullptr);
}

}  // namespace harn5
