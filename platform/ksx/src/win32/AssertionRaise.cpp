#include "AssertionRaise.h"

#include <windows.h>

namespace ksx {

void raiseAssertionException()
{
    RaiseException(7, 0, 0, nullptr);
}

}  // namespace ksx
