#include "DisplayRate.h"

#include <windows.h>

int DisplayRate::hz()
{
    struct ScreenDC {
        HDC dc = ::GetDC(nullptr);
        ~ScreenDC() { ::ReleaseDC(nullptr, dc); }
    } screen;
    const int hz = ::GetDeviceCaps(screen.dc, VREFRESH);
    return hz > 1 ? hz : 60;   // 0 and 1 mean the hardware's default
}
