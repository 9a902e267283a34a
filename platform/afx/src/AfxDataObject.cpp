#include "AfxDataObject.h"

#include <shlobj.h>

#include "AfxGlobalLock.h"

AfxDataObject* AfxDataObject::Create()
{
    return new AfxDataObject();
}

AfxDataObject::AfxDataObject() : m_cRef(1) {}

AfxDataObject::~AfxDataObject() = default;

void AfxDataObject::Cache(const FORMATETC& fmt, HGLOBAL hGlobal)
{
    Entry entry{fmt, {hGlobal, &::GlobalFree}};
    // The receiver is told global memory only; a target device is not kept.
    entry.fmt.ptd = nullptr;
    entry.fmt.tymed = TYMED_HGLOBAL;
    for (Entry& existing : m_entries) {
        if (existing.fmt.cfFormat == fmt.cfFormat && existing.fmt.dwAspect == fmt.dwAspect &&
            existing.fmt.lindex == fmt.lindex) {
            existing = std::move(entry);
            return;
        }
    }
    m_entries.push_back(std::move(entry));
}

void AfxDataObject::Empty()
{
    m_entries.clear();
}

HRESULT AfxDataObject::QueryInterface(REFIID riid, void** ppv)
{
    if (ppv == nullptr) {
        return E_POINTER;
    }
    if (riid == IID_IUnknown || riid == IID_IDataObject) {
        *ppv = static_cast<IDataObject*>(this);
        AddRef();
        return S_OK;
    }
    *ppv = nullptr;
    return E_NOINTERFACE;
}

ULONG AfxDataObject::AddRef()
{
    return static_cast<ULONG>(::InterlockedIncrement(&m_cRef));
}

ULONG AfxDataObject::Release()
{
    const LONG count = ::InterlockedDecrement(&m_cRef);
    if (count == 0) {
        delete this;
    }
    return static_cast<ULONG>(count);
}

const AfxDataObject::Entry* AfxDataObject::Find(const FORMATETC& fmt) const
{
    for (const Entry& entry : m_entries) {
        if (entry.fmt.cfFormat == fmt.cfFormat && entry.fmt.dwAspect == fmt.dwAspect &&
            (fmt.lindex == -1 || entry.fmt.lindex == fmt.lindex) &&
            (fmt.tymed & TYMED_HGLOBAL) != 0) {
            return &entry;
        }
    }
    return nullptr;
}

HRESULT AfxDataObject::GetData(FORMATETC* pFormatEtc, STGMEDIUM* pMedium)
{
    if (pFormatEtc == nullptr || pMedium == nullptr) {
        return E_INVALIDARG;
    }
    const Entry* entry = Find(*pFormatEtc);
    if (entry == nullptr) {
        return DV_E_FORMATETC;
    }
    HGLOBAL hCopy = AfxGlobalLock::Copy(entry->block.get());
    if (hCopy == nullptr) {
        return E_OUTOFMEMORY;
    }
    pMedium->tymed = TYMED_HGLOBAL;
    pMedium->hGlobal = hCopy;
    pMedium->pUnkForRelease = nullptr;
    return S_OK;
}

HRESULT AfxDataObject::GetDataHere(FORMATETC*, STGMEDIUM*)
{
    return DV_E_FORMATETC;
}

HRESULT AfxDataObject::QueryGetData(FORMATETC* pFormatEtc)
{
    if (pFormatEtc == nullptr) {
        return E_INVALIDARG;
    }
    return Find(*pFormatEtc) != nullptr ? S_OK : DV_E_FORMATETC;
}

HRESULT AfxDataObject::GetCanonicalFormatEtc(FORMATETC*, FORMATETC* pFormatEtcOut)
{
    if (pFormatEtcOut == nullptr) {
        return E_INVALIDARG;
    }
    pFormatEtcOut->ptd = nullptr;
    return DATA_S_SAMEFORMATETC;
}

HRESULT AfxDataObject::SetData(FORMATETC*, STGMEDIUM*, BOOL)
{
    return E_NOTIMPL;
}

HRESULT AfxDataObject::EnumFormatEtc(DWORD dwDirection, IEnumFORMATETC** ppEnumFormatEtc)
{
    if (ppEnumFormatEtc == nullptr) {
        return E_INVALIDARG;
    }
    *ppEnumFormatEtc = nullptr;
    if (dwDirection != DATADIR_GET) {
        return E_NOTIMPL;
    }
    std::vector<FORMATETC> formats;
    formats.reserve(m_entries.size());
    for (const Entry& entry : m_entries) {
        formats.push_back(entry.fmt);
    }
    return ::SHCreateStdEnumFmtEtc(static_cast<UINT>(formats.size()), formats.data(),
                                   ppEnumFormatEtc);
}

HRESULT AfxDataObject::DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*)
{
    return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT AfxDataObject::DUnadvise(DWORD)
{
    return OLE_E_ADVISENOTSUPPORTED;
}

HRESULT AfxDataObject::EnumDAdvise(IEnumSTATDATA**)
{
    return OLE_E_ADVISENOTSUPPORTED;
}
