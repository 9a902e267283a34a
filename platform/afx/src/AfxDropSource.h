#pragma once
// The IDropSource handed to the system's drag loop: it asks a COleDropSource.
#include <windows.h>

#include <ole2.h>

class COleDropSource;

class AfxDropSource final : public IDropSource {
public:
    // A new object with one reference, asking pSource (which must outlive the drag).
    static AfxDropSource* Create(COleDropSource* pSource);

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IDropSource
    HRESULT STDMETHODCALLTYPE QueryContinueDrag(BOOL fEscapePressed, DWORD grfKeyState) override;
    HRESULT STDMETHODCALLTYPE GiveFeedback(DWORD dwEffect) override;

private:
    explicit AfxDropSource(COleDropSource* pSource);
    ~AfxDropSource();

    LONG m_cRef;
    COleDropSource* m_pSource;
};
