#include "afx/COleDataObject.h"

#include "AfxGlobalLock.h"

namespace {

// The request for the format: the caller's description, else the content as global memory.
FORMATETC MakeFormat(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc)
{
    FORMATETC fmt{cfFormat, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    if (lpFormatEtc != nullptr) {
        fmt = *lpFormatEtc;
        fmt.cfFormat = cfFormat;
    }
    return fmt;
}

}  // namespace

COleDataObject::COleDataObject() : m_lpDataObject(nullptr), m_bAutoRelease(TRUE) {}

COleDataObject::~COleDataObject()
{
    Release();
}

void COleDataObject::Attach(LPDATAOBJECT lpDataObject, BOOL bAutoRelease)
{
    Release();
    m_lpDataObject = lpDataObject;
    m_bAutoRelease = bAutoRelease;
}

LPDATAOBJECT COleDataObject::Detach()
{
    LPDATAOBJECT lpDataObject = m_lpDataObject;
    m_lpDataObject = nullptr;
    return lpDataObject;
}

void COleDataObject::Release()
{
    LPDATAOBJECT lpDataObject = Detach();
    if (lpDataObject != nullptr && m_bAutoRelease) {
        lpDataObject->Release();
    }
}

LPDATAOBJECT COleDataObject::GetIDataObject(BOOL bAddRef)
{
    if (m_lpDataObject != nullptr && bAddRef) {
        m_lpDataObject->AddRef();
    }
    return m_lpDataObject;
}

BOOL COleDataObject::IsDataAvailable(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc)
{
    if (m_lpDataObject == nullptr) {
        return FALSE;
    }
    FORMATETC fmt = MakeFormat(cfFormat, lpFormatEtc);
    return m_lpDataObject->QueryGetData(&fmt) == S_OK;
}

BOOL COleDataObject::GetData(CLIPFORMAT cfFormat, LPSTGMEDIUM lpStgMedium, LPFORMATETC lpFormatEtc)
{
    if (m_lpDataObject == nullptr || lpStgMedium == nullptr) {
        return FALSE;
    }
    FORMATETC fmt = MakeFormat(cfFormat, lpFormatEtc);
    return SUCCEEDED(m_lpDataObject->GetData(&fmt, lpStgMedium));
}

HGLOBAL COleDataObject::GetGlobalData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc)
{
    FORMATETC fmt = MakeFormat(cfFormat, lpFormatEtc);
    fmt.tymed = TYMED_HGLOBAL;
    STGMEDIUM medium{};
    if (!GetData(cfFormat, &medium, &fmt)) {
        return nullptr;
    }
    if (medium.tymed == TYMED_HGLOBAL && medium.pUnkForRelease == nullptr) {
        // The block is the caller's already.
        return medium.hGlobal;
    }
    HGLOBAL hCopy = medium.tymed == TYMED_HGLOBAL ? AfxGlobalLock::Copy(medium.hGlobal) : nullptr;
    ::ReleaseStgMedium(&medium);
    return hCopy;
}
