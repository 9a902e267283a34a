#pragma once
// The entry point of the pointer quality test.
#include "harn5/DiagDevice.h"
#include "harn5/TestResult.h"

harn5::TestResult runPointerQualityTest(const harn5::DiagDevice& device);
