#pragma once
// The calling thread's stack as text, one "module+0xOFFSET" line a frame, innermost first.
#include "ksx/String.h"

namespace ksx {

// Leaves out `skipFrames` frames above the caller of captureStackTrace.
String captureStackTrace(unsigned int skipFrames);

}  // namespace ksx
