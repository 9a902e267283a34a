#pragma once
// A system error code as the system words it, with its number.
#include <string>

std::string win32Error(unsigned long code);
