#pragma once
// The entry point of the touchpad quality test.
#include "harn5/DiagDevice.h"
#include "harn5/TestResult.h"

harn5::TestResult runTouchpadQualityTest(const harn5::DiagDevice& device);
