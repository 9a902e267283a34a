#pragma once
// A GDI object selected into a device context for a scope; the one it replaced goes back.
#include <windows.h>

class SelectedObject {
public:
    SelectedObject(HDC dc, HGDIOBJ object) : m_dc(dc), m_previous(SelectObject(dc, object)) {}
    ~SelectedObject() { SelectObject(m_dc, m_previous); }
    SelectedObject(const SelectedObject&) = delete;
    SelectedObject& operator=(const SelectedObject&) = delete;

private:
    HDC m_dc;
    HGDIOBJ m_previous;
};
