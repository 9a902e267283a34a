#pragma once
// An owned bitmap: loaded from the module's resources and deleted with the object.
#include <windows.h>

class CBitmap {
public:
    CBitmap();
    ~CBitmap();
    CBitmap(const CBitmap&) = delete;
    CBitmap& operator=(const CBitmap&) = delete;

    // Null when no bitmap is loaded.
    HGDIOBJ m_hObject;

    operator HBITMAP() const;
    HGDIOBJ GetSafeHandle() const;

    // Loads the named (or numbered) bitmap of the executable's resources, replacing the one
    // held before; FALSE when there is no such resource (and then nothing is held).
    BOOL LoadBitmap(LPCTSTR lpszResourceName);
    BOOL LoadBitmap(UINT nIDResource);
    // Fills the bitmap's size and format; 0 when nothing is loaded.
    int GetBitmap(BITMAP* pBitMap) const;
    // Deletes the bitmap; FALSE when nothing was held.
    BOOL DeleteObject();
};
