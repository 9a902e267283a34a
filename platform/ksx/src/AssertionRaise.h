#pragma once
// How a failed assertion ends the function when no handler was installed.

namespace ksx {

// Windows: structured exception 7, no flags, no arguments. Elsewhere: std::abort().
void raiseAssertionException();

}  // namespace ksx
