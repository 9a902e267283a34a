#pragma once
// An owned brush, deleted with the object.
#include <windows.h>

class CBrush {
public:
    CBrush();
    ~CBrush();
    CBrush(const CBrush&) = delete;
    CBrush& operator=(const CBrush&) = delete;

    // Null when no brush is held.
    HGDIOBJ m_hObject;

    operator HBRUSH() const;

    // A solid brush of crColor, replacing the one held before; FALSE when GDI refused.
    BOOL CreateSolidBrush(COLORREF crColor);
    // Deletes the brush; FALSE when none was held.
    BOOL DeleteObject();
};
