#pragma once
// The system metrics the mouse model reads. The portable build takes GetSystemMetrics from
// whatever links it (its tests feed the values); the Windows build asks the system.
#ifdef _WIN32
#include <windows.h>
#else
extern "C" int GetSystemMetrics(int index);
enum {
    SM_MOUSEPRESENT = 19,
    SM_SWAPBUTTON = 23,
    SM_CMOUSEBUTTONS = 43,
    SM_MOUSEWHEELPRESENT = 75,
    SM_MOUSEHORIZONTALWHEELPRESENT = 91,
};
#endif
