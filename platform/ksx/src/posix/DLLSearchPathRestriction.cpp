#include "ksx/DLLSearchPathRestriction.h"

namespace ksx {

// Only Windows searches for DLLs this way; there is nothing to restrict.
void DLLSearchPathRestriction::configure(Config)
{
}

}  // namespace ksx
