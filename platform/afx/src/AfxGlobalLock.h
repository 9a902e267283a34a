#pragma once
// A lock on a global memory block, held for the lifetime of the object.
#include <windows.h>

class AfxGlobalLock {
public:
    explicit AfxGlobalLock(HGLOBAL hGlobal);
    ~AfxGlobalLock();
    AfxGlobalLock(const AfxGlobalLock&) = delete;
    AfxGlobalLock& operator=(const AfxGlobalLock&) = delete;

    // The block's memory; null when it could not be locked.
    void* Get() const;

    // A new movable block with the same bytes (the caller frees it); null when hGlobal is
    // null or cannot be read, or memory is short.
    static HGLOBAL Copy(HGLOBAL hGlobal);

private:
    HGLOBAL m_hGlobal;
    void* m_pData;
};
