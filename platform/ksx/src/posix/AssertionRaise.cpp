#include "AssertionRaise.h"

#include <cstdlib>

namespace ksx {

void raiseAssertionException()
{
    std::abort();
}

}  // namespace ksx
