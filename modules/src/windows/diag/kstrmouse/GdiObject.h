#pragma once
// A GDI object (pen, brush, font, bitmap) deleted with its scope.
#include <windows.h>

template <typename Handle>
class GdiObject {
public:
    explicit GdiObject(Handle handle) : m_handle(handle) {}
    ~GdiObject()
    {
        if (m_handle != nullptr) {
            DeleteObject(m_handle);
        }
    }
    GdiObject(const GdiObject&) = delete;
    GdiObject& operator=(const GdiObject&) = delete;
    Handle get() const { return m_handle; }

private:
    Handle m_handle;
};
