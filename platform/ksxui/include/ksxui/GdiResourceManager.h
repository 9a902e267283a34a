#pragma once
// GDI+ started for the lifetime of the object: a dialog that draws with GDI+ lives inside one.
#include <windows.h>

class GdiResourceManager {
public:
    // Starts GDI+; a failed start is remembered and leaves nothing to shut down.
    GdiResourceManager();
    // Shuts GDI+ down again when this object started it.
    ~GdiResourceManager();
    GdiResourceManager(const GdiResourceManager&) = delete;
    GdiResourceManager& operator=(const GdiResourceManager&) = delete;

    // True while GDI+ is started by this object.
    bool IsStarted() const;

private:
    ULONG_PTR m_token;
};
