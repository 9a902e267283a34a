#include "AfxDropSource.h"

#include <exception>

#include "AfxThreadState.h"
#include "afx/COleDropSource.h"

AfxDropSource* AfxDropSource::Create(COleDropSource* pSource)
{
    return new AfxDropSource(pSource);
}

AfxDropSource::AfxDropSource(COleDropSource* pSource) : m_cRef(1), m_pSource(pSource) {}

AfxDropSource::~AfxDropSource() = default;

HRESULT AfxDropSource::QueryInterface(REFIID riid, void** ppv)
{
    if (ppv == nullptr) {
        return E_POINTER;
    }
    if (riid == IID_IUnknown || riid == IID_IDropSource) {
        *ppv = static_cast<IDropSource*>(this);
        AddRef();
        return S_OK;
    }
    *ppv = nullptr;
    return E_NOINTERFACE;
}

ULONG AfxDropSource::AddRef()
{
    return static_cast<ULONG>(::InterlockedIncrement(&m_cRef));
}

ULONG AfxDropSource::Release()
{
    const LONG count = ::InterlockedDecrement(&m_cRef);
    if (count == 0) {
        delete this;
    }
    return static_cast<ULONG>(count);
}

HRESULT AfxDropSource::QueryContinueDrag(BOOL fEscapePressed, DWORD grfKeyState)
{
    // An exception must not unwind through the system's drag loop: keep it for the caller
    // of DoDragDrop and cancel the drag.
    try {
        return m_pSource->QueryContinueDrag(fEscapePressed, grfKeyState);
    } catch (...) {
        AfxThreadState::Get().StoreException(std::current_exception());
        return DRAGDROP_S_CANCEL;
    }
}

HRESULT AfxDropSource::GiveFeedback(DWORD dwEffect)
{
    try {
        return m_pSource->GiveFeedback(dwEffect);
    } catch (...) {
        AfxThreadState::Get().StoreException(std::current_exception());
        return DRAGDROP_S_USEDEFAULTCURSORS;
    }
}
