#include "harn5/RunGuard.h"

#include <atomic>

namespace harn5 {

namespace {
// Set from a signal handler or the console control thread: lock-free by design.
std::atomic<bool> s_interrupted{false};
static_assert(std::atomic<bool>::is_always_lock_free);
}  // namespace

bool RunGuard::interrupted()
{
    return s_interrupted.load();
}

void RunGuard::interrupt()
{
    s_interrupted.store(true);
}

void RunGuard::clearInterrupt()
{
    s_interrupted.store(false);
}

}  // namespace harn5
