#pragma once
// The IDataObject of a COleDataSource: it owns the cached global memory blocks and hands
// out copies of them.
#include <memory>
#include <vector>

#include <windows.h>

#include <ole2.h>

class AfxDataObject final : public IDataObject {
public:
    // A new object with one reference.
    static AfxDataObject* Create();

    // Offers hGlobal (now owned) under fmt's format, aspect and index, replacing an earlier
    // block offered under the same ones.
    void Cache(const FORMATETC& fmt, HGLOBAL hGlobal);
    // Frees every block.
    void Empty();

    // IUnknown
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID riid, void** ppv) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;

    // IDataObject: global memory only, always as a copy the receiver frees.
    HRESULT STDMETHODCALLTYPE GetData(FORMATETC* pFormatEtc, STGMEDIUM* pMedium) override;
    HRESULT STDMETHODCALLTYPE GetDataHere(FORMATETC* pFormatEtc, STGMEDIUM* pMedium) override;
    HRESULT STDMETHODCALLTYPE QueryGetData(FORMATETC* pFormatEtc) override;
    HRESULT STDMETHODCALLTYPE GetCanonicalFormatEtc(FORMATETC* pFormatEtcIn,
                                                    FORMATETC* pFormatEtcOut) override;
    HRESULT STDMETHODCALLTYPE SetData(FORMATETC* pFormatEtc, STGMEDIUM* pMedium,
                                      BOOL fRelease) override;
    HRESULT STDMETHODCALLTYPE EnumFormatEtc(DWORD dwDirection,
                                            IEnumFORMATETC** ppEnumFormatEtc) override;
    HRESULT STDMETHODCALLTYPE DAdvise(FORMATETC* pFormatEtc, DWORD advf, IAdviseSink* pAdvSink,
                                      DWORD* pdwConnection) override;
    HRESULT STDMETHODCALLTYPE DUnadvise(DWORD dwConnection) override;
    HRESULT STDMETHODCALLTYPE EnumDAdvise(IEnumSTATDATA** ppEnumAdvise) override;

private:
    struct Entry {
        FORMATETC fmt;
        std::unique_ptr<void, decltype(&::GlobalFree)> block;
    };

    AfxDataObject();
    ~AfxDataObject();

    // The entry offering the requested format as global memory; null when none.
    const Entry* Find(const FORMATETC& fmt) const;

    LONG m_cRef;
    std::vector<Entry> m_entries;
};
