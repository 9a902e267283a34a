#include "AfxGlobalLock.h"

#include <cstring>

AfxGlobalLock::AfxGlobalLock(HGLOBAL hGlobal)
    : m_hGlobal(hGlobal), m_pData(hGlobal != nullptr ? ::GlobalLock(hGlobal) : nullptr)
{
}

AfxGlobalLock::~AfxGlobalLock()
{
    if (m_pData != nullptr) {
        ::GlobalUnlock(m_hGlobal);
    }
}

void* AfxGlobalLock::Get() const
{
    return m_pData;
}

HGLOBAL AfxGlobalLock::Copy(HGLOBAL hGlobal)
{
    AfxGlobalLock source(hGlobal);
    if (source.Get() == nullptr) {
        return nullptr;
    }
    const SIZE_T size = ::GlobalSize(hGlobal);
    HGLOBAL hCopy = ::GlobalAlloc(GMEM_MOVEABLE, size);
    if (hCopy == nullptr) {
        return nullptr;
    }
    {
        AfxGlobalLock target(hCopy);
        if (target.Get() != nullptr) {
            std::memcpy(target.Get(), source.Get(), size);
            return hCopy;
        }
    }
    ::GlobalFree(hCopy);
    return nullptr;
}
