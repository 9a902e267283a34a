#include "ksxui/GdiResourceManager.h"

// GDI+ needs the COM declarations that WIN32_LEAN_AND_MEAN leaves out of windows.h.
#include <objidl.h>
#include <gdiplus.h>

GdiResourceManager::GdiResourceManager() : m_token(0)
{
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&m_token, &input, nullptr) != Gdiplus::Ok) {
        m_token = 0;
    }
}

GdiResourceManager::~GdiResourceManager()
{
    if (m_token != 0) {
        Gdiplus::GdiplusShutdown(m_token);
    }
}

bool GdiResourceManager::IsStarted() const
{
    return m_token != 0;
}
