#pragma once
// The one entry point behind the touchpad and the TrackPoint test.
#include "harn5/DiagDevice.h"
#include "harn5/TestResult.h"

harn5::TestResult runSynapticsTest(const harn5::DiagDevice& device);
